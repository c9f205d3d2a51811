# SPDX-License-Identifier: BSD-3-Clause
"""examples/describe.m against ncdump -h and ncdump -hs, line by line.

Control characters beyond ASCII, which ncdump prints as they are, are escaped.
"""
import difflib
import os
import re
import subprocess

from control_characters import controls_of
from interpreter import ROOT, output_of
from real_and_made_files import for_each_file, kind_of, ncdump

DESCRIBE = str(ROOT / "examples" / "describe.m")


def escaped(line):
    data = line.encode("latin-1")
    controls = {i for i in controls_of(data) if data[i] > 127}
    return "".join(f"\\{byte:03o}" if i in controls else chr(byte) for i, byte in enumerate(data))


def same(described, dumped, path):
    dumped = [escaped(line) for line in dumped]
    difference = list(difflib.unified_diff(dumped, described, "ncdump", "describe.m", lineterm="", n=0))
    assert not difference, "\n".join([path] + difference)
    return len(described)


def check(path, folder):
    described = output_of(DESCRIBE, path, cwd="/")
    count = same(described, ncdump("-h", path)[:-1], path)
    stored = output_of(DESCRIBE, "-s", path, cwd="/")
    kind = kind_of(path)
    if kind == "cdf5":  # ncdump -hs fails on these
        ending = [] if any(re.search("(global|group) attributes:", line) for line in described) else \
            ["", "// global attributes:"]
        assert stored == described[:-1] + ending + ['\t\t:_Format = "cdf5" ;', "}"], stored[-4:]
    else:
        same(stored, ncdump("-hs", path)[:-1], path)

    # It is CDL that can be read.
    cdl = os.path.join(folder, "described.cdl")
    with open(cdl, "w", encoding="latin-1") as file:
        file.write("\n".join(described))
    subprocess.run([os.environ["NCGEN"], "-k", kind, "-o", os.path.join(folder, "again.nc"), cdl],
                   check=True)
    return f"{count} and {len(stored)} lines agree with ncdump"


for_each_file(check)
