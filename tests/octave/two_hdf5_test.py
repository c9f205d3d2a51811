# SPDX-License-Identifier: BSD-3-Clause
"""A session in which a second HDF5 library is loaded, before that of the netCDF library: both are reported, and netCDF-4
files are written and read as ever."""
import os
import pathlib
import tempfile
import unittest
import unittest.mock

import interpreter

LIBRARIES = 'printf ("%s\\n", gridio_version ().hdf5_libraries{:});'
WORK = """
ncid = gridio ("create", "own.nc", "netcdf4");
x = gridio ("defDim", ncid, "x", 1e5);
v = gridio ("defVar", ncid, "v", gridio ("parameter", "NC_INT"), x);
gridio ("defVarChunking", ncid, v, gridio ("parameter", "NC_CHUNKED"), 1e4);
gridio ("defVarDeflate", ncid, v, true, true, 4);
gridio ("endDef", ncid);
values = int32 (mod ((1:1e5)' .^ 2, 1000));
gridio_any ("putVar", ncid, v, values);
assert (isequal (gridio_any ("getVar", ncid, v), values));
assert (isequal (gridio ("getVarInt", ncid, v), values));
gridio ("close", ncid);
ncid = gridio ("open", "own.nc", "nowrite");
assert (isequal (gridio_any ("getVar", ncid, v), values));
save -hdf5 octave.h5 values
assert (load ("octave.h5").values, values);
assert (isequal (gridio ("getVarInt", ncid, v), values));
gridio ("close", ncid);
"""


def copy_under_another_name(library, folder):
    """The dynamic linker takes libraries of one name for one, so the name inside is changed as well."""
    path = pathlib.Path(library)
    copy = folder / path.name.replace("hdf5", "hdf6", 1)
    copy.write_bytes(path.read_bytes().replace(path.name.encode(), copy.name.encode()))
    return copy


class TwoLibraries(unittest.TestCase):
    def test_are_reported_and_do_not_disturb_each_other(self):
        own, *others = interpreter.session(self, LIBRARIES).splitlines()
        with tempfile.TemporaryDirectory() as folder:
            second = copy_under_another_name(own, pathlib.Path(folder))
            with unittest.mock.patch.dict(os.environ, LD_PRELOAD=str(second)):
                found = interpreter.session(self, LIBRARIES + WORK).splitlines()
                report = interpreter.session(self, "gridio_version ()")
        self.assertEqual(set(found), {own, *others, str(second)})
        self.assertIn("also loaded: ", report)


if __name__ == "__main__":
    unittest.main()
