# SPDX-License-Identifier: BSD-3-Clause
"""Follows the chapter on porting: its commands make a host out of the template, which passes the contract tests."""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
SOURCES = ("CMakeLists.txt", "CMakePresets.json", "VERSION", "bench", "cmake", "docs", "fuzz", "hosts", "include", "src", "tests")


def commands():
    """The example that is marked as commands, as a reader types it."""
    chapter = (ROOT / "docs" / "manual" / "porting.texi").read_text()
    [example] = re.findall(r"^@c commands\n@example\n(.*?)^@end example$", chapter, re.M | re.S)
    assert "@" not in example, "a command needs characters that texinfo writes differently"
    return example


def main():
    with tempfile.TemporaryDirectory() as folder:
        for name in SOURCES:
            copy = shutil.copytree if (ROOT / name).is_dir() else shutil.copy
            copy(ROOT / name, pathlib.Path(folder, name))
        # Compiled without optimisation, to take less time.
        done = subprocess.run(["sh", "-e"], input=commands(), cwd=folder, text=True, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, env={**os.environ, "CXXFLAGS": "-O0", "CMAKE_GENERATOR": "Ninja"})
    if done.returncode != 0 or "100% tests passed, 0 tests failed out of 1" not in done.stdout:
        sys.exit(f"{done.stdout}\nstatus {done.returncode}")


if __name__ == "__main__":
    main()
