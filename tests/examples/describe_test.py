# SPDX-License-Identifier: BSD-3-Clause
"""examples/describe.m against ncdump -h and ncdump -hs, line by line.

Parts of ncdump's output that no operation can read are removed first, and nothing else:
declarations of user-defined types, values of string and user-defined attributes, text behind a
NUL, the byte order (_Endianness), and the name of storage that is neither chunked nor contiguous.
Control characters beyond ASCII, which ncdump prints as they are, are escaped.
"""
import difflib
import os
import re
import subprocess

from control_characters import controls_of
from interpreter import ROOT, output_of
from real_and_made_files import for_each_file, kind_of, ncdump, without_types

DESCRIBE = str(ROOT / "examples" / "describe.m")
LEGEND = "// Not known: byte order, and filters other than deflate, shuffle and checksum."


def tellable(lines):
    """The part of ncdump's lines that the operations can read, with the rest in comments."""
    lines, types = without_types(lines)
    result, of_user_type = [], None
    for line in lines:
        indent, text = re.fullmatch(r"(\s*)(.*)", line).groups()
        first = text.split(" ", 1)[0]
        if not indent.endswith("\t\t"):
            of_user_type = first in types
        if re.search(r":_Endianness = ", text):
            continue
        if re.search(r':_Storage = "compact"', text):
            text = re.sub(r" = .*", " = ... ; (neither chunked nor contiguous)", text)
            text = "// " + text
        elif indent.endswith("\t\t") and first in types | {"string"}:
            text = re.sub(r" = .*", " = ... ; (values that cannot be read)", text)
            text = "// " + text
        elif of_user_type:
            note = "" if indent.endswith("\t\t") else " (a type that cannot be described)"
            text = "// " + text + note
        if first in types:
            text = text.replace(first, "user_type", 1)
        result.append(escaped(indent + text))
    return result


def escaped(line):
    data = line.encode("latin-1")
    controls = {i for i in controls_of(data) if data[i] > 127}
    return "".join(f"\\{byte:03o}" if i in controls else chr(byte) for i, byte in enumerate(data))


def without_notes(lines, dumped):
    """describe.m's lines with the notes on NUL checked and taken away; cuts ncdump's text there."""
    note = r" // (\d+) of (\d+) bytes: text can be read up to its first NUL only"
    result = []
    for i, line in enumerate(lines):
        line = re.sub(r"\buser_type_\d+\b", "user_type", line)
        found = re.search(note + "$", line)
        if found:
            line = line[:found.start()]
            dumped[i] = re.sub(r'\\000.*" ;$', '" ;', dumped[i])
            shown = len(re.sub(r"\\(\d{3}|.)", ".", re.search(r'= "(.*)" ;', line)[1]))
            assert shown == int(found[1]) < int(found[2]) - 1, line
        result.append(line)
    return result


def same(described, dumped, path):
    described = without_notes(described, dumped)
    difference = list(difflib.unified_diff(dumped, described, "ncdump", "describe.m", lineterm="", n=0))
    assert not difference, "\n".join([path] + difference)
    return len(described)


def check(path, folder):
    described = output_of(DESCRIBE, path, cwd="/")
    count = same(described, tellable(ncdump("-h", path))[:-1], path)
    stored = output_of(DESCRIBE, "-s", path, cwd="/")
    kind = kind_of(path)
    if kind == "cdf5":  # ncdump -hs fails on these
        ending = [] if any(re.search("(global|group) attributes:", line) for line in described) else \
            ["", "// global attributes:"]
        assert stored == described[:-1] + ending + ['\t\t:_Format = "cdf5" ;', "}"], stored[-4:]
    else:
        if kind.startswith("netCDF-4"):
            assert stored.pop() == LEGEND
        same(stored, tellable(ncdump("-hs", path))[:-1], path)

    # The comments must leave readable CDL.
    cdl = os.path.join(folder, "described.cdl")
    with open(cdl, "w", encoding="latin-1") as file:
        file.write("\n".join(described))
    subprocess.run([os.environ["NCGEN"], "-k", kind, "-o", os.path.join(folder, "again.nc"), cdl],
                   check=True)
    return f"{count} and {len(stored)} lines agree with ncdump"


for_each_file(check)
