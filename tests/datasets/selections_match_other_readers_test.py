# SPDX-License-Identifier: BSD-3-Clause
"""Selections on axes of every kind against numpy and xarray, and times and selections on the real files of GRIDIO_DATA."""
import glob
import os
import pathlib
import tempfile
import unittest
import warnings

import cftime
import netCDF4
import numpy as np
import xarray

import interpreter

warnings.simplefilter("ignore")
REAL = sorted(glob.glob(os.path.join(os.environ.get("GRIDIO_DATA", "/nowhere"), "*.nc")))
COUNT = int(os.environ.get("SELECTION_CASES", "10"))
# Prints the values, and of a seconds result the longitudes.
SCRIPT = """
ds = gridio_dataset ("{path}");
function say (x)
  printf ("%.17g ", x(! isnan (x)));  puts ("\\n");
end
function select (v, varargin)
  try
    [x, at] = v.at (varargin{{:}});
    say (x);
    say (at.lon);
  catch failure
    printf ("%s\\n\\n", failure.identifier);
  end
end
"""
EMPTY = "Ovard:gridio:dataset:emptySelection"


class Compared(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)
        self.path = self.folder / "field.nc"
        self.random = np.random.default_rng(int(os.environ.get("SELECTION_SEED", "5")))

    def lines(self, statements, path=None):
        script = self.folder / "script.m"
        script.write_text("1;\n" + SCRIPT.format(path=path or self.path) + "\n".join(statements) + "\n")
        done = interpreter.run(script, cwd=self.folder, folders=(interpreter.INST, interpreter.oct_folder()), text=True)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return done.stdout.splitlines()

    def write_field(self, name, axis, units):
        """f, which counts from 0 along an axis."""
        field = xarray.Dataset({"f": ((name,), np.arange(float(len(axis))))}, {name: (name, axis, {"units": units})})
        field.to_netcdf(self.path)

    def numbers(self, line):
        return [] if line.startswith("Ovard") else [float(word) for word in line.split()]


class Selections(Compared):
    def test_take_longitudes_in_one_piece_in_either_convention(self):
        for begin in (0, -180, -30):
            for isDown in (False, True):
                lon = np.sort(self.random.uniform(begin, begin + 360, 30))[::-1 if isDown else 1]
                self.write_field("lon", lon, "degrees_east")
                begins, widths = self.random.uniform(-360, 400, COUNT), self.random.uniform(1, 359, COUNT)
                ranges = list(zip(begins, begins + widths))
                lines = self.lines(f'select (ds.f, "lon", [{low!s} {high!s}]);' for low, high in ranges)
                for (low, high), values, longitudes in zip(ranges, lines[::2], lines[1::2]):
                    with self.subTest(begin=begin, isDown=isDown, low=low, high=high, values=values):
                        isIn = np.mod(lon - low, 360) <= high - low
                        self.assertEqual(sorted(self.numbers(values)), np.flatnonzero(isIn).tolist())
                        if isIn.any():
                            found = np.array(self.numbers(longitudes))
                            places = np.array(self.numbers(values), int)
                            self.assertTrue((np.diff(found) * (-1 if isDown else 1) > 0).all())
                            self.assertTrue(low - 1e-9 <= found.min() and found.max() <= high + 1e-9)
                            np.testing.assert_allclose(np.mod(found, 360), np.mod(lon[places], 360), atol=1e-9)
                        else:
                            self.assertEqual(values, EMPTY)

    def test_take_the_points_and_ranges_of_xarray(self):
        """On axes that ascend or descend, evenly or not."""
        for isEven in (False, True):
            for step in (1, -1):
                lat = (np.linspace(-80, 80, 33) if isEven else np.sort(self.random.uniform(-80, 80, 33)))[::step]
                self.write_field("lat", lat, "degrees_north")
                field = xarray.load_dataset(self.path).f
                points = self.random.uniform(lat.min(), lat.max(), COUNT)
                ranges = np.sort(self.random.uniform(-80, 80, (COUNT, 2)), 1)
                lines = self.lines([f'say (ds.f.at ("lat", {point!s}));' for point in points] +
                                   [f'try, say (ds.f.at ("lat", [{low!s} {high!s}])); catch e, disp (e.identifier), end'
                                    for low, high in ranges])
                wanted = [[float(field.sel(lat=point, method="nearest"))] for point in points]
                wanted += [field.sel(lat=slice(*pair[::step])).values.tolist() for pair in ranges]
                self.assertEqual([self.numbers(line) for line in lines], wanted)

    def test_take_points_by_the_cell_that_has_them(self):
        edges = np.cumsum(self.random.uniform(1, 20, 13))
        with netCDF4.Dataset(self.path, "w") as file:
            file.createDimension("z", 12)
            file.createDimension("b", 2)
            z = file.createVariable("z", "f8", ("z",))
            z.bounds = "z_bounds"
            z[:] = edges[:-1] + np.diff(edges) * self.random.uniform(.05, .95, 12)
            file.createVariable("z_bounds", "f8", ("z", "b"))[:] = np.stack([edges[:-1], edges[1:]], 1)
            file.createVariable("f", "f8", ("z",))[:] = range(12)
        points = self.random.uniform(edges[0], edges[-1], COUNT)
        lines = self.lines(f'say (ds.f.at ("z", {point!s}));' for point in points)
        self.assertEqual([self.numbers(line) for line in lines], [[np.searchsorted(edges, point) - 1] for point in points])

    def test_take_texts_by_name(self):
        names = [f"station {k} é" for k in self.random.permutation(20)]
        for kind in ("S1", str):
            with self.subTest(kind):
                xarray.Dataset({"f": (("n",), np.arange(20.))}, {"name": ("n", names)}).to_netcdf(
                    self.path, encoding={"name": {"dtype": kind}})
                asked = self.random.integers(0, 20, (COUNT, 2))
                lines = self.lines(f'say (ds.f.at ("name", {{"{names[a]}", "{names[b]}"}})); say (ds.f.at ("name", "{names[a]}"));'
                                   for a, b in asked)
                self.assertEqual([self.numbers(line) for line in lines], [row for a, b in asked for row in ([a, b], [a])])

    def test_take_points_by_the_great_circle_and_boxes(self):
        j, i = np.meshgrid(np.arange(24), np.arange(36), indexing="ij")
        lat = -85 + 7 * j + 3 * np.sin(i / 5)
        lon = np.mod(10 * i + 4 * np.cos(j / 3) + 77, 360) - 180
        xarray.Dataset({"f": (("j", "i"), np.arange(24. * 36).reshape(24, 36), {"coordinates": "lat lon"}),
                        "lat": (("j", "i"), lat, {"units": "degrees_north"}),
                        "lon": (("j", "i"), lon, {"units": "degrees_east"})}).to_netcdf(self.path)
        points = [(self.random.uniform(-80, 80), self.random.uniform(-360, 360)) for _ in range(COUNT)]
        boxes = [(*np.sort(self.random.uniform(-80, 80, 2)), west, west + self.random.uniform(5, 300))
                 for west in self.random.uniform(-200, 200, COUNT)]
        lines = self.lines([f'select (ds.f, "lat", {a!s}, "lon", {b!s});' for a, b in points] +
                           [f'select (ds.f, "lat", [{s!s} {n!s}], "lon", [{w!s} {e!s}]);' for s, n, w, e in boxes])
        for number, (north, east) in enumerate(points):
            away = (np.sin(np.radians(lat)) * np.sin(np.radians(north)) +
                    np.cos(np.radians(lat)) * np.cos(np.radians(north)) * np.cos(np.radians(lon - east)))
            self.assertEqual(self.numbers(lines[2 * number]), [float(np.argmax(away))])
        for number, (south, north, west, east) in enumerate(boxes, COUNT):
            isIn = (lat >= south) & (lat <= north) & (np.mod(lon - west, 360) <= east - west)
            found = self.numbers(lines[2 * number])
            self.assertEqual(sorted(found), np.flatnonzero(isIn).tolist(), (south, north, west, east))


