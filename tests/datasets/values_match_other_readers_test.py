# SPDX-License-Identifier: BSD-3-Clause
"""Decoded values, times and selections against netCDF4, cftime and xarray, on generated files and on the real ones of the
folder GRIDIO_DATA."""
import glob
import os
import pathlib
import random
import tempfile
import unittest
import warnings

import cftime
import interpreter
import netCDF4
import numpy as np
import xarray

warnings.simplefilter("ignore")
REAL = sorted(glob.glob(os.path.join(os.environ.get("GRIDIO_DATA", "/nowhere"), "*.nc")))
COUNT = int(os.environ.get("GRIDIO_DATASET_FILES", "40"))

# Writes each number of each file as doubles to FOLDER/FILE_VARIABLE.bin, with the shape ahead.
DUMP = """
files = {%s};
for f = 1:numel (files)
  ds = gridio_dataset (files{f}, "times", false);
  for name = ds.variables ()'
    v = ds(name{1});
    x = v ();
    if (isnumeric (x))
      out = fopen (sprintf ("%%d_%%s.bin", f, strrep (name{1}, "/", ":")), "w");
      s = size (x);
      if (numel (v.dimensions ()) < 2)
        s = s(1:numel (v.dimensions ()));
      end
      fwrite (out, [numel(s), s], "double");
      fwrite (out, x, "double");
      fclose (out);
    end
  end
end
"""


def run_octave(script, folder):
    """The lines that a script prints."""
    done = interpreter.run_text(script, folder, capture_output=True)
    if done.returncode != 0:
        raise AssertionError(done.stderr[-3000:])
    return done.stdout.splitlines()


def quoted(paths):
    return ", ".join(f'"{path}"' for path in paths)


def variables_of(group, ahead=""):
    for name, variable in group.variables.items():
        yield ahead + name, variable
    for name, below in group.groups.items():
        yield from variables_of(below, f"{ahead}{name}/")


def wanted_values(variable):
    """A byte that was never written is no missing value for us."""
    rules = {"_FillValue", "missing_value", "valid_range", "valid_min", "valid_max"}
    if variable.dtype.itemsize == 1 and not rules & set(variable.ncattrs()):
        variable.set_auto_mask(False)
    values = variable[...]
    return np.ma.filled(np.ma.asarray(values).astype("f8"), np.nan)


def generated_file(path, rng):
    """A variable of each type under a random set of rules."""
    with netCDF4.Dataset(path, "w", format=rng.choice(["NETCDF4", "NETCDF3_64BIT_DATA"])) as file:
        file.createDimension("n", 7)
        file.createDimension("m", 3)
        for code in ["i1", "u1", "i2", "u2", "i4", "u4", "i8", "u8", "f4", "f8"]:
            kind = np.dtype(code)
            fill = rng.choice([None, 3])
            variable = file.createVariable(code, code, ("m", "n"), fill_value=fill)
            if rng.random() < .4:
                variable.missing_value = np.array(rng.choice([[5], [5, 6]]), kind)
            rule = rng.choice(["none", "range", "min", "max"])
            if rule == "range":
                variable.valid_range = np.array([1, 90], kind)
            elif rule == "min":
                variable.valid_min = kind.type(2)
            elif rule == "max":
                variable.valid_max = kind.type(80)
            if code in ("i1", "i2", "i4") and rule == "none" and rng.random() < .5:
                variable.setncattr("_Unsigned", "true")
            if rng.random() < .5:
                variable.scale_factor = rng.choice([.5, 2., .01])
            if rng.random() < .5:
                variable.add_offset = rng.choice([10., -3.25])
            variable.set_auto_maskandscale(False)
            values = np.array([rng.randrange(0, 100) for _ in range(21)]).astype(kind)
            values[:3] = [3, 5, 6]
            if kind.kind == "i":
                values[3:5] = [-1, -100]
            if kind.kind == "f":
                values[3:5] = [np.nan, np.inf]
            variable[...] = values.reshape(3, 7)


class Values(unittest.TestCase):
    def compare(self, paths):
        with tempfile.TemporaryDirectory() as folder:
            run_octave(DUMP % quoted(paths), folder)
            compared = 0
            for number, path in enumerate(paths, 1):
                with netCDF4.Dataset(path) as file:
                    for name, variable in variables_of(file):
                        found = pathlib.Path(folder, f"{number}_{name.replace('/', ':')}.bin")
                        if not found.exists():
                            self.assertFalse(isinstance(variable.datatype, np.dtype) and variable.dtype.kind in "iuf",
                                             f"{path}: {name} is no number for us")
                            continue
                        data = np.fromfile(found)
                        rank = int(data[0])
                        if not isinstance(variable.datatype, np.dtype):
                            continue # an enumeration, whose fill value has a label
                        wanted = wanted_values(variable)
                        # The interpreter drops lengths of 1 at the end.
                        shape = [1] * (wanted.ndim - rank) + data[1:1 + rank].astype(int).tolist()[::-1]
                        self.assertEqual(tuple(shape), wanted.shape, f"{path}: {name}")
                        np.testing.assert_allclose(data[1 + rank:].reshape(shape), wanted, rtol=2e-7, err_msg=f"{path}: {name}")
                        compared += 1
            return compared

    def test_match_netcdf4_on_generated_files(self):
        rng = random.Random(int(os.environ.get("GRIDIO_SEED", "1")))
        with tempfile.TemporaryDirectory() as folder:
            paths = [os.path.join(folder, f"{k}.nc") for k in range(COUNT)]
            for path in paths:
                generated_file(path, rng)
            self.assertEqual(self.compare(paths), 10 * COUNT)

    @unittest.skipUnless(REAL, "GRIDIO_DATA names no folder of real files")
    def test_match_netcdf4_on_real_files(self):
        self.assertGreater(self.compare(REAL), 200)


