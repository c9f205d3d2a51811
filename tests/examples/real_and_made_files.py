# SPDX-License-Identifier: BSD-3-Clause
"""The files for the tests of describe.m and copy.m, and ncdump's output for them."""
import glob
import os
import pathlib
import re
import subprocess
import sys
import tempfile

HEADERS = pathlib.Path(__file__).resolve().parent / "headers"
MADE = [("attributes", "classic"), ("attributes", "64-bit offset"), ("attributes", "cdf5"),
        ("attributes", "netCDF-4 classic model"), ("attributes", "netCDF-4"),
        ("wide_types", "cdf5"), ("wide_types", "netCDF-4"), ("storage", "netCDF-4"),
        ("groups", "netCDF-4")]


def ncgen(source, made, kind):
    subprocess.run([os.environ["NCGEN"], "-b", "-k", kind, "-o", made, source], check=True)


def ncdump(*args):
    """Lines of bytes as characters 0 to 255, so that no byte is lost or refused."""
    done = subprocess.run([os.environ["NCDUMP"], *args], capture_output=True)
    assert done.returncode == 0, done
    return done.stdout.decode("latin-1").split("\n")


def kind_of(path):
    return ncdump("-k", path)[0]


def without_types(lines):
    """The lines without the sections "types:", and the names that these declare."""
    kept, names, inside = [], set(), False
    for line in lines:
        if re.fullmatch(r" *types:", line):
            inside = True
        elif re.match(r" *(dimensions:|variables:|// \w+ attributes:|group: )|$", line):
            inside = False
        if not inside:
            kept.append(line)
        else:
            names.update(re.findall(r"(?:opaque\(\d+\)|\(\*\)|enum|compound) (\w+) [;{]", line))
    return kept, names


def made_files(folder):
    for name, kind in MADE:
        made = os.path.join(folder, f"{name} {kind}.nc")
        ncgen(HEADERS / f"{name}.cdl", made, kind)
        yield made


def real_files():
    if "GRIDIO_DATA" not in os.environ:
        print("GRIDIO_DATA names no folder of real files")
        sys.exit(77)
    files = sorted(glob.glob(os.path.join(os.environ["GRIDIO_DATA"], "*.nc")))
    assert files, "no *.nc in GRIDIO_DATA"
    return files


def for_each_file(check):
    """Runs check(path, folder) on the real files (argument --real) or else on the made ones."""
    with tempfile.TemporaryDirectory() as folder:
        for path in real_files() if sys.argv[1:] == ["--real"] else made_files(folder):
            print(f"{os.path.basename(path)}: {check(path, folder)}")
