# SPDX-License-Identifier: BSD-3-Clause
"""Random dates of each calendar, read through datasets as texts, parts and day numbers and selected by texts, against cftime.

More dates of each calendar with CALENDAR_DATES; another seed with CALENDAR_SEED. Years are counted with a year 0 on both sides.
"""
import os
import pathlib
import random
import re
import tempfile
import unittest
import warnings

import cftime
import netCDF4
import numpy

import interpreter
from cftime_dates import exists

CALENDARS = ("standard", "gregorian", "proleptic_gregorian", "julian", "noleap", "365_day", "all_leap", "366_day", "360_day")
DATES = int(os.environ.get("CALENDAR_DATES", "300"))
SEED = int(os.environ.get("CALENDAR_SEED", "1582"))
SELECTIONS = 5 + DATES // 200
# With the seconds of one, and of which parts of a unit have few enough binary digits to be exact.
UNITS = {"days": (86400, 10800), "hours": (3600, 900), "minutes": (60, 15), "seconds": (1, 1)}
REFERENCES = ("2000-01-01", "1970-01-01 06:00", "1582-10-15", "1850-07-15 12:00", "0001-01-01", "0000-01-01")
FIRST_OF_DATENUM = cftime.datetime(1582, 10, 15, calendar="standard")
SCRIPT = r"""
ds = gridio_dataset ("%s");
units = {%s};
f = fopen ("parts.bin", "w");
n = fopen ("numbers.bin", "w");
t = fopen ("texts.txt", "w");
for k = 1:numel (units)
  v = ds(units{k});
  fwrite (f, v.parts ()', "double");
  if (%d)
    fwrite (n, v(%s), "double");
  end
  text = v.text ();
  fprintf (t, "%%s\n", text{:});
end
fclose (f);  fclose (n);  fclose (t);
texts = strsplit (strtrim (fileread ("ranges.txt")), "\n");
for k = 1:2:numel (texts)
  for range = {texts(k:k+1), texts(k)}
    asked = range{1};
    if (numel (asked) == 1)
      asked = asked{1};
    end
    try
      x = ds.position.at ("time", asked);
      printf ("%%d %%d\n", x(1), x(end));
    catch failure
      printf ("%%s\n", failure.identifier);
    end
  end
end
"""


def drawn_dates(draw, calendar):
    """Ascending dates of the calendar, of them the ones about which calendars differ."""
    days = [(year, month, day) for year in (-1, 0, 1, 4, 100, 400, 1500, 1582, 1900, 2000, 2100)
            for month, day in ((1, 1), (2, 28), (2, 29), (2, 30), (3, 1), (10, 4), (10, 5), (10, 14), (10, 15), (12, 30),
                               (12, 31))]
    days = [day for day in days if exists(calendar, *day)]
    while len(days) < DATES:
        day = (draw.randint(*draw.choice(((1800, 2200), (-400, 2400), (-9999, 9999)))), draw.randint(1, 12), draw.randint(1, 31))
        if exists(calendar, *day):
            days.append(day)
    dates = {cftime.datetime(*day, *divmod(draw.choice((0, draw.randrange(8) * 180)), 60), calendar=calendar, has_year_zero=True)
             for day in days}
    return sorted(dates)


def value_of(date, unit, reference):
    origin = cftime.num2date(0, f"seconds since {reference}", date.calendar, has_year_zero=True)
    gone = date - origin
    return (gone.days * 86400 + gone.seconds) / UNITS[unit][0]


def parts(date):
    return [date.year, date.month, date.day, date.hour, date.minute, date.second]


def parts_of_text(text):
    match = re.fullmatch(r"(-?\d{4,})-(\d\d)-(\d\d)(?:[T ](\d\d):(\d\d)(?::(\d\d)(?:\.0*)?)?)?Z?", text)
    return match and [int(part or 0) for part in match.groups()]


def day_text(date):
    sign = "-" if date.year < 0 else ""
    return f"{sign}{abs(date.year):04}-{date.month:02}-{date.day:02}"