class Times(unittest.TestCase):
    def test_match_cftime_in_every_calendar(self):
        rng = random.Random(2)
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "times.nc")
            wanted = {}
            with netCDF4.Dataset(path, "w") as file:
                file.createDimension("n", 1000)
                for calendar in ["standard", "gregorian", "proleptic_gregorian", "julian", "noleap", "365_day", "all_leap",
                                 "366_day", "360_day"]:
                    for unit in ["days", "hours", "seconds"]:
                        name = f"{calendar}_{unit}"
                        variable = file.createVariable(name, "i8", ("n",))
                        variable.units = f"{unit} since 1850-01-01"
                        variable.calendar = calendar
                        step = {"days": 1, "hours": 24, "seconds": 86400}[unit]
                        values = np.array([rng.randrange(-200 * 365, 400 * 365) * step + rng.randrange(step)
                                           for _ in range(1000)])
                        variable[:] = values
                        wanted[name] = cftime.num2date(values, variable.units, calendar)
            lines = run_octave(f'ds = gridio_dataset ("{path}");\nfor name = ds.variables ()\'\n'
                               'p = ds(name{1}).parts (); t = ds(name{1}).text ();\n'
                               'for k = 1:rows (p), printf ("%s %d %d %d %d %d %g %s\\n", name{1}, p(k,:), '
                               'strrep (t{k}, " ", "T")); end\nend\n', folder)
            self.assertEqual(len(lines), 1000 * len(wanted))
            for number, line in enumerate(lines):
                name, *parts, text = line.split()
                date = wanted[name][number % 1000]
                found = [int(part) for part in parts]
                self.assertEqual(found, [date.year, date.month, date.day, date.hour, date.minute, date.second], line)
                full = date.strftime("%Y-%m-%dT%H:%M:%S")
                self.assertTrue(full.startswith(text.rstrip("Z")) and len(text) >= 10, line + " " + full)

    def test_day_numbers_are_those_of_the_dates(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "times.nc")
            with netCDF4.Dataset(path, "w") as file:
                file.createDimension("n", 400)
                variable = file.createVariable("time", "f8", ("n",))
                variable.units = "hours since 1900-01-01 06:00"
                variable[:] = np.arange(400) * 1001.25
            lines = run_octave(f'ds = gridio_dataset ("{path}");\n'
                               'disp (max (abs (ds.time(:) - (datenum (1900, 1, 1, 6, 0, 0) + (0:399)\' * 1001.25 / 24))))\n'
                               'printf ("%s\\n", datestr (ds.time(400), "yyyy-mm-dd HH:MM"), ds.time.text (400){1})\n', folder)
            self.assertLess(float(lines[0]), 1e-9)
            self.assertEqual(lines[1], lines[2][:16].replace("T", " "))


class Selections(unittest.TestCase):
    def test_match_xarray(self):
        rng = np.random.default_rng(3)
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "field.nc")
            lon, lat = np.sort(rng.uniform(0, 360, 40)), np.sort(rng.uniform(-90, 90, 30))[::-1]
            time = np.sort(rng.choice(800, 50, replace=False))
            xarray.Dataset({"f": (("time", "lat", "lon"), rng.integers(0, 10 ** 6, (50, 30, 40)))},
                           {"time": ("time", time, {"units": "days since 2012-01-01"}),
                            "lat": ("lat", lat, {"units": "degrees_north"}),
                            "lon": ("lon", lon, {"units": "degrees_east"})}).to_netcdf(path)
            field = xarray.open_dataset(path).f
            cases = []
            while len(cases) < 40:
                south, north = np.sort(rng.uniform(-90, 90, 2))
                point, year, month = rng.uniform(lon[0], lon[-1]), *divmod(rng.integers(24), 12)
                day = f"{2012 + year}-{month + 1:02}"
                found = field.sel(lat=slice(north, south), time=day).sel(lon=point, method="nearest")
                if found.size:
                    cases.append((f'"lat", [{float(south)!r} {float(north)!r}], "time", "{day}", "lon", {float(point)!r}', found.values))
            lines = run_octave(f'ds = gridio_dataset ("{path}");\n' + "".join(
                f'printf ("%d ", ds.f.at ({selection})); puts ("\\n");\n' for selection, _ in cases), folder)
            for line, (selection, wanted) in zip(lines, cases):
                self.assertEqual([int(word) for word in line.split()], wanted.ravel().tolist(), selection)


if __name__ == "__main__":
    unittest.main()
