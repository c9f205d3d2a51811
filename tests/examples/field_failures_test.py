# SPDX-License-Identifier: BSD-3-Clause
"""examples/field.m with a missing file, a missing variable and no argument: stderr says so, status 1."""
import os
import subprocess
import tempfile

from interpreter import FIELD, run


def check(arguments, expected, folder):
    done = run(FIELD, *arguments, cwd=folder)
    lines = done.stderr.decode().splitlines()
    assert done.returncode == 1 and not done.stdout and lines, f"{arguments}: {done}"
    assert lines[0].startswith(expected), f"{arguments}: {lines[0]!r} is not {expected!r}"


with tempfile.TemporaryDirectory() as folder:
    source = os.path.join(os.path.dirname(__file__), "numbers.cdl")
    subprocess.run([os.environ["NCGEN"], "-o", "numbers.nc", source], check=True, cwd=folder)
    check([], "field.m: usage: field.m FILE [VARIABLE ...]", folder)
    check(["nowhere.nc"], "field.m: open: 2: No such file or directory", folder)
    check(["numbers.nc", "nothing"], "field.m: inqVarID: NC_ENOTVAR", folder)
