# SPDX-License-Identifier: BSD-3-Clause
"""Compressed data by the library, by gridio with several numbers of threads and by the Python binding, in turns."""
import dataclasses
import os
import statistics

HEADING = "\nCompressed data: 1000 by 1000 maps in chunks of 1 by 500 by 500, shuffled, deflated at level 4"


@dataclasses.dataclass(frozen=True)
class Line:
    work: str
    title: str
    source: str  # the kind of file that is read, or whose values are written
    element: int = 0  # bytes of one, where the data are one result
    by_python: bool = True

    @property
    def is_write(self):
        return self.work.startswith("write")

    @property
    def read(self):
        """What the line reads, or how what it writes is read back."""
        return f"read_chunks_{self.source}" if self.is_write else self.work


LINES = [
    Line("read_chunks_float", "read noisy floats", "float", 4),
    Line("read_chunks_short", "read int16", "short", 2),
    Line("read_chunks_zstd", "read floats, zstd instead", "zstd", 4, by_python=False),
    Line("read_chunks_maps", "read 20 single maps", "float"),
    Line("write_chunks_float", "write noisy floats", "float"),
    Line("write_chunks_short", "write int16", "short"),
]


def command(interpreter, threads):
    """Of a session with that many threads. With one, the engine of gridio in a single thread: what it does on a machine of
    one core. GRIDIO_THREADS=1 would leave the work to the library."""
    if threads == 1:
        return ["taskset", "-c", str(min(os.sched_getaffinity(0))), *interpreter], {}
    return interpreter, {"GRIDIO_THREADS": str(threads)}


class ChunkLines:
    """workers: by name; "c" is the floor, "python" may be missing, the others are sessions of gridio."""

    def __init__(self, workers, maps, rounds, folder):
        self._workers = workers
        self._maps = maps
        self._rounds = rounds
        self._folder = folder

    def all(self):
        for line in LINES:
            yield self.line(line)

    def _source(self, kind):
        path = self._folder / f"source_{kind}.nc"
        if not path.exists():
            self._workers["c"].ask("run", f"make_chunks_{kind}", "netcdf4", path, self._maps)
            self._workers["c"].ask("check")
        return path

    def _check(self, line, path):
        """The checksum of what plain C reads."""
        self._workers["c"].ask("run", line.read, "netcdf4", path, self._maps)
        return float(self._workers["c"].ask("check"))

    def line(self, line):
        source = self._source(line.source)
        names = [name for name in self._workers if name != "python" or line.by_python]
        path = self._folder / f"written_{line.source}.nc" if line.is_write else source
        expected = self._check(line, source)
        runs = {name: [] for name in names}
        for turn in range(self._rounds):
            shift = turn % len(names)
            for name in names[shift:] + names[:shift]:
                seconds, peak, found = self._workers[name].run(line.work, "netcdf4", path, self._maps)
                if line.is_write:
                    found = self._check(line, path)
                    path.unlink()
                if found != expected:
                    raise SystemExit(f"bench: {line.work} by {name}: the checksum is {found}, not {expected}")
                runs[name].append((seconds, peak))
        return self._report(line, runs)

    def _report(self, line, runs):
        """The ratio of a round is to the library in the same round: a busy machine slows both."""
        floor = [seconds for seconds, _ in runs["c"]]
        report = {"work": line.work, "title": line.title, "maps": self._maps, "rounds": self._rounds, "contenders": {}}
        for name, rounds in runs.items():
            seconds = [taken for taken, _ in rounds]
            entry = {"seconds": seconds, "median": statistics.median(seconds),
                     "ratio": statistics.median(own / library for own, library in zip(seconds, floor))}
            if line.element:
                entry["peak_ratio"] = max(peak for _, peak in rounds) / (line.element * self._maps * 1000000)
            report["contenders"][name] = entry
        return report
