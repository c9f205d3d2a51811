# SPDX-License-Identifier: BSD-3-Clause
"""examples/describe.m: cases where ncdump is wrong or ncgen cannot make the file, names of files, control
characters, failures."""
import ctypes
import ctypes.util
import os
import random
import re
import shutil
import tempfile

from control_characters import controls_of
from interpreter import ROOT, output_of, run
from real_and_made_files import HEADERS, ncdump, ncgen

DESCRIBE = str(ROOT / "examples" / "describe.m")
netcdf = ctypes.CDLL(ctypes.util.find_library("netcdf"))


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
    ncid = ctypes.c_int()
    for xtype in (5, 6):  # made in both classic and netCDF-4
        assert netcdf.nc_create(made, 0x1000 if xtype == 5 else 0, ctypes.byref(ncid)) == 0
        assert netcdf.nc_put_att(ncid, -1, b"nothing", xtype, ctypes.c_size_t(0), None) == 0
        assert netcdf.nc_close(ncid) == 0
        described = output_of(DESCRIBE, made.decode(), cwd="/")
        assert described == ["netcdf \\9\\ empty.attributes {", "", "// global attributes:",
                             '\t\t:nothing = "" ;', "}"], described
        assert described == ncdump("-h", made)[:-1]


def in_cdl(data):
    named = {8: "b", 9: "t", 10: "n", 11: "v", 12: "f", 13: "r", 34: '"', 39: "'", 92: "\\"}
    controls = controls_of(data)
    return "".join("\\" + named[byte] if byte in named else f"\\{byte:03o}" if i in controls else chr(byte)
                   for i, byte in enumerate(data))


def assert_harmless(lines):
    data = "\n".join(lines).encode("latin-1")
    bad = {data[i] for i in controls_of(data)} - {9, 10}
    assert not bad, (bad, lines)


def put_text(ncid, name, data):
    assert netcdf.nc_put_att_text(ncid, -1, name, ctypes.c_size_t(len(data)), data) == 0


def check_texts_with_control_characters(folder):
    draw = random.Random(1)
    kinds = [bytes([byte]) for byte in b"\x1b\x9b\xc2\x80\x9f\xa0\xbf\xc0\xe0\xed\xef\xf0\xf4\xff\x7f\x01\t'\\z"]
    kinds += [character.encode() for character in "\x9b\x85é€😀"]
    texts = [b"x\x1b[0m", "x\x9b31m".encode(), b"\x9b31m", b"\x93quoted\x94", "Zürich, 20 °C".encode()]
    texts += [b"".join(draw.choices(kinds, k=draw.randint(1, 12))) for _ in range(500)]
    made = os.path.join(folder, "texts.nc").encode()
    ncid = ctypes.c_int()
    assert netcdf.nc_create(made, 0x1000, ctypes.byref(ncid)) == 0
    for i, text in enumerate(texts):
        put_text(ncid, b"a%d" % i, text)
    assert netcdf.nc_close(ncid) == 0
    described = output_of(DESCRIBE, made.decode(), cwd="/")
    assert described[3:-1] == [f'\t\t:a{i} = "{in_cdl(text)}" ;' for i, text in enumerate(texts)]
    assert_harmless(described)
    # The escaped text is still the same.
    cdl = os.path.join(folder, "texts.cdl")
    with open(cdl, "w", encoding="latin-1") as file:
        file.write("\n".join(described))
    ncgen(cdl, os.path.join(folder, "texts_again.nc"), "netCDF-4")
    assert ncdump("-h", made.decode())[1:] == ncdump("-h", os.path.join(folder, "texts_again.nc"))[1:]


def check_names_with_control_characters(folder):
    """The library refuses names with ASCII control characters, but reads them."""
    made = os.path.join(folder, "names.nc")
    ncid, ids = ctypes.c_int(), [ctypes.c_int() for _ in range(3)]
    assert netcdf.nc_create(made.encode(), 0, ctypes.byref(ncid)) == 0
    assert netcdf.nc_def_dim(ncid, b"esc_[31m", ctypes.c_size_t(3), ctypes.byref(ids[0])) == 0
    assert netcdf.nc_def_dim(ncid, "c1\x9b31m".encode(), ctypes.c_size_t(4), ctypes.byref(ids[1])) == 0
    assert netcdf.nc_def_var(ncid, "é\x85".encode(), 4, 1, ctypes.byref(ids[1]), ctypes.byref(ids[2])) == 0
    put_text(ncid, b"del_", b"t")
    assert netcdf.nc_def_dim(ncid, b"raw_31m", ctypes.c_size_t(5), ctypes.byref(ids[0])) == 0
    assert netcdf.nc_close(ncid) == 0
    with open(made, "rb") as file:
        data = file.read()
    for old, new in ((b"esc_", b"esc\x1b"), (b"del_", b"del\x7f"), (b"raw_", b"raw\x9b")):
        assert data.count(old) == 1
        data = data.replace(old, new)
    with open(made, "wb") as file:
        file.write(data)
    described = output_of(DESCRIBE, made, cwd="/")
    assert described == [
        "netcdf names {", "dimensions:", "\tesc\\%1b\\[31m = 3 ;", "\tc1\\%c2\\%9b31m = 4 ;",
        "\traw\\%9b31m = 5 ;", "variables:",
        "\tint \xc3\xa9\\%c2\\%85(c1\\%c2\\%9b31m) ;", "", "// global attributes:",
        '\t\t:del\\%7f = "t" ;', "}"], described
    assert_harmless(described)
    # As ncdump, except for C1, which it prints unescaped.
    dumped = "\n".join(ncdump("-h", made)[:-1])
    dumped = re.sub("(\xc2)?[\x80-\x9f]", lambda c: "".join(f"\\%{ord(b):02x}" for b in c[0]), dumped)
    assert dumped == "\n".join(described), dumped


def check_failure(arguments, expected, folder):
    done = run(DESCRIBE, *arguments, cwd=folder)
    lines = done.stderr.decode().splitlines()
    assert done.returncode == 1 and not done.stdout, f"{arguments}: {done}"
    assert lines[0].startswith("describe.m: " + expected), f"{arguments}: {lines}"


with tempfile.TemporaryDirectory() as folder:
    check_paths(folder)
    check_empty_attribute(folder)
    check_texts_with_control_characters(folder)
    check_names_with_control_characters(folder)
    check_failure([], "usage: describe.m FILE [-s]", folder)
    check_failure(["paths.nc", "again.nc"], "usage: describe.m FILE [-s]", folder)
    check_failure(["nowhere.nc"], "open: ", folder)
    shutil.copy(HEADERS / "paths.cdl", folder)
    check_failure(["paths.cdl"], "open: NC_ENOTNC", folder)
