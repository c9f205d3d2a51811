# SPDX-License-Identifier: BSD-3-Clause
"""Runs scripts in the interpreter with the gridio of this build."""
import os
import pathlib
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]


def command(script, *args):
    return [os.environ["OCTAVE_CLI"], "--norc", "--no-history", "--quiet",
            "--path", str(ROOT / "hosts" / "octave" / "inst"), "--path", os.environ["GRIDIO_OCT_DIR"], script, *args]


def environment():
    return {**os.environ, "OCTAVE_HISTFILE": os.devnull}


def run(script, *args, cwd):
    """The finished process, its stdout and stderr as bytes."""
    return subprocess.run(command(script, *args), cwd=cwd, stdin=subprocess.DEVNULL,
                          capture_output=True, env=environment())


def output_of(script, *args, cwd):
    """What a script that must succeed prints, one text a line; bytes map to characters 0 to 255."""
    done = run(script, *args, cwd=cwd)
    assert done.returncode == 0 and not done.stderr, f"{script} {args}: {done}"
    return done.stdout.decode("latin-1").splitlines()
