# SPDX-License-Identifier: BSD-3-Clause
"""Decoded values of random variables against those of the Python binding: every type, every rule, alone and together.

More variables with DECODED_VARIABLES; another seed with DECODED_SEED.
"""
import os
import pathlib
import random
import tempfile
import unittest
import warnings

import interpreter
import netCDF4
import numpy

TYPES = ("i1", "u1", "i2", "u2", "i4", "u4", "i8", "u8", "f4", "f8")
COUNT = int(os.environ.get("DECODED_VARIABLES", "400"))
SEED = int(os.environ.get("DECODED_SEED", "13"))
LENGTH = 60
SCRIPT = r"""
ncid = gridio ("open", "made.nc", "nowrite");
d = gridio_native ("describe", ncid);
f = fopen ("decoded.bin", "w");
for varid = d.variables.varid'
  fwrite (f, gridio_native ("read", ncid, varid, 0, %d, 1, 31), "double");
  assert (isempty (gridio_native ("decoding", ncid, varid, 31).warnings));
endfor
fclose (f);
gridio ("close", ncid);
""" % LENGTH


def values_of(draw, kind, attributes):
    """Some of few values, so that attributes meet them, and the default fill value.

    Not where the binding minds it and CF does not, of unsigned bytes, nor where it misses it, of _Unsigned integers.
    """
    few = [0, 1, 2, 3, 5, 7, 100, 127]
    if kind[0] != "u":
        few += [-1, -2, -100]
    if kind[0] == "f":
        few += [0.5, float("nan"), float("inf")]
    if kind[1] != "1" and "_Unsigned" not in attributes:
        few.append(netCDF4.default_fillvals[kind])
    return numpy.array([draw.choice(few) for _ in range(LENGTH)], kind)


def attributes_of(draw, kind):
    """Attributes of the variable's own type, as CF wants them; scale and offset are doubles."""
    def own(low=-5, high=110):
        return numpy.array(draw.randrange(max(low, 0) if kind[0] == "u" else low, high), kind)

    def chance():
        return draw.random() < 0.3

    found = {}
    if chance():
        found["missing_value"] = numpy.array([own() for _ in range(draw.randrange(1, 4))], kind)
    unsigned = kind[0] == "i" and chance()
    if unsigned:
        found["_Unsigned"] = "true"
    low, high = own(0, 3), own(4, 110)
    match draw.randrange(8):
        case 0:
            found["valid_range"] = numpy.array([low, high], kind)
        case 1:
            found["valid_min"] = low
        case 2:
            found["valid_max"] = high
        case 3:
            found.update(valid_min=low, valid_max=high)
    if kind != "f4":  # the binding computes in the type of the values
        if chance():
            found["scale_factor"] = draw.choice((0.01, 2.0, -0.5))
        if chance():
            found["add_offset"] = draw.choice((273.15, -3.0))
    return found


def make(path, draw):
    made = []
    with netCDF4.Dataset(path, "w") as file:
        file.createDimension("x", LENGTH)
        for number in range(COUNT):
            kind = TYPES[number % len(TYPES)]
            fill = numpy.array(draw.randrange(0, 8), kind) if draw.random() < 0.3 else None
            variable = file.createVariable(f"v{number}", kind, ("x",), fill_value=fill)
            attributes = attributes_of(draw, kind)
            variable.setncatts(attributes)
            variable.set_auto_maskandscale(False)
            variable[:] = values_of(draw, kind, attributes)
            made.append((kind, fill, attributes))
    return made


def by_the_binding(variable):
    """None where it fails: with numpy 2 it cannot hold the negative fill value of an unsigned variable."""
    try:
        return numpy.ma.filled(variable[:].astype("f8"), numpy.nan)
    except TypeError as failure:
        assert "Cannot convert fill_value" in str(failure), failure
        return None


class Decoding(unittest.TestCase):
    def test_gives_the_values_of_the_python_binding(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "made.nc")
            made = make(path, random.Random(SEED))
            pathlib.Path(folder, "script.m").write_text(SCRIPT)
            interpreter.output_of("script.m", cwd=folder)
            ours = numpy.fromfile(pathlib.Path(folder, "decoded.bin")).reshape(COUNT, LENGTH)
            with netCDF4.Dataset(path) as file:
                decoded = [by_the_binding(file[f"v{number}"]) for number in range(COUNT)]
                self.assertGreater(sum(values is not None for values in decoded), 3 * COUNT // 4)
                for number, what in enumerate(made):
                    theirs = decoded[number]
                    if theirs is None:
                        continue
                    stored = file[f"v{number}"]
                    stored.set_auto_maskandscale(False)
                    with self.subTest(number=number, made=what, stored=stored[:].tolist()):
                        numpy.testing.assert_array_equal(ours[number], theirs)


if __name__ == "__main__":
    warnings.simplefilter("ignore", DeprecationWarning)  # of numpy, about what the binding does
    unittest.main(warnings="ignore")
