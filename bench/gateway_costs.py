# SPDX-License-Identifier: BSD-3-Clause
"""What the gateway's paths cost: nanoseconds, and instructions and allocations, which repeat exactly.

Instructions are classified by their location: in gridio's own code, in the C and C++ libraries, in the
interpreter's, in the netCDF library and what it stands on.
"""
import dataclasses
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

LIBRARIES = (("base", r"libc\.so|libstdc\+\+|libm\.so|libgcc_s|ld-linux"), ("interpreter", r"liboct"))

# Without the instructions that only some processors have, so that every machine counts alike.
PLAIN_PROCESSOR = "glibc.cpu.hwcaps=-AVX2,-AVX,-AVX512F,-AVX512VL,-AVX512BW,-BMI2,-ERMS,-FSRM,-LZCNT,-MOVBE,-RTM"


@dataclasses.dataclass
class Cost:
    name: str
    own: int = 0  # instructions in gridio's code
    base: int = 0
    interpreter: int = 0
    library: int = 0
    nanoseconds: float = 0
    allocations: int = 0  # beside those of the library's calls and of the results

    @property
    def gateway(self):
        """What the gateway and the adapter cost: all but the netCDF library."""
        return self.own + self.base + self.interpreter


def place(object_file):
    if object_file.endswith("/gateway_bench"):
        return "own"
    return next((name for name, pattern in LIBRARIES if re.search(pattern, object_file)), "library")


def instructions(dump):
    """The sum for each place, of one dump of callgrind's."""
    sums = {}
    names = {}
    current = None
    lines = iter(dump.read_text().splitlines())
    for line in lines:
        if found := re.fullmatch(r"ob=\((\d+)\)(?: (.*))?", line):
            names.setdefault(found[1], found[2])
            current = place(names[found[1]])
        elif found := re.fullmatch(r"cob=\((\d+)\) (.*)", line):
            names.setdefault(found[1], found[2])
        elif line.startswith("calls="):
            next(lines)  # the cost of the callee, counted where it lies
        elif re.match(r"[-+*\d]", line):
            sums[current] = sums.get(current, 0) + int(line.split()[1])
    return sums


def environment():
    return os.environ | {"OCTAVE_HISTFILE": os.devnull, "LC_ALL": "C"}


def make_file(programs, folder):
    file = pathlib.Path(folder) / "small.nc"
    subprocess.run([programs / "native_worker"], input=f"run make_small classic {file} 120000\n", text=True,
                   stdout=subprocess.DEVNULL, check=True)
    return file


def costs(programs):
    """Of every path, in the program's order; without nanoseconds."""
    with tempfile.TemporaryDirectory(prefix="gridio-count-") as folder:
        done = subprocess.run(
            ["valgrind", "--tool=callgrind", "--instr-atstart=no", f"--callgrind-out-file={folder}/counts",
             programs / "gateway_bench", make_file(programs, folder), "--counts"],
            env=environment() | {"GLIBC_TUNABLES": PLAIN_PROCESSOR}, cwd=folder, text=True, capture_output=True)
        if done.returncode != 0:
            sys.exit(f"gateway_costs: {done.stderr}")
        result = []
        for i, line in enumerate(done.stdout.splitlines(), start=1):
            name, all_of_it, least = line.split("|")
            sums = instructions(pathlib.Path(folder) / f"counts.{i}")
            result.append(Cost(name, **sums, allocations=int(all_of_it) - int(least)))
        return result


def nanoseconds(programs):
    """Of every path by its name: the least of many short rounds, which a busy machine disturbs little."""
    with tempfile.TemporaryDirectory(prefix="gridio-count-") as folder:
        done = subprocess.run(
            [programs / "gateway_bench", make_file(programs, folder), "--benchmark_min_time=0.002",
             "--benchmark_repetitions=15", "--benchmark_format=json"],
            env=environment(), cwd=folder, text=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True)
    least = {}
    for round_ in json.loads(done.stdout)["benchmarks"]:
        if round_["run_type"] == "iteration":
            name = round_["run_name"]
            least[name] = min(least.get(name, round_["real_time"]), round_["real_time"])
    return least
