# SPDX-License-Identifier: BSD-3-Clause
"""Datasets beside plain C that decodes, the Python binding, CDO and ncdump, in turns. Ratios are medians of rounds."""
import os
import shutil
import statistics
import subprocess
import time

HEADING = "\nDatasets: ratios to others, and how much is allowed"
VARIABLES = 500


def seconds_of(command, environment=()):
    start = time.perf_counter()
    subprocess.run([str(word) for word in command], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                   env=os.environ | dict(environment))
    return time.perf_counter() - start


class DatasetLines:
    """workers: "c", a session with each number of threads, and "python" unless it is missing."""

    def __init__(self, workers, sessions, maps, rounds, folder):
        self._workers = workers
        self._sessions = sessions
        self._maps = maps
        self._rounds = rounds
        self._folder = folder

    def all(self):
        yield from self._maxima()
        yield from self._time_means()
        yield from self._opening()

    def _ratio(self, title, ours, theirs, most):
        pairs = [(ours(), theirs()) for _ in range(self._rounds)]
        return {"title": title, "seconds": [ours for ours, _ in pairs], "allowed": most,
                "ratio": statistics.median(ours / theirs for ours, theirs in pairs)}

    def _run(self, worker, work, path, count):
        """The seconds, and the result checked against that of plain C."""
        seconds, _, found = worker.run(work, "classic", path, count)
        return seconds, found

    def _made(self, work, form, count):
        path = self._folder / f"{work}.nc"
        self._workers["c"].ask("run", work, form, path, count)
        self._workers["c"].ask("check")
        return path

    def _maxima(self):
        path = self._made("make_maxima", "classic", self._maps)
        session = self._sessions[2]  # that of one thread keeps to one core
        _, wanted = self._run(self._workers["c"], "maxima", path, self._maps)

        def by(worker):
            seconds, found = self._run(worker, "maxima", path, self._maps)
            if abs(found - wanted) > 1e-9 * abs(wanted):
                raise SystemExit(f"bench: maxima by {worker.name}: {found}, not {wanted}")
            return seconds

        title = f"maxima of {self._maps} packed maps of 1000 by 500"
        for name, most in (("c", 1.2), ("python", 0.5)):
            if name in self._workers:
                yield self._ratio(f"{title}, to {name}", lambda: by(session), lambda worker=self._workers[name]: by(worker),
                                  most)

    def _time_means(self):
        """CDO reads and writes the file anew, and starts each time."""
        if not shutil.which("cdo"):
            return
        path = self._folder / "series.nc"
        seconds_of(["cdo", "-s", "-f", "nc4", "-z", "zip_4", "-setcalendar,standard", "-settaxis,2000-01-01,00:00:00,1hour",
                    f"-duplicate,{self._maps}", "-setname,v", "-random,r1000x500", path])  # noise, which hardly compresses
        for threads, session in self._sessions.items():
            mean = ["cdo", "-s", "-P", threads, "timmean", path, self._folder / "mean.nc"]
            yield self._ratio(f"time mean of {self._maps} compressed maps, to CDO, {threads} thread{'s' * (threads > 1)}",
                              lambda session=session: self._run(session, "time_mean", path, self._maps)[0],
                              lambda mean=mean: seconds_of(mean), 1)

    def _opening(self):
        """Start-up left out: of ncdump, what it takes for a file of one variable."""
        small = self._made("make_many", "netcdf4", 1).rename(self._folder / "one.nc")
        path = self._made("make_many", "netcdf4", VARIABLES)
        session = self._sessions[2]  # that of one thread keeps to one core
        yield self._ratio(f"opening and printing {VARIABLES} variables, to ncdump -h",
                          lambda: self._run(session, "show_many", path, VARIABLES)[0],
                          lambda: max(seconds_of(["ncdump", "-h", path]) - seconds_of(["ncdump", "-h", small]), 1e-3), 3)
