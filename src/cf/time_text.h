// SPDX-License-Identifier: BSD-3-Clause
// Conversion of moments to ISO 8601 text, and of text to the period that it names.
#pragma once

#include "cf/moment.h"
#include "cf/written_date.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Ovard::gridio::cf {

// The texts of a column of times are written alike: "2013", "2013-05", "2013-05-01",
// "2013-05-01 18", "2013-05-01 18:00", "2013-05-01 18:00:30", and with 3 or 6 digits behind the
// second. Smaller parts are truncated, never rounded. Precision::microsecond is the full form.
std::string momentText(Calendar calendar, Moment moment, Precision precision);

// The shortest of the forms day, minute, second, millisecond and microsecond in which all moments
// are exact; those that are notATime do not count. Day for none.
Precision exactPrecision(const Moment* moments, std::size_t count);

// The number of bytes of the longest text; at least 3, for "NaT".
std::size_t momentTextWidth(Calendar calendar, const Moment* moments, std::size_t count,
                            Precision precision);

// Writes the text at first and returns its end. Needs momentTextWidth bytes; "NaT" for notATime.
char* writeMoment(Calendar calendar, Moment moment, Precision precision, char* first);

// The moments from begin up to, but not including, end.
struct Period {
    Moment begin;
    Moment end;
    Precision precision; // of the text that named it
};

// A year, month, day, hour, minute, second or fraction of a second, in the forms of written_date.h.
// Without a zone the text is in the calendar's own time, UTC. Refused when the date does not exist
// in the calendar: "2013-02-29 does not exist in calendar noleap; February has 28 days".
Outcome<Period> parsePeriod(std::string_view text, Calendar calendar);

} // namespace Ovard::gridio::cf
