# SPDX-License-Identifier: BSD-3-Clause
"""The benchmark's table for people, and its JSON for machines."""
import dataclasses
import json
import os
import pathlib
import platform
import statistics

import chunk_lines
import dataset_lines

TITLES = {"c": "C", "huge": "C, huge pages", "threads": "C, 2 threads", "module": "module", "gridio": "gridio",
          "direct": "direct", "python": "Python"}


def line(workload, form, count, runs, data_bytes):
    """One row: of each contender the seconds of every round, their median, and its ratio to plain C."""
    contenders = {}
    floor = statistics.median(seconds for seconds, _ in runs["c"])
    least = min(seconds for seconds, _ in runs["c"])
    for name, rounds in runs.items():
        seconds = [taken for taken, _ in rounds]
        entry = {"seconds": seconds, "median": statistics.median(seconds), "minimum": min(seconds),
                 "ratio": statistics.median(seconds) / floor, "ratio_of_minima": min(seconds) / least,
                 "verified": True}
        if data_bytes:
            entry["peak"] = max(peak for _, peak in rounds)
            entry["peak_ratio"] = entry["peak"] / data_bytes
        contenders[name] = entry
    return {"workload": workload.name, "title": workload.title, "format": form, "count": count, "rounds": len(seconds),
            "data_bytes": data_bytes, "contenders": contenders}


def call(call_, form, library, empty, direct, full):
    """Microseconds of one call. "own" is what the gateway, the adapter and the results add to a function that does and
    returns nothing, "over_direct" what they add to one that makes the library's calls and nothing else."""
    return {"call": call_.name, "format": form, "library": library, "empty": empty, "direct": direct, "gridio": full,
            "own": full - empty - library, "over_direct": full - direct}


def machine():
    about = {"system": platform.platform(), "cores": os.cpu_count(), "load": os.getloadavg()}
    for path, key, word in (("/proc/cpuinfo", "processor", "model name"), ("/proc/meminfo", "memory", "MemTotal")):
        for text in pathlib.Path(path).read_text().splitlines():
            if text.startswith(word):
                about[key] = text.split(":")[1].strip()
                break
    setting = pathlib.Path("/sys/kernel/mm/transparent_hugepage/enabled")
    about["huge_pages"] = setting.read_text().strip() if setting.exists() else "none"
    return about


def human(count):
    return f"{count >> 20} Mi" if count >= 1 << 20 else f"{count:,}"


class Table:
    """Printed while it grows."""

    def __init__(self, quick, names, versions):
        self._names = names
        self._chunk_names = []
        self._data = {"quick": quick, "versions": versions, "machine": machine(), "lines": [],
                      "chunks": [], "datasets": [], "calls": [], "paths": []}
        print("Medians of rounds in turns; ratios to plain C"
              " (of bulk reads, with the most memory taken, in parts of the data)")
        for about in (*versions.values(), *map(str, self._data["machine"].values())):
            print(f"  {about}")
        print(f"{'':42}{'C':>10}" + "".join(f"{TITLES[name]:>16}" for name in names if name != "c"), flush=True)

    def add_line(self, line_):
        self._data["lines"].append(line_)
        contenders = line_["contenders"]
        cells = "".join(self._cell(contenders.get(name)) for name in self._names if name != "c")
        title = f"{human(line_['count'])} {line_['title']}, {line_['format']}"
        print(f"{title:42}{contenders['c']['median']:8.3f} s{cells}", flush=True)

    @staticmethod
    def _cell(entry):
        if entry is None:
            return f"{'':>16}"
        peak = f" ({entry['peak_ratio']:.2f})" if "peak_ratio" in entry else ""
        return f"{entry['ratio']:.2f}{peak}".rjust(16)

    def begin_chunks(self, names):
        print(chunk_lines.HEADING)
        print(f"{'ratios to plain C; this machine has ' + str(os.cpu_count()) + ' cores':42}{'C':>10}"
              + "".join(f"{TITLES.get(name, name):>16}" for name in names if name != "c"), flush=True)
        self._chunk_names = names

    def add_chunks(self, line_):
        self._data["chunks"].append(line_)
        contenders = line_["contenders"]
        cells = "".join(self._cell(contenders.get(name)) for name in self._chunk_names if name != "c")
        print(f"{line_['title']:42}{contenders['c']['median']:8.3f} s{cells}", flush=True)

    def begin_datasets(self):
        print(dataset_lines.HEADING, flush=True)

    def add_dataset_line(self, line_):
        self._data["datasets"].append(line_)
        print(f"{line_['title']:66}{line_['ratio']:8.2f}   at most {line_['allowed']}", flush=True)

    def add_call(self, call_):
        if not self._data["calls"]:
            print(f"\nMicroseconds of one call in the interpreter\n"
                  f"{'':24}{'gridio':>10}{'empty call':>12}{'library':>10}{'own':>10}{'direct':>10}"
                  f"{'over direct':>13}")
        self._data["calls"].append(call_)
        title = f"{call_['call']}, {call_['format']}"
        print(f"{title:24}{call_['gridio']:10.2f}{call_['empty']:12.2f}{call_['library']:10.2f}"
              f"{call_['own']:10.2f}{call_['direct']:10.2f}{call_['over_direct']:13.2f}", flush=True)

    def add_path(self, cost):
        if not self._data["paths"]:
            print(f"\nThe gateway without the interpreter's dispatch: nanoseconds, with the library's; instructions\n"
                  f"{'':24}{'ns':>8}{'gridio':>9}{'C, C++':>9}{'interpreter':>13}{'library':>9}{'allocations':>13}")
        self._data["paths"].append(dataclasses.asdict(cost))
        print(f"{cost.name:24}{cost.nanoseconds:8.0f}{cost.own:9,}{cost.base:9,}{cost.interpreter:13,}"
              f"{cost.library:9,}{cost.allocations:13}", flush=True)

    def write_json(self, path):
        path.write_text(json.dumps(self._data, indent=1) + "\n")
