# SPDX-License-Identifier: BSD-3-Clause
"""Many files as one dataset against the Python binding, against one file that ncrcat makes of them, and against CDO."""
import datetime
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

import cftime
import interpreter
import netCDF4
import numpy as np

FILES = int(os.environ.get("GRIDIO_MANY_FILES", "40"))

# save (NAME, X) writes a result for the comparison.
PRELUDE = """
1;
function save_values (name, x)
  out = fopen ([name ".bin"], "w");
  fwrite (out, [ndims(x), size(x)], "double");
  fwrite (out, double (x), "double");
  fclose (out);
end
"""


def run_octave(script, folder):
    """What a script prints."""
    done = interpreter.run_text(PRELUDE + script, folder, capture_output=True)
    if done.returncode != 0:
        raise AssertionError(done.stdout[-1000:] + done.stderr[-3000:])
    return done.stdout


def result(folder, name):
    """A saved result in the order of the library, slowest dimension first."""
    numbers = np.fromfile(pathlib.Path(folder, name + ".bin"))
    rank = int(numbers[0])
    return numbers[1 + rank:].reshape(numbers[1:1 + rank].astype(int)[::-1])


def tool(*words):
    subprocess.run(words, check=True, capture_output=True, timeout=120)


def write_day(path, day, rng, units="days since 1981-01-01", pack=(0.01, 0.0), kind="i2", steps=1, form="NETCDF4"):
    """A file with the fields of some days from one on, with the true values in a field of doubles beside."""
    with netCDF4.Dataset(path, "w", format=form) as out:
        out.createDimension("time", None)
        out.createDimension("lat", 5)
        out.createDimension("lon", 7)
        out.createDimension("nv", 2)
        time = out.createVariable("time", "f8", ("time",))
        time.units, time.calendar, time.bounds = units, "standard", "time_bnds"
        bounds = out.createVariable("time_bnds", "f8", ("time", "nv"))
        lat = out.createVariable("lat", "f4", ("lat",))
        lat.units = "degrees_north"
        lon = out.createVariable("lon", "f4", ("lon",))
        lon.units = "degrees_east"
        compression = {"compression": "zlib"} if form == "NETCDF4" else {}
        sst = out.createVariable("sst", kind, ("time", "lat", "lon"), fill_value=-999, **compression)
        sst.units = "degC"
        if kind == "i2":
            sst.scale_factor, sst.add_offset = pack
        quality = out.createVariable("quality", "i1", ("time", "lat", "lon"))
        out.createVariable("crs", "i4", ())[...] = 7
        lat[:], lon[:] = np.linspace(-60, 60, 5), np.arange(7) * 50
        start = datetime.datetime(1981, 1, 1) + datetime.timedelta(days=day)
        moments = [start + datetime.timedelta(days=k) for k in range(steps)]
        time[:] = cftime.date2num(moments, units, "standard")
        bounds[:] = np.stack([cftime.date2num(moments, units, "standard"),
                              cftime.date2num([m + datetime.timedelta(days=1) for m in moments], units, "standard")], 1)
        values = rng.integers(-100, 2500, (steps, 5, 7)) * 0.01
        sst[:] = np.ma.masked_where(rng.random((steps, 5, 7)) < 0.2, values)
        quality[:] = rng.integers(0, 4, (steps, 5, 7))


