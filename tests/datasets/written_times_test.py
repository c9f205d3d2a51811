# SPDX-License-Identifier: BSD-3-Clause
"""Times that are written in every calendar, as the Python binding reads them."""
import pathlib
import subprocess
import unittest

import interpreter
import netCDF4

from written_files import Written

FOLDER = pathlib.Path(__file__).resolve().parent


class Times(Written):
    def dates(self, name):
        with netCDF4.Dataset(self.path(name)) as file:
            time = file["time"]
            return [date.strftime("%Y-%m-%d %H:%M") for date in netCDF4.num2date(time[:], time.units, time.calendar)]

    def test_writes_times_in_every_calendar(self):
        calendars = ("standard", "proleptic_gregorian", "julian", "noleap", "all_leap", "360_day")
        units = ("days since 1970-01-01", "hours since 1999-12-30 12:00", "seconds since 2000-01-01T00:00:00")
        days = "datenum (2013, [1 3 12], [5 1 30], [0 6 23], [0 30 59], 0)"
        texts = '{"2013-01-05", "2013-03-01 06:30", "2013-12-30T23:59"}'
        puts = [f'out.put ("t{c}{u}", {days if c < 2 and u else texts}, "t{c}{u}", '
                f'"units", "{units[u]}", "calendar", "{calendars[c]}");' for c in range(6) for u in range(3)]
        self.run_script('out = gridio_dataset ("times.nc", "new");\n' + "\n".join(puts))
        with netCDF4.Dataset(self.path("times.nc")) as file:
            for variable in file.variables.values():
                dates = netCDF4.num2date(variable[:], variable.units, variable.calendar)
                self.assertEqual([date.strftime("%Y-%m-%d %H:%M:%S") for date in dates],
                                 ["2013-01-05 00:00:00", "2013-03-01 06:30:00", "2013-12-30 23:59:00"], variable)

    def test_writes_times_that_were_read_in_every_calendar(self):
        for calendar in ("standard", "julian", "noleap", "all_leap", "360_day"):
            with self.subTest(calendar):
                day = 1 if calendar == "standard" else 24
                self.run_script(f"""
out = gridio_dataset ("first.nc", "replace");
out.put ("time", {{"2012-02-28", "2012-03-01 12:00"}}, "time", "units", "hours since 2012-01-01", "calendar", "{calendar}");
clear out
ds = gridio_dataset ("first.nc");
out = gridio_dataset ("second.nc", "replace");
out.put ("time", ds.time(:), "time", ds.time.attributes (), "_Unlimited", true);
out.append ("time", ds.time(2) + {day});
out.time(1) = ds.time(1);
clear out
""")
                self.assertEqual(self.dates("second.nc"), ["2012-02-28 00:00", "2012-03-01 12:00", "2012-03-02 12:00"])

    def test_writes_what_the_example_cuts_out_in_every_calendar(self):
        example = FOLDER.parents[1] / "examples" / "subset.m"
        for calendar in ("standard", "julian", "noleap", "360_day"):
            with self.subTest(calendar):
                self.run_script(f"""
if (exist ("whole.nc", "file")), delete whole.nc, end
gridio_write ("whole.nc", "time", {{"2012-01-16", "2012-02-16", "2012-03-16"}}, "time", "units", "days since 2012-01-01", ...
              "calendar", "{calendar}");
gridio_write ("whole.nc", "v", [1 2 3], "time");
""")
                command = interpreter.command(example, "whole.nc", "v", "part.nc", "time", "2012-02")
                subprocess.run(command, cwd=self.folder, env=interpreter.environment(self.folder), check=True, capture_output=True)
                self.assertEqual(self.dates("part.nc"), ["2012-02-16 00:00"])
                with netCDF4.Dataset(self.path("part.nc")) as file:
                    self.assertEqual(file["v"][:].tolist(), [2])

    def test_converts_bounds_like_their_parent(self):
        self.run_script("""
out = gridio_dataset ("bounds.nc", "new");
out.put ("time", datenum (2013, 1:2, 16), "time", "units", "days since 2013-01-01", "bounds", "time_bnds");
out.put ("time_bnds", datenum (2013, [1 2; 2 3], 1), {"nv", "time"});
""")
        with netCDF4.Dataset(self.path("bounds.nc")) as file:
            self.assertEqual(file["time_bnds"][:].tolist(), [[0, 31], [31, 59]])
            self.assertEqual(file["time_bnds"].ncattrs(), [])


if __name__ == "__main__":
    unittest.main()
