#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Makes the manual: make_manual.py FOLDER

Leaves html/index.html and gridio.info in the folder, and gridio.pdf where texi2pdf and a TeX are installed.
"""
import functools
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

import make_operations
import operation_entries

ROOT = pathlib.Path(__file__).resolve().parent.parent
CHAPTERS = ROOT / "docs" / "manual"
ADVICE = ("docs/list_status_advice.cpp", "hosts/messages/status_advice.cpp")


@functools.lru_cache(maxsize=None)
def status_advice():
    """[(heading, [(status, advice), ...]), ...] as the error messages give it, printed by a program that is compiled with it."""
    with tempfile.TemporaryDirectory() as folder:
        program = os.path.join(folder, "list_status_advice")
        subprocess.run([os.environ.get("CXX", "c++"), "-std=c++17", "-I", ".", "-o", program, *ADVICE], cwd=ROOT, check=True)
        printed = subprocess.run([program], capture_output=True, text=True, check=True).stdout
    sections = []
    for line in printed.splitlines():
        status, tab, text = line.partition("\t")
        if tab:
            sections[-1][1].append((status, text))
        else:
            sections.append((status, []))
    return sections


def statuses_texinfo():
    lines = ["@c SPDX-License-Identifier: BSD-3-Clause"]
    for heading, rows in status_advice():
        lines += ["", f"@subheading {heading}", "@table @code"]
        for status, text in rows:
            lines += [f"@item {status}", f"@vindex {status}", make_operations.escaped(text)]
        lines.append("@end table")
    return "".join(line + "\n" for line in lines)


def write_sources(folder):
    """The whole texinfo source, including the generated parts."""
    shutil.copytree(CHAPTERS, folder, dirs_exist_ok=True)
    version = (ROOT / "VERSION").read_text().strip()
    (folder / "version.texi").write_text(f"@set VERSION {version}\n")
    (folder / "statuses.texi").write_text(statuses_texinfo(), encoding="utf-8")
    (folder / "operations.texi").write_text(
        make_operations.texinfo(operation_entries.read_all_entries()), encoding="utf-8")


def run(*command, folder):
    done = subprocess.run(command, cwd=folder, stdin=subprocess.DEVNULL, capture_output=True, text=True)
    if done.returncode != 0 or done.stderr:
        sys.exit(f"{' '.join(command)}:\n{done.stdout}{done.stderr}")


def make(target):
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch)
        write_sources(folder)
        run("makeinfo", "--html", "--split=chapter", "--css-include=manual.css", "-o", "html", "gridio.texi",
            folder=folder)
        run("makeinfo", "--no-split", "-o", "gridio.info", "gridio.texi", folder=folder)
        for picture in CHAPTERS.glob("*.svg"):
            shutil.copy(picture, folder / "html")
        made = ["html", "gridio.info"]
        if shutil.which("texi2pdf") and shutil.which("pdftex"):
            subprocess.run(["texi2pdf", "--batch", "--quiet", "--clean", "gridio.texi"], cwd=folder, check=True,
                           stdin=subprocess.DEVNULL, stdout=sys.stderr)
            made.append("gridio.pdf")

        target.mkdir(parents=True, exist_ok=True)
        for name in ("html", "gridio.info", "gridio.pdf"):
            old = target / name
            shutil.rmtree(old) if old.is_dir() else old.unlink(missing_ok=True)
        for name in made:
            shutil.move(folder / name, target / name)
    return [target / ("html/index.html" if name == "html" else name) for name in made]


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    for path in make(pathlib.Path(sys.argv[1])):
        print(path)
