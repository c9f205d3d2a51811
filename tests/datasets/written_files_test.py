# SPDX-License-Identifier: BSD-3-Clause
"""What put, append, assignments and gridio_write leave in files, as ncdump, the Python binding, xarray, CDO and NCO read it."""
import datetime
import os
import pathlib
import re
import subprocess
import unittest

import netCDF4
import numpy
import xarray

from written_files import Written, cf_faults, octave

FIELD = """
lon = 0:5:355;  lat = -90:10:90;  t = datenum (2013, 1, 1:3);
sst = 20 * cosd (lat) .* ones (72, 1, 3) + reshape ([0 0.5 1], 1, 1, 3);  sst(1:9,3:5,:) = NaN;
out = gridio_dataset ("sst.nc", "new");
out.put ("lon", lon, "lon", "units", "degrees_east", "standard_name", "longitude");
out.put ("lat", lat, "lat", "units", "degrees_north", "standard_name", "latitude");
out.put ("time", t, "time", "units", "days since 2000-01-01", "standard_name", "time", "_Unlimited", true);
out.put ("sst", sst, {"lon", "lat", "time"}, "units", "degC", "standard_name", "sea_surface_temperature", ...
         "scale_factor", 0.01, "_Type", "short", "_DeflateLevel", 1);
clear out
"""


