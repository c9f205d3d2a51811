# SPDX-License-Identifier: BSD-3-Clause
"""The side-by-side benchmark: the same work by plain C, the module, gridio and others, in turns.

Called by `./gridio bench`. Each contender is one process that does the work in rounds, one contender
after the other in each round; what a line shows are medians of the rounds, and ratios to plain C.
"""
import argparse
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

import chunk_lines
import dataset_lines
import gateway_costs
import report
from workloads import CALLS, FORMATS, Sizes, WORKLOADS

HERE = pathlib.Path(__file__).resolve().parent


class Worker:
    """A process that does one piece of work at a time."""

    def __init__(self, name, command, environment=()):
        self.name = name
        self._process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                         env=os.environ | {"OCTAVE_HISTFILE": os.devnull} | dict(environment))

    def ask(self, *words):
        self._process.stdin.write(" ".join(str(word) for word in words) + "\n")
        self._process.stdin.flush()
        answer = self._process.stdout.readline()
        if not answer:
            status = self._process.wait()
            sys.exit(f"bench: {self.name} ended with {status} at: {' '.join(str(word) for word in words)}")
        return answer.strip()

    def run(self, work, form, path, count):
        """The seconds that it took, the most memory that it took besides what it had, the checksum."""
        pathlib.Path(f"/proc/{self._process.pid}/clear_refs").write_text("5")
        before = self._memory("VmRSS")
        seconds = float(self.ask("run", work, form, path, count))
        peak = self._memory("VmHWM") - before
        return seconds, peak, float(self.ask("check"))

    def _memory(self, field):
        for line in pathlib.Path(f"/proc/{self._process.pid}/status").read_text().splitlines():
            if line.startswith(field):
                return int(line.split()[1]) * 1024
        return 0

    def close(self):
        self._process.stdin.close()
        self._process.wait()


def interpreter_with(programs, oct_folder):
    return ["octave-cli", "--norc", "--no-history", "--no-line-editing", "--quiet", "--path", str(oct_folder),
            "--path", str(HERE.parent / "hosts" / "octave" / "inst"), "--path", str(programs), "--path", str(HERE)]


def python_worker():
    return Worker("python", ["/usr/bin/python3", "-B", str(HERE / "python_worker.py")])


def workers(programs, oct_folder, peers):
    native = str(programs / "native_worker")
    interpreter = interpreter_with(programs, oct_folder)
    every = {
        "c": Worker("c", [native]),
        "huge": Worker("huge", [native, "huge"]),
        "threads": Worker("threads", [native, "threads"]),
        "module": Worker("module", [str(programs / "module_worker")]),
        "gridio": Worker("gridio", [*interpreter, str(HERE / "octave_worker.m")]),
        "direct": Worker("direct", [*interpreter, str(HERE / "direct_worker.m")]),
    }
    if peers:
        every["python"] = python_worker()
    return every


def chunk_workers(programs, oct_folder, peers, threads):
    every = {"c": Worker("c", [str(programs / "native_worker")])}
    for count in threads:
        name = f"{count} thread{'s' * (count > 1)}"
        command, environment = chunk_lines.command(
            [*interpreter_with(programs, oct_folder), str(HERE / "chunks_worker.m")], count)
        every[name] = Worker(name, command, environment)
    if peers:
        every["python"] = python_worker()
    return every


class Bench:
    def __init__(self, every, sizes, folder):
        self._workers = every
        self._sizes = sizes
        self._folder = folder

    def make(self, work, form, count):
        """A file to be read; made once."""
        path = self._folder / f"{work}_{form}.nc"
        if not path.exists():
            self._workers["c"].ask("run", f"make_{work}", form, path, count)
            self._workers["c"].ask("check")
        return path

    def line(self, workload, form):
        count = workload.count(self._sizes)
        source = workload.source and self.make(workload.source, form, workload.source_count(self._sizes))
        others = ("threads", "direct") if workload.is_bulk_read else ("huge",)
        names = [name for name in self._workers
                 if name in workload.contenders or not workload.contenders and name not in others]
        runs = {name: [] for name in names}
        expected = workload.expected(count)
        for turn in range(workload.rounds(self._sizes)):
            shift = turn % len(names)
            for name in names[shift:] + names[:shift]:
                path = source or self._folder / f"written_by_{name}.nc"
                seconds, peak, found = self._workers[name].run(workload.name, form, path, count)
                if workload.check:
                    self._workers["c"].ask("run", workload.check, form, path, workload.check_count(count))
                    found = float(self._workers["c"].ask("check"))
                    path.unlink()
                if found != expected:
                    sys.exit(f"bench: {workload.name} {form} by {name}: the checksum is {found}, not {expected}")
                runs[name].append((seconds, peak))
        return report.line(workload, form, count, runs, workload.data_bytes(count) if workload.is_bulk_read else 0)

    def forget(self, source):
        for path in self._folder.glob(f"{source}_*.nc"):
            path.unlink()

    def call(self, call, form):
        path = self.make("small", form, self._sizes.small)
        count = self._sizes.calls
        few = count // 100  # as the interpreter's worker does
        answer = self._workers["gridio"].ask("call", path, count, f"|{call.name}|{call.arguments}")
        empty, direct, full = map(float, answer.split())
        rounds = [float(self._workers["c"].ask("run", f"call_{call.name}", form, path, few)) for _ in range(100)]
        self._workers["c"].ask("check")
        return report.call(call, form, min(rounds) / few * 1e6, empty, direct, full)


