# SPDX-License-Identifier: BSD-3-Clause
"""examples/describe.m: what ncdump gets wrong, what ncgen cannot make, names of files, failures."""
import ctypes
import ctypes.util
import os
import shutil
import tempfile

from interpreter import ROOT, output_of, run
from real_and_made_files import HEADERS, ncdump, ncgen

DESCRIBE = str(ROOT / "examples" / "describe.m")


def check_paths(folder):
    """ncdump prints a wrong path for a dimension two groups up; ours must lead ncgen to the same file."""
    made = os.path.join(folder, "paths.nc")
    ncgen(HEADERS / "paths.cdl", made, "netCDF-4")
    described = output_of(DESCRIBE, made, cwd="/")
    assert "      \tint q(/x, /a\\ b/x, x, /y, y) ;" in described, described
    again = os.path.join(folder, "again.cdl")
    with open(again, "w", encoding="latin-1") as file:
        file.write("\n".join(described))
    ncgen(again, os.path.join(folder, "paths_again.nc"), "netCDF-4")
    assert ncdump(made)[1:] == ncdump(os.path.join(folder, "paths_again.nc"))[1:]


def check_empty_attribute(folder):
    made = os.path.join(folder, "9 empty.attributes.nc").encode()
    netcdf = ctypes.CDLL(ctypes.util.find_library("netcdf"))
    ncid = ctypes.c_int()
    for xtype in (5, 6):  # made in both classic and netCDF-4
        assert netcdf.nc_create(made, 0x1000 if xtype == 5 else 0, ctypes.byref(ncid)) == 0
        assert netcdf.nc_put_att(ncid, -1, b"nothing", xtype, ctypes.c_size_t(0), None) == 0
        assert netcdf.nc_close(ncid) == 0
        described = output_of(DESCRIBE, made.decode(), cwd="/")
        assert described == ["netcdf \\9\\ empty.attributes {", "", "// global attributes:",
                             '\t\t:nothing = "" ;', "}"], described
        assert described == ncdump("-h", made)[:-1]


def check_failure(arguments, expected, folder):
    done = run(DESCRIBE, *arguments, cwd=folder)
    lines = done.stderr.decode().splitlines()
    assert done.returncode == 1 and not done.stdout, f"{arguments}: {done}"
    assert lines[0].startswith("describe.m: " + expected), f"{arguments}: {lines}"


with tempfile.TemporaryDirectory() as folder:
    check_paths(folder)
    check_empty_attribute(folder)
    check_failure([], "usage: describe.m FILE [-s]", folder)
    check_failure(["paths.nc", "again.nc"], "usage: describe.m FILE [-s]", folder)
    check_failure(["nowhere.nc"], "open: ", folder)
    shutil.copy(HEADERS / "paths.cdl", folder)
    check_failure(["paths.cdl"], "open: NC_ENOTNC", folder)