class Concatenation(unittest.TestCase):
    """Files of one kind, as ncrcat and CDO join them; their names are not in the order of their times."""

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp()
        rng = np.random.default_rng(1)
        names = rng.permutation(FILES)
        in_order = []
        for k in range(FILES):
            path = f"{cls.folder}/sst_{names[k]:04d}.nc"
            write_day(path, 2 * k, rng, steps=2, form="NETCDF4" if k % 2 else "NETCDF3_CLASSIC")
            in_order.append(path)
        cls.whole = f"{cls.folder}/whole.nc"
        tool("ncrcat", "-O", "-h", *in_order, cls.whole)
        cls.printed = run_octave("""
            ds = gridio_dataset ("sst_*.nc");
            one = gridio_dataset ("whole.nc");
            v = ds.sst;  w = one.sst;
            function same (what, a, b)
              printf ("%s: %d\\n", what, isequaln (a, b) && strcmp (class (a), class (b)));
            end
            save_values ("all", v(:,:,:));
            same ("all", v(:,:,:), w(:,:,:));
            same ("end", v(end,end,end), w(end,end,end));
            same ("strides", v(2:3:end,:,end:-5:1), w(2:3:end,:,end:-5:1));
            same ("lists", v(:,2,[70 3 3 80 7]), w(:,2,[70 3 3 80 7]));
            same ("logical", v(1,1,mod (1:size (v, 3), 7) == 0), w(1,1,mod (1:size (v, 3), 7) == 0));
            same ("counted through", v(1000:1100), w(1000:1100));
            same ("folded", v(3,20:60), w(3,20:60));
            same ("none", v(:,:,[]), w(:,:,[]));
            same ("raw", v.raw(:,:,[1 70]), w.raw(:,:,[1 70]));
            same ("raw of one", v.raw(:,:,5), w.raw(:,:,5));
            same ("bytes", ds.quality(:,:,:), one.quality(:,:,:));
            same ("time", ds.time(:), one.time(:));
            same ("text", ds.time.text (3:6), one.time.text (3:6));
            same ("parts", ds.time.parts (), one.time.parts ());
            same ("bounds", ds.bounds ("time"), one.bounds ("time"));
            same ("fixed", ds.lat(:), one.lat(:));
            same ("scalar", ds.crs(), one.crs());
            same ("size", size (v), size (w));
            same ("attributes", v.attributes (), gridio_dataset (ds.files ().paths{1}).sst.attributes ());
            same ("find", ds.find ("units", "degC").name (), "sst");
            [x, at] = v.at ("time", "1981-03", "lat", [-40 40], "lon", 52);
            [y, bt] = w.at ("time", "1981-03", "lat", [-40 40], "lon", 52);
            same ("at", x, y);
            same ("coordinates", at, bt);
            for kind = {"mean", "sum", "min", "max", "std", "var", "count", "median"}
              f = str2func (kind{1});
              [x, at] = f (v, "time");  [y, bt] = f (w, "time");
              same (kind{1}, x, y);
              same ([kind{1} " at"], at, bt);
              same ([kind{1} " of all"], f (v), f (w));
              same ([kind{1} " of fields"], f (v, {"lat", "lon"}), f (w, {"lat", "lon"}));
              [x, at] = f (v, "time", "by", "month");  [y, bt] = f (w, "time", "by", "month");
              same ([kind{1} " by month"], x, y);
              same ([kind{1} " by month at"], at, bt);
              same ([kind{1} " of part"], f (v, "time", "time", {"1981-01-08", "1981-02-20"}, "lat", 30), ...
                    f (w, "time", "time", {"1981-01-08", "1981-02-20"}, "lat", 30));
            end
            same ("weights", mean (v, {"lat", "lon"}, "weights", "area"), mean (w, {"lat", "lon"}, "weights", "area"));
            n = size (v, 3);
            same ("weights of times", mean (v, "time", "weights", 1:n), mean (w, "time", "weights", 1:n));
            same ("mean of times", mean (ds.time), mean (one.time));
            save_values ("mean", mean (v, "time"));
            save_values ("deviation", std (v, "time"));
            disp (strsplit (evalc ("ds"), "\\n"){1});
        """, cls.folder)

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.folder)

    def test_equals_one_file_in_every_way_of_reading(self):
        lines = [line for line in self.printed.splitlines() if line.endswith((": 0", ": 1"))]
        self.assertGreater(len(lines), 70)
        self.assertEqual([line for line in lines if not line.endswith(": 1")], [])

    def test_reads_what_the_python_binding_reads_of_the_concatenated_file(self):
        with netCDF4.Dataset(self.whole) as whole:
            wanted = np.ma.filled(whole["sst"][...].astype("f8"), np.nan)
        np.testing.assert_allclose(result(self.folder, "all"), wanted, rtol=1e-15)

    def test_means_and_deviations_are_those_of_cdo(self):
        for name, operator in (("mean", "-timmean"), ("deviation", "-timstd1")):
            target = f"{self.folder}/{name}.nc"
            tool("cdo", "-s", "-O", "-b", "F64", operator, "-selname,sst", self.whole, target)
            with netCDF4.Dataset(target) as out:
                wanted = np.ma.filled(out["sst"][0], np.nan)
            np.testing.assert_allclose(result(self.folder, name), wanted, rtol=1e-9)

    def test_prints_how_many_files_and_from_when_to_when(self):
        last = datetime.date(1981, 1, 1) + datetime.timedelta(days=2 * FILES - 1)
        self.assertIn(f"{FILES} files, 1981-01-01 to {last}", self.printed.splitlines()[-1])