def scratch_folder(need, build):
    """A folder in memory if it has enough space, so that the speed of a disk does not count."""
    shm = pathlib.Path("/dev/shm")
    in_memory = shm.is_dir() and shutil.disk_usage(shm).free > 2 * need
    return tempfile.TemporaryDirectory(prefix="gridio-bench-", dir=shm if in_memory else build)


def bench_chunks(options, table, folder):
    every = chunk_workers(options.programs, options.octave, options.peers, options.threads)
    maps, rounds = (10, 3) if options.quick else (100, 5)
    table.begin_chunks(list(every))
    for line in chunk_lines.ChunkLines(every, maps, rounds, folder).all():
        table.add_chunks(line)
    for worker in every.values():
        worker.close()
    print("\nWithout an interpreter, by numbers of threads (t)", flush=True)
    counts = ",".join(map(str, options.threads))
    subprocess.run([options.programs / "chunk_bench", *["--quick"] * options.quick, "--threads", counts, folder], check=True)


def bench_datasets(options, table, folder):
    native = {"c": Worker("c", [str(options.programs / "native_worker")])}
    if options.peers:
        native["python"] = python_worker()
    sessions = {}
    for count in (1, 2):
        command, environment = chunk_lines.command(
            [*interpreter_with(options.programs, options.octave), str(HERE / "datasets_worker.m")], count)
        sessions[count] = Worker(f"{count} threads", command, environment)
    maps, rounds = (20, 3) if options.quick else (100, 5)
    table.begin_datasets()
    for line in dataset_lines.DatasetLines(native, sessions, maps, rounds, folder).all():
        table.add_dataset_line(line)
    for worker in (*native.values(), *sessions.values()):
        worker.close()


def thread_counts(text):
    counts = [int(count) for count in text.split(",")]
    if min(counts) < 1 or max(counts) > 256:
        raise ValueError(text)
    return counts


def main():
    parser = argparse.ArgumentParser(prog="gridio bench")
    parser.add_argument("--programs", type=pathlib.Path, required=True)
    parser.add_argument("--octave", type=pathlib.Path, required=True)
    parser.add_argument("--quick", action="store_true")
    parser.add_argument("--peers", action="store_true")
    parser.add_argument("--json", type=pathlib.Path)
    parser.add_argument("--threads", type=thread_counts, default=[1, 2, 4, 8])
    parser.add_argument("--only", default="", help="the work whose names begin so, 'call', 'chunks', or 'datasets'")
    options = parser.parse_args()
    options.programs = options.programs.resolve()

    sizes = Sizes.quick() if options.quick else Sizes.full()
    every = workers(options.programs, options.octave, options.peers)
    table = report.Table(options.quick, list(every),
                         {name: every[name].ask("versions") for name in ("gridio", "python") if name in every})
    with scratch_folder(sizes.bytes_needed, options.programs) as folder:
        bench = Bench(every, sizes, pathlib.Path(folder))
        sources = [workload.source for workload in WORKLOADS]
        for i, workload in enumerate(WORKLOADS):
            if not workload.name.startswith(options.only):
                continue
            for form in workload.formats or FORMATS:
                table.add_line(bench.line(workload, form))
            if workload.source not in sources[i + 1:] + ["small", None]:
                bench.forget(workload.source)
        for call in CALLS:
            for form in call.formats if "call".startswith(options.only[:4]) else ():
                table.add_call(bench.call(call, form))
    for worker in every.values():
        worker.close()
    if "chunks".startswith(options.only[:6]):
        with scratch_folder(2**30 if options.quick else 2**31, options.programs) as folder:
            bench_chunks(options, table, pathlib.Path(folder))
    if "datasets".startswith(options.only[:8]):
        with scratch_folder(2**29, options.programs) as folder:
            bench_datasets(options, table, pathlib.Path(folder))
    if not options.only:
        nanoseconds = gateway_costs.nanoseconds(options.programs)
        for cost in gateway_costs.costs(options.programs):
            cost.nanoseconds = nanoseconds[cost.name]
            table.add_path(cost)
    if options.json:
        table.write_json(options.json)


if __name__ == "__main__":
    main()
