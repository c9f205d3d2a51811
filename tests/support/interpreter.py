# SPDX-License-Identifier: BSD-3-Clause
"""Starts the interpreter with the gridio of this build, for every test that does.

A test has OCTAVE_CLI and GRIDIO_OCT_DIR in its environment. As a program, interpreter.py [--path FOLDER]... SCRIPT ARGUMENTS...
runs a script in a folder and with a home of its own, and ends with its status.
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
INST = ROOT / "hosts" / "octave" / "inst"
FIELD = str(ROOT / "examples" / "field.m")

# No start-up file of the user's is read, and no history.
OPTIONS = ("--norc", "--no-history", "--quiet")


def release():
    """The first number of the interpreter's version."""
    said = subprocess.run([os.environ.get("OCTAVE_CLI", "octave-cli"), "--version"], capture_output=True, text=True, check=True)
    return int(re.search(r"version (\d+)", said.stdout)[1])


def oct_folder():
    return os.path.abspath(os.environ["GRIDIO_OCT_DIR"])


def command(script, *args, folders=None, options=OPTIONS):
    """How to run a script with these folders on the load path; by default those of gridio."""
    paths = [word for folder in folders or (oct_folder(), INST) for word in ("--path", str(folder))]
    return [os.environ.get("OCTAVE_CLI", "octave-cli"), *options, *paths, *([str(script)] if script else []), *map(str, args)]


def environment(home=None):
    """With a home of its own if one is given, and no proxy between the library and the loopback address."""
    own = {"HOME": str(home), "TMPDIR": str(home), "OCTAVE_HISTFILE": os.path.join(home, "history")} if home else {}
    return {**os.environ, "OCTAVE_HISTFILE": os.devnull, "http_proxy": "", "HTTP_PROXY": "", "no_proxy": "*", **own}


def run(script, *args, cwd=None, folders=None, **options):
    """The finished process, its stdout and stderr as bytes unless the options say otherwise."""
    return subprocess.run(command(script, *args, folders=folders), cwd=cwd, stdin=subprocess.DEVNULL, capture_output=True,
                          env=environment(), **options)


def run_text(code, folder, **options):
    """The finished process of a script that is written into that folder and has its home there."""
    pathlib.Path(folder, "script.m").write_text("1;\n" + code)
    return subprocess.run(command("script.m"), cwd=folder, stdin=subprocess.DEVNULL, env=environment(folder), text=True,
                          timeout=600, **options)


def output_of(script, *args, cwd):
    """What a script that must succeed prints, one text a line; bytes map to characters 0 to 255."""
    done = run(script, *args, cwd=cwd)
    assert done.returncode == 0 and not done.stderr, f"{script} {args}: {done}"
    return done.stdout.decode("latin-1").splitlines()


def text_of(*script):
    """What a script that must succeed prints, with the functions of the package on the load path."""
    done = run(*script, folders=(oct_folder(), INST), text=True)
    assert done.returncode == 0 and not done.stderr, f"{script}: {done}"
    return done.stdout


def session(test, code, *arguments, folders=None, **options):
    """What a session that must succeed prints to both channels, in a folder of its own."""
    folder = tempfile.TemporaryDirectory()
    test.addCleanup(folder.cleanup)
    script = pathlib.Path(folder.name, "script.m")
    script.write_text("1;\n" + code)
    done = subprocess.run(command(script, *arguments, folders=folders or (oct_folder(), INST)), cwd=folder.name, text=True,
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=120,
                          env=environment(folder.name), **options)
    test.assertEqual(done.returncode, 0, done.stdout)
    return done.stdout


def main(words):
    folders = []
    while words[0] == "--path":
        folders.append(words[1])
        words = words[2:]
    with tempfile.TemporaryDirectory() as home:
        done = subprocess.run(command(*words, folders=folders), cwd=home, stdin=subprocess.DEVNULL, env=environment(home))
    return done.returncode if done.returncode >= 0 else 128 - done.returncode


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
