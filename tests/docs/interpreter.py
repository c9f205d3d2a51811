# SPDX-License-Identifier: BSD-3-Clause
"""Runs a script in the interpreter with the gridio of this build, and finds the entries."""
import os
import pathlib
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
INST = ROOT / "hosts" / "octave" / "inst"
sys.path.insert(0, str(ROOT / "docs"))


def run(*script):
    """What a script that must succeed prints to stdout."""
    command = [os.environ["OCTAVE_CLI"], "--norc", "--no-history", "--quiet",
               "--path", os.environ["GRIDIO_OCT_DIR"], "--path", str(INST), *map(str, script)]
    done = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True,
                          env={**os.environ, "OCTAVE_HISTFILE": os.devnull})
    assert done.returncode == 0 and not done.stderr, f"{script}: {done}"
    return done.stdout