class Calendars(unittest.TestCase):
    def setUp(self):
        warnings.simplefilter("ignore")  # years below 1 are not CF's
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)

    def write(self, dates, calendar, draw):
        """A coordinate in one of the units, and the same times in all."""
        with netCDF4.Dataset(self.folder / "times.nc", "w") as file:
            file.createDimension("time", len(dates))
            for name in ("time", *UNITS):
                unit = draw.choice(list(UNITS)) if name == "time" else name
                variable = file.createVariable(name, "f8", ("time",))
                reference = draw.choice(REFERENCES)
                variable.units = f"{unit} since {reference}"
                variable.calendar = calendar
                variable[:] = [value_of(date, unit, reference) for date in dates]
            file.createVariable("position", "i4", ("time",))[:] = range(1, len(dates) + 1)

    def drawn_ranges(self, dates, draw):
        """Pairs of days, and of each what the range and the first alone have, as the script prints it."""
        ranges, wanted = [], []
        days = [(date.year, date.month, date.day) for date in dates]
        for _ in range(SELECTIONS):
            first, last = sorted(draw.choices(range(len(dates)), k=2))
            ranges += [day_text(dates[first]), day_text(dates[last])]
            for begin, end in ((days[first], days[last]), (days[first], days[first])):
                isIn = [position for position, day in enumerate(days, 1) if begin <= day <= end]
                wanted.append(f"{isIn[0]} {isIn[-1]}")
        return ranges, wanted

    def compare(self, calendar):
        draw = random.Random(f"{SEED} {calendar}")
        dates = drawn_dates(draw, calendar)
        self.write(dates, calendar, draw)
        ranges, wanted = self.drawn_ranges(dates, draw)
        (self.folder / "ranges.txt").write_text("\n".join(ranges) + "\n")
        numbered = [position for position, date in enumerate(dates, 1) if calendar == "proleptic_gregorian"
                    or calendar in ("standard", "gregorian") and date >= FIRST_OF_DATENUM]
        script = self.folder / "script.m"
        script.write_text(SCRIPT % (self.folder / "times.nc", ", ".join(f'"{unit}"' for unit in UNITS), bool(numbered),
                                    f"{numbered[0]}:{numbered[-1]}" if numbered else ""))
        done = interpreter.run(script, cwd=self.folder, folders=(interpreter.INST, interpreter.oct_folder()), text=True)
        self.assertEqual((done.returncode, done.stderr), (0, ""))

        expected = [parts(date) for date in dates] * len(UNITS)
        self.assertEqual(numpy.fromfile(self.folder / "parts.bin").reshape(-1, 6).astype(int).tolist(), expected)
        texts = (self.folder / "texts.txt").read_text().splitlines()
        self.assertEqual([parts_of_text(text) for text in texts], expected)
        self.assertEqual(done.stdout.splitlines(), wanted)
        if numbered:
            # The interpreter's day 1 is the first of January of the year 0.
            origin = cftime.datetime(0, 1, 1, calendar="proleptic_gregorian", has_year_zero=True)
            same = [cftime.datetime(*parts(dates[k - 1]), calendar="proleptic_gregorian", has_year_zero=True) for k in numbered]
            numbers = [1 + (date - origin).days + (date - origin).seconds / 86400 for date in same]
            self.assertEqual(numpy.fromfile(self.folder / "numbers.bin").tolist(), numbers * len(UNITS))
        return len(dates)

    def test_match_cftime(self):
        for calendar in CALENDARS:
            with self.subTest(calendar):
                print(f"{calendar}: {self.compare(calendar)} dates", flush=True)

    def test_say_which_dates_have_no_day_number(self):
        with netCDF4.Dataset(self.folder / "times.nc", "w") as file:
            file.createDimension("time", 2)
            variable = file.createVariable("time", "f8", ("time",))
            variable.units = "days since 1582-10-04"
            variable[:] = [0, 1]
        script = self.folder / "script.m"
        script.write_text('ds = gridio_dataset ("times.nc");\ndisp (strjoin (ds.time.text (), " "));\n'
                          'disp (datestr (ds.time(2), 29));\n'
                          'try, ds.time(1), catch failure, disp (failure.message); end\n')
        done = interpreter.run(script, cwd=self.folder, folders=(interpreter.INST, interpreter.oct_folder()), text=True)
        lines = done.stdout.splitlines()
        self.assertEqual(lines[:2], ["1582-10-04 1582-10-15", "1582-10-15"], done.stderr)
        self.assertRegex(lines[2], "variable 'time': Time 1 .*before 1582-10-15.*have no datenum")


if __name__ == "__main__":
    unittest.main()
