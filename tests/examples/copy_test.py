# SPDX-License-Identifier: BSD-3-Clause
"""examples/copy.m: ncdump of the original and of the copy agree, values and storage.

Taken out of the original's dump first, and nothing else: what copy.m says it leaves out. From both
dumps of the storage: who wrote the file and how (_NCProperties, _SuperblockVersion), the byte order
(_Endianness) and the name of storage that is neither chunked nor contiguous.
"""
import difflib
import hashlib
import os
import re

from interpreter import ROOT, run
from real_and_made_files import for_each_file, kind_of, ncdump, without_types

COPY = str(ROOT / "examples" / "copy.m")


def copied(lines):
    """The lines of what is copied, the names of variables and the count of attributes that are not."""
    lines, types = without_types(lines)
    kept, variables, attributes, skipping = [], [], 0, None
    for line in lines:
        text = line.strip()
        first = text.split(" ", 1)[0]
        if skipping == "data":
            skipping = None if text.endswith(";") else "data"
            continue
        if skipping == "attributes":
            if re.match(r" *\t\t", line):
                continue
            skipping = None
        if re.match(r" *\t[^\t]", line) and first in types | {"string"}:
            variables.append(re.match(r"(?:\\.|[^( ])+", text[len(first) + 1:])[0])
            skipping = "attributes"
        elif re.match(r" *\t\t", line) and first in types:
            attributes += 1
        elif re.match(r" ", line) and first in variables and text.startswith(first + " ="):
            kept.pop()  # the empty line before
            skipping = None if text.endswith(";") else "data"
        else:
            kept.append(line)
    return kept, variables, attributes


def without_writer(lines):
    unknown = r':(_NCProperties|_SuperblockVersion|_Endianness|_Storage = "compact")'
    lines = [line for line in lines if not re.search(unknown, line)]
    return lines


def same(original, copy, path):
    difference = list(difflib.unified_diff(original[1:], copy[1:], path, "copy", lineterm="", n=0))
    assert not difference, "\n".join(difference[:100])
    return len(copy)


def digest(path):
    with open(path, "rb") as file:
        return hashlib.sha256(file.read()).hexdigest()


def check(path, folder):
    before = digest(path)
    copy = os.path.join(folder, "copy.nc")
    done = run(COPY, path, copy, cwd="/")
    assert digest(path) == before
    messages = done.stderr.decode("latin-1").splitlines()
    original, variables, attributes = copied(ncdump("-p", "9,17", path))
    assert done.returncode == (3 if variables or attributes else 0) and not done.stdout, done
    left_out = [m for m in messages if m.startswith("copy.m: not copied: ")]
    assert len(left_out) == len(variables) + attributes, messages
    for name in variables:
        assert any(f" variable {name}: no operation reads values of type " in m for m in left_out), name
    count = same(original, ncdump("-p", "9,17", copy), path)

    kind = kind_of(path)
    assert kind_of(copy) == kind
    if kind != "cdf5":  # ncdump -hs fails on these
        compact = sum(':_Storage = "compact"' in line for line in ncdump("-hs", path))
        assert len([m for m in messages if " is contiguous in the copy: " in m]) == compact
        original = without_writer(copied(ncdump("-hs", path))[0])
        stored = without_writer(ncdump("-hs", copy))
        for line in re.findall(r'(\w+):_Storage = "compact"', "\n".join(ncdump("-hs", path))):
            stored.remove(f'\t\t{line}:_Storage = "contiguous" ;')
        same(original, stored, path)
    os.remove(copy)
    return f"{count} lines agree, {len(left_out)} parts left out"


for_each_file(check)