class Ensemble(unittest.TestCase):
    """Runs of a model over the same days, along a dimension that no file has."""

    def test_means_and_deviations_are_those_of_cdo(self):
        with tempfile.TemporaryDirectory() as folder:
            rng = np.random.default_rng(3)
            runs = [f"{folder}/run_{k}.nc" for k in range(7)]
            for path in runs:
                write_day(path, 0, rng, steps=4)
            run_octave("""
                ds = gridio_dataset ("run_*.nc", "new dimension", "member");
                save_values ("mean", mean (ds.sst, "member"));
                save_values ("deviation", std (ds.sst, "member"));
                save_values ("most", max (ds.sst, "member"));
            """, folder)
            for name, operator in (("mean", "-ensmean"), ("deviation", "-ensstd1"), ("most", "-ensmax")):
                target = f"{folder}/{name}.nc"
                tool("cdo", "-s", "-O", "-b", "F64", operator, *runs, target)
                with netCDF4.Dataset(target) as out:
                    wanted = np.ma.filled(out["sst"][...], np.nan)
                # CDO 2.5 unpacks in single precision.
                np.testing.assert_allclose(result(folder, name), wanted, rtol=1e-7)


class Differences(unittest.TestCase):
    """Files that differ in units of time, packing and type, with two days missing."""

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp()
        rng = np.random.default_rng(2)
        kinds = [{"units": "hours since 1980-12-31 12:00"}, {"pack": (0.02, 5.0)}, {"kind": "f4"}, {"kind": "f8"},
                 {"units": "seconds since 1970-01-01", "form": "NETCDF3_CLASSIC"}, {"units": "days since 1981-01-05"}]
        cls.paths = []
        for k in range(24):
            path = f"{cls.folder}/part_{k:02d}.nc"
            write_day(path, k if k < 10 else k + 2, rng, **kinds[k % 6])
            cls.paths.append(path)
        cls.printed = run_octave("""
            ds = gridio_dataset ("part_*.nc");
            save_values ("all", ds.sst(:,:,:));
            save_values ("mean", mean (ds.sst, "time"));
            save_values ("time", ds.time(:));
            save_values ("bounds", ds.bounds ("time"));
            save_values ("stored", ds.time_bnds(:,:));
            save_values ("middle", mean (ds.time_bnds, "nv"));
            s = ds.files ();
            save_values ("gaps", s.gaps);
            printf ("%s\\n", s.paths{[1 end]}, s.along);
            ds = gridio_dataset ("part_*.nc", "single", true);
            disp (class (ds.sst(:,:,[1 2])));
            disp (strsplit (evalc ("ds"), "\\n"){1});
        """, cls.folder)

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.folder)

    def test_are_decoded_by_the_attributes_of_each_file(self):
        fields = []
        for path in self.paths:
            with netCDF4.Dataset(path) as part:
                fields.append(np.ma.filled(part["sst"][...].astype("f8"), np.nan))
        wanted = np.concatenate(fields)
        np.testing.assert_allclose(result(self.folder, "all"), wanted, rtol=1e-14)
        np.testing.assert_allclose(result(self.folder, "mean"), np.nanmean(wanted, axis=0), rtol=1e-12)

    def test_are_brought_to_the_same_units_of_time(self):
        days = np.array([k if k < 10 else k + 2 for k in range(24)], "f8") + 723547  # datenum of 1981-01-01
        np.testing.assert_array_equal(result(self.folder, "time").ravel(), days)
        np.testing.assert_array_equal(result(self.folder, "bounds"), np.stack([days, days + 1], 1))
        hours = 24 * np.arange(0, 24) + np.where(np.arange(24) < 10, 0, 48) + 12.0  # since 1980-12-31 12:00
        np.testing.assert_array_equal(result(self.folder, "stored"), np.stack([hours, hours + 24], 1))
        np.testing.assert_array_equal(result(self.folder, "middle").ravel(), hours + 12)

    def test_gaps_are_reported(self):
        np.testing.assert_array_equal(result(self.folder, "gaps").ravel(), [723556, 723559])
        self.assertIn("24 files, 1981-01-01 to 1981-01-26, 2 days missing", self.printed)

    def test_files_are_listed_in_their_order(self):
        self.assertEqual(self.printed.splitlines()[:3], ["part_00.nc", "part_23.nc", "time"])


if __name__ == "__main__":
    unittest.main()
