# SPDX-License-Identifier: BSD-3-Clause
"""Compares calendars and units with cftime, the Python library for the same conventions: cftime_test.py CONVERT_TIMES.

10,000 dates are drawn for each calendar and converted in every unit. Years are numbered astronomically on both sides.
"""
import datetime
import fractions
import random
import subprocess
import sys
import unittest
import warnings

import cftime
import numpy

from cftime_dates import exists

CONVERT_TIMES = sys.argv.pop(1)
CALENDARS = ("standard", "proleptic_gregorian", "julian", "noleap", "all_leap", "360_day")
MICROSECONDS = {"microseconds": 1, "milliseconds": 1000, "seconds": 10**6, "minutes": 60 * 10**6, "hours": 3600 * 10**6,
                "days": 86400 * 10**6}
# In forms that both sides read identically.
REFERENCES = ("2000-01-01", "1900-1-1 00:00:0.0", "1970-01-01T00:00:00Z", "1-1-1 00:00:00", "1850-07-15 12:30:15.25",
              "1990-10-30 06:00:00 +01:00", "0000-01-01", "-4712-1-1 12:00", "1582-10-15 00:00", "12000-02-28 23:59:59")
DATES = 10_000
LARGEST_YEAR = 240_000  # cftime accepts no number of microseconds beyond 64 bits, and the references differ


def answers(lines):
    done = subprocess.run([CONVERT_TIMES], input="\n".join(lines) + "\n", capture_output=True, text=True, check=True)
    return done.stdout.splitlines()


def edges():
    """Dates about which calendars differ, and the first and last days of years."""
    for year in (-LARGEST_YEAR, -4713, -4712, -401, -400, -100, -4, -1, 0, 1, 4, 100, 400, 1500, 1581, 1582, 1583, 1600, 1700, 1899,
                 1900, 1970, 1999, 2000, 2004, 2100, 9999, 10_000, LARGEST_YEAR):
        for month, day in ((1, 1), (1, 2), (1, 30), (1, 31), (2, 27), (2, 28), (2, 29), (2, 30), (3, 1), (12, 30), (12, 31)):
            yield year, month, day
    for day in (1, 2, 3, 4, 5, 10, 14, 15, 16, 17, 30, 31):
        yield 1582, 10, day


def drawn_dates(draw, calendar):
    """DATES dates of the calendar, with times of the day of every precision."""
    days = [date for date in edges() if exists(calendar, *date)]
    while len(days) < DATES:
        span = draw.choice((30, 500, 500, 5000, LARGEST_YEAR))
        date = (draw.randint(1800, 2200) if span == 30 else draw.randint(-span, 2000 + span) if span < LARGEST_YEAR
                else draw.randint(-span, span), draw.randint(1, 12), draw.randint(1, 31))
        if exists(calendar, *date):
            days.append(date)
    for date in days:
        clock = [draw.choice((0, draw.randrange(24))), draw.choice((0, draw.randrange(60))),
                 draw.choice((0, 59, draw.randrange(60))), draw.choice((0, 0, 999_999, draw.randrange(1_000_000)))]
        yield cftime.datetime(*date, *clock, calendar=calendar, has_year_zero=True)


def parts(date):
    return [date.year, date.month, date.day, date.hour, date.minute, date.second, date.microsecond]


def day_of_year(date):
    """cftime's dayofyr leaves a gap in 1582."""
    first = cftime.datetime(date.year, 1, 1, calendar=date.calendar, has_year_zero=True)
    return (date - first).days + 1


class Calendars(unittest.TestCase):
    def setUp(self):
        warnings.simplefilter("ignore")  # years below 1 are not CF's

    def compare_values(self, calendar, unit, reference, dates):
        units = f"{unit} since {reference}"
        options = {"units": units, "calendar": calendar, "has_year_zero": True}
        values = numpy.array(cftime.date2num(dates, **options), dtype=float)
        expected = cftime.num2date(values, **options)
        back = numpy.array(cftime.date2num(expected, **options), dtype=float)
        given = answers([f"value|{calendar}|{units}|{value!r}" for value in values.tolist()])
        self.assertEqual(len(given), len(dates))

        origin = cftime.num2date(0, **options)
        differing = 0
        for value, date, number, answer in zip(values.tolist(), expected, back.tolist(), given):
            fields = answer.split()
            what = (value, units, calendar, answer, date, number)
            self.assertEqual(len(fields), 9, what)
            if [int(field) for field in fields[:7]] == parts(date):
                self.assertEqual(float(fields[7]), number, what)
            else:
                differing += 1
                self.explain_difference(value, MICROSECONDS[unit], origin, date, fields, what)
        return differing

    def explain_difference(self, value, unit, origin, date, fields, what):
        """cftime is a microsecond off where the product exceeds 64 bits, and rounds times next to a whole second."""
        microsecond = datetime.timedelta(microseconds=1)
        ours = cftime.datetime(*map(int, fields[:7]), calendar=date.calendar, has_year_zero=True)
        gone = (ours - origin) // microsecond
        self.assertEqual(gone, round(fractions.Fraction(value) * unit), what)
        self.assertEqual(abs(ours - date), microsecond, what)
        if abs(gone) < 2**53:
            self.assertIn(gone % 10**6, (1, 999_999), what)

    def test_values_dates_and_back_are_those_of_cftime(self):
        draw = random.Random(20131105)
        for number, calendar in enumerate(CALENDARS):
            dates = list(drawn_dates(draw, calendar))
            for place, unit in enumerate(MICROSECONDS):
                reference = REFERENCES[(number + 3 * place) % len(REFERENCES)]
                with self.subTest(calendar=calendar, unit=unit, reference=reference):
                    self.assertLess(self.compare_values(calendar, unit, reference, dates), DATES // 3)

    def test_units_as_long_as_a_calendar_makes_them_are_taken_where_cftime_takes_them(self):
        cases = [(calendar, f"{unit} since 2000-02-03", value) for calendar in CALENDARS
                 for unit in ("month", "months", "common_year", "common_years", "year", "years")
                 for value in (-30.5, -1, 0, 7, 12.25)]
        given = answers([f"value|{calendar}|{units}|{value!r}" for calendar, units, value in cases])
        self.assertEqual(len(given), len(cases))
        taken = 0
        for (calendar, units, value), answer in zip(cases, given):
            with self.subTest(calendar=calendar, units=units, value=value, answer=answer):
                try:
                    expected = parts(cftime.num2date(value, units, calendar=calendar, has_year_zero=True))
                except ValueError:
                    self.assertIn("refused the unit", answer)
                else:
                    self.assertEqual([int(field) for field in answer.split()[:7]], expected)
                    taken += 1
        self.assertEqual(taken, 20)

    def test_dates_exist_in_a_calendar_when_they_do_in_cftime(self):
        draw = random.Random(15821015)
        for calendar in CALENDARS:
            dates = list(edges()) + [(draw.randint(-3000, 3000), draw.randint(0, 13), draw.randint(0, 32))
                                     for _ in range(DATES)]
            given = answers([f"date|{calendar}|{year:05d}-{month:02d}-{day:02d}" for year, month, day in dates])
            self.assertEqual(len(given), len(dates))
            for date, answer in zip(dates, given):
                with self.subTest(calendar=calendar, date=date, answer=answer):
                    if exists(calendar, *date):
                        expected = cftime.datetime(*date, calendar=calendar, has_year_zero=True)
                        self.assertEqual(int(answer), day_of_year(expected))
                    else:
                        self.assertRegex(answer, "^refused .* does not exist")


if __name__ == "__main__":
    unittest.main()