@unittest.skipUnless(REAL, "GRIDIO_DATA names no folder of real files")
class RealFiles(Compared):
    def test_take_every_coordinate(self):
        compared = 0
        for path in REAL:
            statements, wanted = [], []
            with netCDF4.Dataset(path) as file:
                for name, axis in file.variables.items():
                    if axis.dimensions != (name,) or axis.dtype is str or axis.dtype.kind not in "iuf" or axis.size < 2:
                        continue
                    values = np.ma.filled(np.ma.asarray(axis[:]).astype(float), np.nan)
                    if np.isnan(values).any() or not (np.all(np.diff(values) > 0) or np.all(np.diff(values) < 0)):
                        continue
                    if " since " in getattr(axis, "units", ""):
                        continue  # selected by texts below
                    for point in self.random.choice(values, 5):
                        statements.append(f'[x, at] = ds("{name}").at ("{name}", {float(point)!s}); say (at.("{name}"));')
                        wanted.append([point])
            if statements:
                self.assertEqual([self.numbers(line) for line in self.lines(statements, path)], wanted, path)
                compared += len(wanted)
        self.assertGreater(compared, 10)

    def test_have_the_times_of_cftime(self):
        compared = 0
        for path in REAL:
            with netCDF4.Dataset(path) as file:
                for name, variable in file.variables.items():
                    if " since " not in str(getattr(variable, "units", "")):
                        continue
                    values = np.ma.masked_invalid(np.ma.asarray(variable[...]).astype(float)).compressed()
                    dates = cftime.num2date(values, variable.units, getattr(variable, "calendar", "standard"),
                                            only_use_cftime_datetimes=True)
                    wanted = [[date.year, date.month, date.day, date.hour, date.minute, date.second + date.microsecond / 1e6]
                              for date in np.atleast_1d(dates)]
                    lines = self.lines([f'p = ds("{name}").parts ();', "p = p(! any (isnan (p), 2),:);",
                                        'printf ("%d %d %d %d %d %.3f\\n", p\');'], path)
                    self.assertEqual(len(lines), len(wanted), f"{path} {name}")
                    for line, row in zip(lines, wanted):
                        np.testing.assert_allclose(self.numbers(line), row, atol=2e-3, err_msg=f"{path} {name}")
                    compared += len(wanted)
        self.assertGreater(compared, 50)


if __name__ == "__main__":
    unittest.main()
