# SPDX-License-Identifier: BSD-3-Clause
"""Sessions of the interpreter with the gridio of this build."""
import os
import pathlib
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
INST = ROOT / "hosts" / "octave" / "inst"
FOLDERS = (os.environ["GRIDIO_OCT_DIR"], INST)


def own_environment(folder):
    """An environment without the user's settings, and without a proxy between the library and the loopback address."""
    return {**os.environ, "OCTAVE_HISTFILE": os.devnull, "HOME": folder, "TMPDIR": folder,
            "http_proxy": "", "HTTP_PROXY": "", "no_proxy": "*"}


def command_for(script, folders=FOLDERS):
    paths = [word for folder in folders for word in ("--path", str(folder))]
    return [os.environ["OCTAVE_CLI"], "--norc", "--no-history", "--quiet", *paths, script]


def session(test, code, *arguments, folders=FOLDERS, **options):
    """The output on both channels of a session that must succeed, in its own folder."""
    folder = tempfile.TemporaryDirectory()
    test.addCleanup(folder.cleanup)
    script = pathlib.Path(folder.name, "script.m")
    script.write_text("1;\n" + code)
    done = subprocess.run([*command_for(script, folders), *map(str, arguments)], cwd=folder.name, text=True,
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=120,
                          env=own_environment(folder.name), **options)
    test.assertEqual(done.returncode, 0, done.stdout)
    return done.stdout
