# SPDX-License-Identifier: BSD-3-Clause
"""What cftime says of dates, for the tests that compare calendars with it."""
import cftime


def exists(calendar, year, month, day):
    try:
        cftime.datetime(year, month, day, calendar=calendar, has_year_zero=True)
    except ValueError:
        return False
    return True
