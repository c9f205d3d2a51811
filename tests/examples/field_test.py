# SPDX-License-Identifier: BSD-3-Clause
"""examples/field.m against ncdump: dimensions, variables and every variable's statistics.

field_test.py FILE.cdl ...   on files made from these texts by ncgen
field_test.py --real         on every file of the folder GRIDIO_DATA
"""
import glob
import math
import os
import re
import subprocess
import sys
import tempfile
from fractions import Fraction

from interpreter import FIELD, output_of
from ncdump_file import File, as_float32

FORMATS = {"classic": "classic", "64-bit offset": "64-bit offset", "netCDF-4": "netCDF-4",
           "netCDF-4 classic model": "netCDF-4 classic model",
           "cdf5": "a format without a name here (such as CDF-5)"}


def table(lines, heading):
    """The rows below the line that begins with this heading, split at two blanks."""
    start = next((i for i, line in enumerate(lines) if re.split(" {2,}", line)[:2] == heading), None)
    if start is None:
        return []
    end = start + 1
    while end < len(lines) and lines[end] and "  " in lines[end]:
        end += 1
    return [re.split(" {2,}", line) for line in lines[start + 1:end]]


def same(got, expected, what):
    assert got == expected, f"{what}: field.m says {got!r}, ncdump {expected!r}"


def check_listing(path, file):
    lines = output_of(FIELD, path, cwd="/")
    same(lines[0].encode("latin-1"), path.encode(), "file")
    same(lines[1], FORMATS[file.kind], "format")
    same(table(lines, ["dimension", "length"]),
         [[d.name, str(d.length)] + ["unlimited"] * d.unlimited for d in file.dimensions],
         "dimensions")

    expected = []
    for variable in file.variables:
        dims = variable.dimensions[::-1]
        shape = " x ".join(str(d.length) for d in dims) or "scalar"
        known = variable.host_class() or variable.type == "string"
        expected.append([variable.name, variable.type if known else "user type", shape]
                        + [", ".join(d.name for d in dims)] * bool(dims))
    got = table(lines, ["variable", "type"])
    for row in got:
        row[1] = re.sub(r"^(user type) \d+$", r"\1", row[1])
    same(got, expected, "variables")
    if not file.variables:
        assert any(line.startswith("No variables in the root group") for line in lines), lines


def octave_size(variable):
    lengths = [d.length for d in reversed(variable.dimensions)]
    if 0 in lengths:
        return "0 x 0"  # a variable without values is read as the empty array
    lengths += [1] * (2 - len(lengths))
    while len(lengths) > 2 and lengths[-1] == 1:
        lengths.pop()
    return " x ".join(map(str, lengths))


def mean(numbers):
    """The exact mean, as a Fraction; the float sum if that is not finite."""
    if not all(map(math.isfinite, numbers)):
        return sum(numbers)  # an infinity, or NaN when there is one of each sign
    if isinstance(numbers[0], int):
        return Fraction(sum(numbers), len(numbers))
    try:
        return Fraction(math.fsum(numbers)) / len(numbers)
    except OverflowError:
        return sum(map(Fraction, numbers)) / len(numbers)


def check_numbers(row, variable):
    known = [v for v in variable.values if v == v]
    minimum, maximum, average, nan_count = row[3:]
    if not variable.values:
        same(row[3:], ["-"] * 4, variable.name)
        return
    same(nan_count, str(len(variable.values) - len(known)), f"NaN in {variable.name}")
    if not known:
        same(row[3:6], ["-"] * 3, variable.name)
        return
    read = {"float": lambda t: as_float32(float(t)), "double": float}.get(variable.type, int)
    same(read(minimum), min(known), f"minimum of {variable.name}")
    same(read(maximum), max(known), f"maximum of {variable.name}")
    expected = mean(known)
    if not math.isfinite(expected):
        same(average, str(expected).replace("inf", "Inf").replace("nan", "NaN"),
             f"mean of {variable.name}")
        return
    # Ten digits are printed; a sum of doubles also loses what cancels out.
    error = abs(Fraction(average) - expected)
    limit = abs(expected) / 10**9 + Fraction(max(map(abs, known))) / 10**15
    assert error <= limit, f"mean of {variable.name}: field.m says {average}, ncdump {expected}"


def first_line(variable):
    line = variable.values[0].replace("\0", " ").rstrip(" ")
    return re.sub(r"[\0-\x1f\x7f]", "?", line)


def check_statistics(path, file):
    lines = output_of(FIELD, path, *(v.name for v in file.variables), cwd="/")
    rows = {row[0]: row for row in table(lines, ["variable", "size"])}
    remarks = [line for line in lines if " begins " in line or " cannot be read: " in line]
    for variable in file.variables:
        remark = next((r for r in remarks if r.startswith(variable.name + " ")), None)
        if not variable.host_class():
            assert re.search(" no operation reads values of type (string|user type)", remark), remark
            assert variable.name not in rows, rows[variable.name]
            continue
        row = rows[variable.name]
        same(row[1:3], [octave_size(variable), variable.host_class()], variable.name)
        if variable.type != "char":
            check_numbers(row, variable)
        elif variable.values:
            same(remark, f'{variable.name} begins "{first_line(variable)}"', "text")
    return len(file.variables)


def check(path):
    file = File(path)
    check_listing(path, file)
    if file.variables:
        check_statistics(path, file)
    print(f"{os.path.basename(path)}: {len(file.dimensions)} dimensions, "
          f"{len(file.variables)} variables agree with ncdump")


def main():
    if sys.argv[1:] != ["--real"]:
        with tempfile.TemporaryDirectory() as folder:
            for source in sys.argv[1:]:
                made = os.path.join(folder, os.path.basename(source)[:-4] + ".nc")
                subprocess.run([os.environ["NCGEN"], "-o", made, source], check=True)
                check(made)
        return
    if "GRIDIO_DATA" not in os.environ:
        print("GRIDIO_DATA names no folder of real files")
        sys.exit(77)
    files = sorted(glob.glob(os.path.join(os.environ["GRIDIO_DATA"], "*.nc")))
    assert files, "no *.nc in GRIDIO_DATA"
    for path in files:
        check(path)


main()
