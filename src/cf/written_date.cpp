// SPDX-License-Identifier: BSD-3-Clause
#include "cf/written_date.h"

#include "cf/ascii_text.h"

#include <cmath>

namespace Ovard::gridio::cf {
namespace {

// Parses a text from the front. The first failure is kept, and all later steps fail.
class Reader {
public:
    explicit Reader(std::string_view text) : whole_(trimmed(text)), rest_(whole_) {}

    Outcome<WrittenDate> read()
    {
        if (whole_.empty())
            return Refusal{"the date is empty"};
        if (readDate() && !rest_.empty())
            readBehindDate();
        if (reason_.empty() && !rest_.empty())
            fail("has " + inQuotes(rest_) + " at its end");
        if (!reason_.empty())
            return Refusal{inQuotes(whole_) + " " + reason_};
        return written_;
    }

private:
    bool fail(std::string_view reason)
    {
        reason_ = reason;
        return false;
    }

    bool take(char wanted)
    {
        if (rest_.empty() || rest_.front() != wanted)
            return false;
        rest_.remove_prefix(1);
        return true;
    }

    // True for a minus.
    bool takeSign()
    {
        const bool isNegative = take('-');
        if (!isNegative)
            take('+');
        return isNegative;
    }

    bool takeBlanks()
    {
        const std::size_t before = rest_.size();
        while (!rest_.empty() && isBlank(rest_.front()))
            rest_.remove_prefix(1);
        return rest_.size() < before;
    }

    bool takeWord(std::string_view wanted)
    {
        if (lowered(rest_.substr(0, wanted.size())) != wanted)
            return false;
        rest_.remove_prefix(wanted.size());
        return true;
    }

    std::string_view takeDigits()
    {
        std::size_t count = 0;
        while (count < rest_.size() && isDigit(rest_[count]))
            ++count;
        const std::string_view digits = rest_.substr(0, count);
        rest_.remove_prefix(count);
        return digits;
    }

    // At most 16 digits.
    static std::int64_t number(std::string_view digits)
    {
        std::int64_t value = 0;
        for (const char digit : digits)
            value = 10 * value + (digit - '0');
        return value;
    }

    static int smallNumber(std::string_view digits) { return static_cast<int>(number(digits)); }

    bool readTwoDigits(int& field, std::string_view name)
    {
        const std::string_view digits = takeDigits();
        if (digits.empty() || digits.size() > 2)
            return fail(std::string("has no ") + std::string(name) + " of one or two digits");
        field = smallNumber(digits);
        return true;
    }

    bool readDate()
    {
        const bool isNegative = takeSign();
        const std::string_view digits = takeDigits();
        if (digits.empty())
            return fail("does not begin with a year");
        if (digits.size() > 16)
            return fail("has a year of too many digits");
        if (!(take('-') ? readMonthAndDay(digits) : readPackedDate(digits)))
            return false;
        if (isNegative)
            written_.date.year = -written_.date.year;
        return true;
    }

    bool readMonthAndDay(std::string_view year)
    {
        written_.date.year = number(year);
        written_.precision = Precision::month;
        if (!readTwoDigits(written_.date.month, "month"))
            return false;
        if (!take('-'))
            return true;
        written_.precision = Precision::day;
        return readTwoDigits(written_.date.day, "day");
    }

    bool readPackedDate(std::string_view digits)
    {
        if (digits.size() == 5 || digits.size() == 7 || digits.size() > 8)
            return fail("is not clear without hyphens");
        written_.date.year = number(digits.substr(0, 4));
        if (digits.size() >= 6) {
            written_.date.month = smallNumber(digits.substr(4, 2));
            written_.precision = Precision::month;
        }
        if (digits.size() == 8) {
            written_.date.day = smallNumber(digits.substr(6, 2));
            written_.precision = Precision::day;
        }
        return true;
    }

    // A time, a zone, or both.
    bool readBehindDate()
    {
        if (written_.precision != Precision::day)
            return fail(isBlank(rest_.front()) || isLetter(rest_.front())
                            ? "needs a whole date before a time or a time zone"
                            : "is not a date like 2013-05-01");
        if (readZone())
            return true;
        const bool hasBlanks = takeBlanks();
        const bool hasLetter = take('T') || take('t');
        if (hasLetter)
            takeBlanks();
        if (!hasBlanks && !hasLetter)
            return true;
        if (readZone())
            return true;
        if (!readClock())
            return false;
        const bool isApart = takeBlanks();
        readZone(isApart);
        return reason_.empty();
    }

