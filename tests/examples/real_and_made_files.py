# SPDX-License-Identifier: BSD-3-Clause
"""The files for the tests of describe.m and copy.m, and ncdump's output for them."""
import glob
import os
import pathlib
import subprocess
import sys
import tempfile

from library_release import library_release

HEADERS = pathlib.Path(__file__).resolve().parent / "headers"
MADE = [("attributes", "classic"), ("attributes", "64-bit offset"), ("attributes", "cdf5"),
        ("attributes", "netCDF-4 classic model"), ("attributes", "netCDF-4"),
        ("wide_types", "cdf5"), ("wide_types", "netCDF-4"), ("storage", "netCDF-4"),
        ("groups", "netCDF-4"), ("types", "netCDF-4")]


def ncgen(source, made, kind):
    subprocess.run([os.environ["NCGEN"], "-b", "-k", kind, "-o", made, source], check=True)


def ncdump(*args):
    """Lines of bytes as characters 0 to 255, so that no byte is lost or refused."""
    done = subprocess.run([os.environ["NCDUMP"], *args], capture_output=True)
    assert done.returncode == 0, done
    return done.stdout.decode("latin-1").split("\n")


def source(name, folder):
    """The CDL of a name, without the lines that crash the library of this machine (docs/limits.md) and therefore ncgen."""
    lines = (HEADERS / f"{name}.cdl").read_text().splitlines(keepends=True)
    path = pathlib.Path(folder, f"{name}.cdl")
    path.write_text("".join(l for l in lines if not l.rstrip().endswith(f"// not with {library_release()}")))
    return path


def kind_of(path):
    return ncdump("-k", path)[0]


def made_files(folder):
    for name, kind in MADE:
        made = os.path.join(folder, f"{name} {kind}.nc")
        ncgen(source(name, folder), made, kind)
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
