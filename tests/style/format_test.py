# SPDX-License-Identifier: BSD-3-Clause
"""Every C++ source is as clang-format leaves it: format_test.py CLANG_FORMAT. "./gridio format" formats them."""
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDERS = ("bench", "docs", "fuzz", "hosts", "include", "src", "tests")


def sources():
    return sorted(path for folder in FOLDERS for path in (ROOT / folder).rglob("*") if path.suffix in (".h", ".cpp", ".cc"))


def main(clang_format):
    files = sources()
    assert len(files) > 400, "the sources were not found"
    done = subprocess.run([clang_format, "--style=file", "--dry-run", "--Werror", *files], cwd=ROOT,
                          capture_output=True, text=True)
    if done.returncode != 0:
        sys.exit(f"{done.stderr}\nrun ./gridio format")


if __name__ == "__main__":
    main(sys.argv[1])