    bool readClock()
    {
        const std::string_view digits = takeDigits();
        if (digits.empty())
            return fail("has no time where one is expected");
        if (!rest_.empty() && rest_.front() == ':')
            return readClockWithColons(digits);
        if (digits.size() > 2 && digits.size() != 4 && digits.size() != 6)
            return fail("has a time that is not clear without colons");
        written_.hour = smallNumber(digits.substr(0, 2));
        written_.precision = Precision::hour;
        if (digits.size() >= 4) {
            written_.minute = smallNumber(digits.substr(2, 2));
            written_.precision = Precision::minute;
        }
        if (digits.size() < 6)
            return true;
        written_.second = smallNumber(digits.substr(4, 2));
        return readFraction();
    }

    bool readClockWithColons(std::string_view hour)
    {
        if (hour.size() > 2)
            return fail("has no hour of one or two digits");
        written_.hour = smallNumber(hour);
        written_.precision = Precision::minute;
        take(':');
        if (!readTwoDigits(written_.minute, "minute"))
            return false;
        if (!take(':'))
            return true;
        return readTwoDigits(written_.second, "second") && readFraction();
    }

    bool readFraction()
    {
        written_.precision = Precision::second;
        if (!take('.') && !take(','))
            return true;
        const std::string_view digits = takeDigits();
        if (digits.empty())
            return true; // "0." is found
        double fraction = 0;
        for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit)
            fraction = (fraction + (*digit - '0')) / 10;
        written_.microsecond = static_cast<int>(std::lrint(fraction * 1e6));
        written_.fractionDigits = digits.size() < 6 ? static_cast<int>(digits.size()) : 6;
        written_.precision = digits.size() > 3 ? Precision::microsecond : Precision::millisecond;
        return true;
    }

    // True if there was one. An offset without a sign is one only where a time cannot be meant.
    bool readZone(bool withoutSign = false)
    {
        const std::string_view start = rest_;
        takeBlanks();
        const bool hasWord = takeWord("utc") || takeWord("gmt") || takeWord("z");
        if (hasWord)
            takeBlanks();
        const bool hasSign = !rest_.empty() && (rest_.front() == '+' || rest_.front() == '-');
        const bool isUnsigned = withoutSign && !hasWord && !rest_.empty() && isDigit(rest_.front());
        if (hasSign || isUnsigned)
            return readOffset();
        if (!hasWord)
            rest_ = start;
        written_.hasZone = hasWord;
        return hasWord;
    }

    // "h", "hh", "h:mm", "hh:mm", "hmm" or "hhmm"; true also after a failure, which is recorded.
    bool readOffset()
    {
        const bool isNegative = takeSign();
        const std::string_view digits = takeDigits();
        const std::size_t hourDigits = digits.size() > 2 ? digits.size() - 2 : digits.size();
        int hours = 0;
        int minutes = 0;
        if (digits.empty() || digits.size() > 4)
            return !fail("has a time zone that is not like +01:00");
        hours = smallNumber(digits.substr(0, hourDigits));
        if (take(':')) {
            if (digits.size() > 2)
                return !fail("has a time zone that is not like +01:00");
            readTwoDigits(minutes, "minute in its time zone");
        } else {
            minutes = smallNumber(digits.substr(hourDigits));
        }
        if (hours > 23 || minutes > 59)
            return !fail("has a time zone that is not less than a day");
        written_.hasZone = true;
        written_.zoneMinutes = (isNegative ? -1 : 1) * (60 * hours + minutes);
        return true;
    }

    std::string_view whole_;
    std::string_view rest_;
    std::string reason_;
    WrittenDate written_;
};

} // namespace

Outcome<WrittenDate> readWrittenDate(std::string_view text) { return Reader(text).read(); }

Outcome<Moment> momentOfWrittenDate(Calendar calendar, const WrittenDate& written)
{
    const auto clockOnly =
        momentOfParts(calendar, {written.date, written.hour, written.minute, written.second, 0});
    if (!clockOnly)
        return clockOnly;
    Moment moment = *clockOnly;
    if (__builtin_add_overflow(moment, written.microsecond, &moment) ||
        __builtin_sub_overflow(moment, written.zoneMinutes * microsecondsPerMinute, &moment) ||
        moment == notATime)
        return Refusal{momentRangeReason()};
    return moment;
}

} // namespace Ovard::gridio::cf