class Put(Written):
    def test_writes_what_other_readers_decode(self):
        self.assertEqual(self.run_script(FIELD), "")
        self.assertEqual(cf_faults(self.path("sst.nc")), [])
        header = self.ncdump("sst.nc", "-hs")
        for line in ("short sst(time, lat, lon) ;", "sst:_FillValue = -32767s ;", "sst:_DeflateLevel = 1 ;", 'sst:_Shuffle = "true" ;',
                     "time = UNLIMITED ; // (3 currently)", 'time:calendar = "standard" ;', ':Conventions = "CF-1.11" ;'):
            self.assertIn(line, header)
        with xarray.open_dataset(self.path("sst.nc")) as data:
            self.assertEqual(data.sst.dims, ("time", "lat", "lon"))
            self.assertEqual([str(t)[:10] for t in data.time.values], ["2013-01-01", "2013-01-02", "2013-01-03"])
            values = data.sst.values
        wanted = 20 * numpy.cos(numpy.radians(numpy.arange(-90, 91, 10)))[None, :, None] + numpy.array([0, 0.5, 1])[:, None, None] \
            + numpy.zeros((3, 19, 72))
        wanted[:, 2:5, :9] = numpy.nan
        numpy.testing.assert_allclose(values, wanted, atol=0.00501)
        cdo = subprocess.run(["cdo", "-s", "outputf,%.2f,1", "-fldmax", self.path("sst.nc")], capture_output=True, text=True, check=True)
        self.assertEqual(cdo.stdout.split(), ["20.00", "20.50", "21.00"])
        cdo = subprocess.run(["cdo", "-s", "showdate", self.path("sst.nc")], capture_output=True, text=True, check=True)
        self.assertEqual(cdo.stdout.split(), ["2013-01-01", "2013-01-02", "2013-01-03"])
        subprocess.run(["ncwa", "-O", "-y", "max", "-v", "sst", self.path("sst.nc"), self.path("most.nc")], check=True)
        with netCDF4.Dataset(self.path("most.nc")) as most:
            self.assertAlmostEqual(float(most["sst"][...]), 21, places=5)

    def test_stores_as_it_is_asked_to(self):
        self.run_script("""
out = gridio_dataset ("stored.nc", "new");
out.put ("a", ones (4, 6), {"x", "y"}, "_ChunkSizes", [2 3], "_Fletcher32", "true", "_Endianness", "big", "_Shuffle", true);
out.put ("b", [1 NaN 3], "z", "_FillValue", -9, "_Type", "int", "valid_range", [0 10]);
out.put ("c", uint8 ([0 200 255]), "z", "_Type", "byte", "_Unsigned", "true", "_FillValue", 255);
out.put ("names", {"Oslo", "K\\303\\270benhavn"}, "station");
out.put ("fixed", {"a"; "bcd"}, "station", "_Type", "char");
out.put ("crs", int32 (0), {}, "grid_mapping_name", "latitude_longitude", "sources", {"radar", "ship"});
out.put ("GRP/inner/v", single ([1 NaN]), "station");
out.put ("empty", zeros (4, 0), {"x", "record"}, "_Unlimited", "record");
""".replace("\\303\\270", "\u00f8"))
        header = self.ncdump("stored.nc", "-hs")
        for line in ("a:_ChunkSizes = 3, 2 ;", 'a:_Fletcher32 = "true" ;', 'a:_Endianness = "big" ;', 'a:_Shuffle = "true" ;',
                     "b:_FillValue = -9 ;", "b:valid_range = 0, 10 ;", "string names(station) ;", "char fixed(station, string3) ;",
                     'crs:grid_mapping_name = "latitude_longitude" ;', 'string crs:sources = "radar", "ship" ;',
                     "v:_FillValue = 9.96921e+36f ;", "record = UNLIMITED ; // (0 currently)", 'b:_Storage = "contiguous" ;'):
            self.assertIn(line, header)
        with netCDF4.Dataset(self.path("stored.nc")) as file:
            self.assertEqual(file["c"][:].tolist(), [0, 200, None])
            self.assertEqual(file["names"][:].tolist(), ["Oslo", "K\u00f8benhavn"])
            self.assertEqual(netCDF4.chartostring(file["fixed"][:]).tolist(), ["a", "bcd"])
            file.set_auto_mask(False)
            self.assertEqual(file["b"][:].tolist(), [1, -9, 3])

    def test_writes_every_format(self):
        for kind in ("classic", "64-bit offset", "cdf5", "netCDF-4", "netCDF-4 classic model"):
            name = f"{kind}.nc".replace(" ", "")
            said = self.run_script(f"""
out = gridio_dataset ("{name}", "new", "_Format", "{kind}");
out.put ("time", datenum (2001, 1:3, 1), "time", "units", "hours since 2001-01-01", "_Unlimited", true, "_Type", "int");
out.put ("v", [1 NaN 3], "time", "units", "m");
out.put ("name", {{"Oslo"; "Rome"}}, "station");
out.append ("time", "2001-04-01", "v", 4);
out.v.long_name = "a text that the header has not yet place for";
out.v(2) = 2;
""")
            self.assertEqual(said, "")
            self.assertEqual(self.ncdump(name, "-k").strip(), kind)
            self.assertEqual(cf_faults(self.path(name)), [])
            with netCDF4.Dataset(self.path(name)) as file:
                self.assertEqual(file["v"][:].tolist(), [1, 2, 3, 4])
                self.assertEqual(file["time"][:].tolist(), [0, 744, 1416, 2160])

    def test_chooses_chunks_that_suit(self):
        self.run_script("""
out = gridio_dataset ("chunks.nc", "new");
out.put ("time", 1:5, "time", "_Unlimited", true);
out.put ("map", zeros (1440, 721, 5, "single"), {"lon", "lat", "time"}, "_DeflateLevel", 1);
out.put ("cube", zeros (100, 200, 300, "single"), {"i", "j", "k"}, "_DeflateLevel", 1);
out.put ("plain", zeros (100, 200), {"i", "j"});
""")
        with netCDF4.Dataset(self.path("chunks.nc")) as file:
            self.assertEqual(file["time"].chunking(), [1024])
            self.assertEqual(file["plain"].chunking(), "contiguous")
            for name in ("map", "cube"):
                shape, chunks = file[name].shape, file[name].chunking()
                self.assertTrue(2 ** 17 <= numpy.prod(chunks) * 4 <= 2 ** 20, (name, chunks))
            self.assertEqual(file["map"].chunking()[0], 1)
            numbers = [-(-n // c) for n, c in zip(file["cube"].shape, file["cube"].chunking())]
            self.assertLessEqual(max(numbers), 2 * min(numbers))


class Refused(Written):
    CASES = (  # script, identifier, what the message holds
        ('out.put ("z", 1000, {}, "scale_factor", 0.01, "_Type", "short")', "doNotFit", "such as 1000.*-327.68 to 327.67"),
        ('out.put ("z", -327.67, {}, "scale_factor", 0.01)', "doNotFit", "fill value"),
        ('out.put ("z", Inf, {}, "add_offset", 1)', "doNotFit", "Inf"),
        ('out.put ("z", 1.5, {}, "_Type", "short")', "doNotFit", "1.5"),
        ('out.put ("z", 70000, {}, "_Type", "ushort")', "doNotFit", "70000"),
        ('out.put ("z", 1e300, {}, "_Type", "float")', "doNotFit", "1e.300"),
        ('out.put ("z", intmax ("int64"), {}, "_Type", "double")', "doNotFit", "double"),
        ('out.put ("w", [1 NaN], "w")', "missingCoordinate", "1 of them"),
        ('out.put ("z", ones (5, 1), "lon")', "shapeDoesNotFit", "5 values along 'lon'.*72"),
        ('out.put ("z", ones (72, 19, 3, 2), {"lon", "lat", "time"})', "shapeDoesNotFit", "72x19x3x2"),
        ('out.put ("z", zeros (0, 1), "q")', "emptyDimension", "_Unlimited"),
        ('out.put ("z", 1, {}, "_Type", "shart")', "badType", "shart.*ushort"),
        ('out.put ("z", 1i, {})', "badValues", "complex"),
        ('out.put ("sst", 1, {})', "variableExists", "sst"),
        ('out.put ("z", 1, {}, "_DeflateLevel", 10)', "badSetting", "0 to 9"),
        ('out.put ("z", 1, {}, "units")', "attributesNotInPairs", "pairs"),
        ('out.put ("z", 1, {}, "units", "m", "units", "s")', "attributeTwice", "twice"),
        ('out.put ("z", 1, {}, "flag_values", 1.5, "_Type", "byte")', "badAttribute", "byte"),
        ('out.put ("z", 1, {}, "scale_factor", "0.1")', "badAttribute", "scale_factor"),
        ('out.put ("z", 1, {}, "scale_factor", 0)', "badAttribute", "scale_factor"),
        ('out.put ("z", 1, {}, "_Format", "classic")', "badSetting", "netCDF-4"),
        ('out.put ("z", 1:3, {})', "badDimensions", "need names"),
        ('out.put ("z", 1, {}, "_DeflatLevel", 1)', "unknownSetting", "did you mean _DeflateLevel"),
        ('out.put ("z", datenum (2013, 2, 29.5) * [1 1], "z2", "units", "days since 2000-01-01", "_Type", "int")', "doNotFit", "int"),
        ('out.append ("sst", ones (72, 19))', "coordinateIsMissing", "'time'"),
        ('out.append ("time", t(1), "sst", ones (72, 18))', "shapeDoesNotFit", "72x19"),
        ('out.append ("time", t, "sst", ones (72, 19, 2))', "shapeDoesNotFit", "3 and 2"),
        ('out.append ("time", t(1), "sst", 400 * ones (72, 19))', "doNotFit", "400"),
        ('out.append ("lon", 3)', "notUnlimited", "lon"),
        ('out.append ("tim", 3)', "unknownName", "did you mean time"),
        ('out.sst(80,1,1) = 1', "badIndex", "72 values along 'lon'.*80"),
        ('out.sst(:,:,1) = ones (19, 72)', "shapeDoesNotFit", "19x72.*72x19"),
        ('out.sst(1,1) = 1', "badIndex", "3 dimensions"),
        ('out.sst = 1', "badName", r"ds.sst\(:\)"),
        ('out.sst._DeflateLevel = 3', "settingIsLate", "put"),
        ('out.sst.units = {}', "badAttribute", "units"),
        ('out.put ("z", ones (3, 4), {"i", "j"}, "_ChunkSizes", 3)', "badSetting", "2 dimensions, and has 1"),
        ('gridio_dataset ("sst.nc", "new");', "exists", "replace"),
        ('gridio_dataset ("other.nc", "new", "_Format", "hdf");', "badFormat", "64-bit offset"),
        ('gridio_dataset ("copy.nc").put ("z", 1, {})', "notWritable", "write"),
        ('copy = gridio_dataset ("copy.nc"); copy.sst(1,1,1) = 1', "notWritable", "write"),
    )

    def test_names_the_cure_and_leaves_the_file_alone(self):
        tries = "".join(f"""
try
  {script}; printf ("{i} no error\\n");
catch failure
  printf ("{i} %s %s\\n", failure.identifier, strrep (failure.message, "\\n", " "));
end""" for i, (script, _, _) in enumerate(self.CASES))
        self.run_script(FIELD)
        before = self.ncdump("sst.nc", "-s")
        pathlib.Path(self.path("copy.nc")).write_bytes(pathlib.Path(self.path("sst.nc")).read_bytes())
        said = self.run_script('t = datenum (2013, 1, 1:3);\nout = gridio_dataset ("sst.nc", "write");' + tries + "\nclear out\n")
        lines = {int(line.split()[0]): line for line in said.splitlines() if re.match(r"\d+ ", line)}
        for i, (script, identifier, pattern) in enumerate(self.CASES):
            with self.subTest(script):
                self.assertRegex(lines[i], rf"^{i} Ovard:gridio:dataset:{identifier} ")
                self.assertRegex(lines[i], pattern)
        self.assertEqual(self.ncdump("sst.nc", "-s"), before)
        self.assertFalse(os.path.exists(self.path("other.nc")))


class Changed(Written):
    def test_appends_and_assigns_decoded_values(self):
        self.run_script(FIELD + """
out = gridio_dataset ("sst.nc", "write");
out.append ("time", datenum (2013, 1, 4, 12, 0, 0), "sst", 7 * ones (72, 19));
out.sst(:,:,3) = 5;
out.sst(1:2:9,end,end) = [1 2 NaN 4 5];
out.sst([70 2 3],1,2) = [70 2 3];
out.sst.raw(5,5,1) = 1234;
out.sst.units = "K";
out.sst.standard_name = [];
out.title = "SST";
""")
        with netCDF4.Dataset(self.path("sst.nc")) as file:
            sst = file["sst"]
            self.assertEqual(netCDF4.num2date(file["time"][3], file["time"].units), datetime.datetime(2013, 1, 4, 12))
            self.assertTrue((sst[2] == 5).all() and (sst[3, :18] == 7).all())
            self.assertEqual(sst[3, 18, :10].tolist(), [1, 7, 2, 7, None, 7, 4, 7, 5, 7])
            self.assertEqual(sst[1, 0, [69, 1, 2]].tolist(), [70, 2, 3])
            self.assertAlmostEqual(float(sst[0, 4, 4]), 12.34)
            self.assertEqual((sst.units, file.title, "standard_name" in sst.ncattrs()), ("K", "SST", False))
        self.assertEqual(cf_faults(self.path("sst.nc")), [])

    def test_writes_texts_where_they_fit(self):
        self.run_script("""
out = gridio_dataset ("texts.nc", "new");
out.put ("history", "by hand", {});
out.put ("names", {"Oslo"; "Rome"; "Bonn"}, "station");
out.put ("codes", {"OSL"; "ROM"; "BON"}, "station", "_Type", "char");
out.put ("flags", uint8 ([1 2 3]), "station");
out.names(2) = "Paris";
out.names([1 3]) = {"Lima"; "Kiev"};
out.codes(2) = "PA";
try
  out.flags(2) = NaN;
catch failure
  disp (failure.message);
end
out.flags(3) = 7;
""")
        with netCDF4.Dataset(self.path("texts.nc")) as file:
            self.assertEqual(file["history"][...], "by hand")
            self.assertEqual(file["names"][:].tolist(), ["Lima", "Paris", "Kiev"])
            self.assertEqual(netCDF4.chartostring(file["codes"][:]).tolist(), ["OSL", "PA", "BON"])
            self.assertEqual(file["flags"][:].tolist(), [1, 2, 7])

    def test_replaces_only_by_a_whole_file(self):
        status, said = octave(self.folder, """
function write (fails)
  out = gridio_dataset ("x.nc", "replace");
  out.put ("new", 2, {});
  if (fails)
    error ("Own:failure", "fails on purpose");
  end
end
gridio_write ("x.nc", "old", 1, {});
try
  write (true);
catch failure
  disp (failure.message);
end
ds = gridio_dataset ("x.nc");
disp (strjoin (ds.variables ()', ","));
clear ds
write (false);
ds = gridio_dataset ("x.nc");
disp (strjoin (ds.variables ()', ","));
clear ds
out = gridio_dataset ("x.nc", "replace");
out.put ("third", 3, {});
error ("the end");
""")
        self.assertEqual(status, 1, said)
        self.assertRegex(said, r'(?s)"x.nc" was not replaced, because an error.*fails on purpose\nold\nnew\n.*the end.*not replaced')
        self.assertIn("double new", self.ncdump("x.nc", "-h"))
        beside = [name for name in os.listdir(self.folder) if name.startswith(".x.nc.")]
        self.assertEqual(len(beside), 2, beside)
        self.assertIn("third", "".join(self.ncdump(name, "-h") for name in beside))

    def test_one_liner_builds_a_file(self):
        self.run_script("""
gridio_write ("one.nc", "lon", 0:90:270, "lon", "units", "degrees_east");
gridio_write ("one.nc", "v", [1 NaN 3 4], "lon", "units", "m");
""")
        self.assertEqual(cf_faults(self.path("one.nc")), [])
        with xarray.open_dataset(self.path("one.nc")) as data:
            numpy.testing.assert_array_equal(data.v.values, [1, numpy.nan, 3, 4])


if __name__ == "__main__":
    unittest.main()
