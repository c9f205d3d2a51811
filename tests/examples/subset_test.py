# SPDX-License-Identifier: BSD-3-Clause
"""examples/subset.m: compares its pictures, pixel by pixel, with the values that ncdump prints.

subset_test.py          on a small made file
subset_test.py --real   on fields of the real files
"""
import os
import pathlib
import re
import sys
import tempfile

from drawn_fields import Fields, along, check_axes, check_cells, region
from interpreter import ROOT, output_of, run
from picture import read_png, read_text
from real_and_made_files import ncgen, real_files

SUBSET = str(ROOT / "examples" / "subset.m")
MADE = pathlib.Path(__file__).resolve().parent / "pictures" / "fields.cdl"


def check(path, file, name, folder, *arguments, group=""):
    png = pathlib.Path(folder) / "picture.png"
    lines = output_of(SUBSET, path, group + name, str(png), *arguments, cwd="/")
    dims = file.by_name[name].dimensions[::-1]
    parts = [[int(n) for n in text.split(",")] for text in arguments]
    start = parts[0] if parts else [0] * len(dims)
    count = parts[1] if parts else [dims[0].length, dims[1].length] + [1] * (len(dims) - 2)
    stride = parts[2] if len(parts) > 2 else [1] * len(dims)
    rows, drawn, others = region(file, name, start, count, stride)
    x_label, x_values = along(file, *drawn[0])
    y_label, y_values = along(file, *drawn[1])
    if y_values[0] > y_values[-1]:
        y_values, rows = y_values[::-1], rows[::-1]
    if x_values[0] > x_values[-1]:
        x_values, rows = x_values[::-1], [row[::-1] for row in rows]

    numbers = list(map(int, re.fullmatch(
        r"cells of (\d+) x (\d+) pixels from column (\d+), row (\d+) on; colour scale from column (\d+) on",
        lines[1]).groups()))
    layout = (numbers[2], numbers[3], numbers[0], numbers[1], numbers[4])
    picture = read_png(png)
    known = check_cells(picture, rows, layout)
    check_axes(picture, rows, layout, x_values, y_values)
    size = f"{len(rows[0])} x {len(rows)} values"
    assert size in lines[0] and lines[0].endswith(f", {len(rows[0]) * len(rows) - known} without value")

    left, top, width = layout[0], layout[1], layout[2] * len(rows[0])
    title = (file.text(name, "long_name") or name) + file.units(name)
    if 12 * len(title) + left <= len(picture[0]):
        shown = read_text(picture, left, 24)  # which ends at two blanks
        assert shown == title.split("  ")[0], (shown, title)
    places = [along(file, d, index, 1, 1) for d, index in others]
    subtitle = ", ".join(f"{label}: {values[0]:.10g}" for label, values in places)
    assert read_text(picture, left, 50) == subtitle, (read_text(picture, left, 50), subtitle)
    label_left = round(left + width / 2 - 6 * len(x_label))
    middle = top + layout[3] * len(rows) + 46
    assert x_label in [read_text(picture, label_left + d, middle) for d in (-1, 0, 1)], x_label
    print(f"{os.path.basename(path)} {group}{name} {' '.join(arguments)}: {known} values agree with ncdump")
    return png.read_bytes()


def check_failure(folder, path, arguments, expected):
    done = run(SUBSET, *arguments, cwd=folder)
    assert done.returncode == 1 and not done.stdout, done
    assert done.stderr.decode().startswith("subset.m: " + expected), done
    assert os.listdir(folder) == [os.path.basename(path)], os.listdir(folder)


def check_made(folder):
    path = os.path.join(folder, "fields.nc")
    ncgen(MADE, path, "netCDF-4")
    count = "COUNT must have numbers from 1 to 4000"
    for arguments, expected in (
            ([], "usage: "),
            ([path, "packed"], "usage: "),
            ([path, "packed", "a.png", "0,0,0"], "usage: "),
            (["none.nc", "packed", "a.png"], "open: "),
            ([path, "none", "a.png"], "inqVarID: NC_ENOTVAR"),
            ([path, "none/packed", "a.png"], "inqNcid: NC_ENOGRP"),
            ([path, "line", "a.png"], "line has fewer than two dimensions"),
            ([path, "text", "a.png"], "text holds no numbers, but values of type char"),
            ([path, "words", "a.png"], "words holds no numbers, but values of type string"),
            ([path, "packed", "a.png", "0,0,x", "1,1,1"], "START must be whole numbers"),
            ([path, "packed", "a.png", "0,0,0", "2,2,2"], count),
            ([path, "packed", "a.png", "0,0,0", "0,2,1"], count),
            ([path, "packed", "a.png", "0,0,0", "5000,2,1"], count),
            ([path, "packed", "a.png", "0,0", "2,2"], 'START needs 3 elements, one for each dimension of variable "packed"'),
            ([path, "packed", "a.png", "0,0,0", "7,2,1"], "getVarsShort: NC_EEDGE")):
        check_failure(folder, path, arguments, expected)

    file = Fields(path)
    whole = check(path, file, "packed", folder)
    assert check(path, file, "packed", folder, group="/model/run/") == whole
    check(path, file, "packed", folder, "0,0,1", "6,4,1")
    check(path, file, "packed", folder, "1,0,2", "3,2,1", "2,3,1")
    check(path, file, "packed", folder, "0,2,0", "6,1,3")  # a section through time
    check(path, file, "packed", folder, "3,0,0", "1,4,2", "1,1,2")
    check(path, file, "packed", folder, "2,1,1", "3,1,1")  # a line is drawn with one row
    for name in ("unsigned", "ranged", "limited", "default_fill", "constant", "nothing"):
        check(path, file, name, folder)


def check_real(folder):
    fields = {"SMALL_total": [("tcco2", "0,0,7", "320,161,1"), ("tcco2", "3,80,0", "40,1,31", "8,1,1")],
              "nemo": [("tos", "10,20,0", "100,60,1", "3,4,1")],
              "OR_GLM": [("flash_extent_density", "0,0", "250,125", "2,4")],
              "mesh": [("cellsOnCell",)]}
    for path in real_files():
        cases = next((c for start, c in fields.items() if os.path.basename(path).startswith(start)), [])
        if cases:
            file = Fields(path)
            for case in cases:
                check(path, file, case[0], folder, *case[1:])


with tempfile.TemporaryDirectory() as folder:
    (check_real if sys.argv[1:] == ["--real"] else check_made)(folder)
