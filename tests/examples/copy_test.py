# SPDX-License-Identifier: BSD-3-Clause
"""examples/copy.m: ncdump of the original and of the copy agree, values and storage.

Taken out of the dumps of the storage: who wrote the file and how (_NCProperties, _SuperblockVersion).
Null strings, which ncdump prints as NIL, become empty ones, and copy.m says so.
"""
import difflib
import hashlib
import os
import re

from interpreter import ROOT, run
from real_and_made_files import for_each_file, kind_of, ncdump

COPY = str(ROOT / "examples" / "copy.m")


def without_writer(lines):
    return [line for line in lines if not re.search(":(_NCProperties|_SuperblockVersion) = ", line)]


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
    messages = done.stderr.decode("latin-1")
    header, data, values = "\n".join(ncdump("-p", "9,17", path)).partition("\ndata:\n")
    nulls = len(re.findall(r"\bNIL\b", values))
    assert sum(map(int, re.findall("null strings became empty ones: (\\d+)", messages))) == nulls, messages
    assert done.returncode == (3 if nulls else 0) and not done.stdout, done
    original = (header + data + re.sub(r"\bNIL\b", '""', values)).split("\n")
    count = same(original, ncdump("-p", "9,17", copy), path)

    kind = kind_of(path)
    assert kind_of(copy) == kind
    if kind != "cdf5":  # ncdump -hs fails on these
        same(without_writer(ncdump("-hs", path)), without_writer(ncdump("-hs", copy)), path)
    os.remove(copy)
    return f"{count} lines agree"


for_each_file(check)
