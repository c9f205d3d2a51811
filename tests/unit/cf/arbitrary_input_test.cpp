// SPDX-License-Identifier: BSD-3-Clause
// Random text and values: any input gives a value or a reason. Meant to run under sanitizers.
#include "cf/time_columns.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace Ovard::gridio::cf {
namespace {

constexpr Calendar everyCalendar[] = {Calendar::standard, Calendar::prolepticGregorian,
                                      Calendar::julian,   Calendar::noLeap,
                                      Calendar::allLeap,  Calendar::day360};
constexpr LongUnits everyLongUnits[] = {LongUnits::refused, LongUnits::udunitsLengths,
                                        LongUnits::calendarSteps};

class Draw {
public:
    std::size_t below(std::size_t end)
    {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(engine_);
    }

    // Any bytes, or some that can be a date, or pieces of units put together.
    std::string text()
    {
        static const std::string likely = "0123456789-+:.TtZz @,eE";
        static const char* const pieces[] = {"days",
                                             "months",
                                             "s",
                                             "years",
                                             " ",
                                             " since ",
                                             "@",
                                             "-",
                                             "1900",
                                             "01",
                                             "29",
                                             "02",
                                             "1582",
                                             "10",
                                             "T",
                                             ":",
                                             "00",
                                             ".5",
                                             "Z",
                                             "+01:00",
                                             "-6",
                                             "UTC",
                                             "99999999",
                                             "-4712",
                                             "\0",
                                             "2013-02-30",
                                             "since",
                                             "common_years",
                                             "290000-01-01",
                                             "9999999999999999",
                                             "-290000"};
        const std::size_t kind = below(3);
        std::string result = below(3) == 0 ? "days since 1" : "";
        for (std::size_t length = below(kind == 2 ? 9 : 40); length > 0; --length)
            if (kind == 0)
                result += static_cast<char>(below(256));
            else if (kind == 1)
                result += likely[below(likely.size())];
            else
                result += pieces[below(std::size(pieces))];
        return result;
    }

    std::int64_t integer()
    {
        const auto bits = static_cast<std::int64_t>(engine_());
        return bits >> below(64);
    }

    double number()
    {
        if (below(2) == 0)
            return static_cast<double>(integer()) / 1024;
        const auto bits = engine_();
        double result = 0;
        std::memcpy(&result, &bits, sizeof result);
        return result;
    }

    template <class T, std::size_t count> T of(const T (&choices)[count])
    {
        return choices[below(count)];
    }

private:
    std::mt19937_64 engine_{20131105};
};

TEST(ArbitraryText, IsReadOrRefusedWithAReason)
{
    Draw draw;
    int units = 0;
    int periods = 0;
    for (int i = 0; i < 100'000; ++i) {
        const std::string text = draw.text();
        const Calendar calendar = draw.of(everyCalendar);
        const auto parsedUnits = parseTimeUnits(text, calendar, draw.of(everyLongUnits));
        ASSERT_TRUE(parsedUnits || !parsedUnits.reason().empty());
        const auto parsedCalendar = parseCalendar(text);
        ASSERT_TRUE(parsedCalendar || !parsedCalendar.reason().empty());
        const auto period = parsePeriod(text, calendar);
        ASSERT_TRUE(period ? period->begin < period->end : !period.reason().empty()) << text;
        ASSERT_TRUE(!parsedUnits || isTimeUnits(text)) << text;
        units += parsedUnits ? 1 : 0;
        periods += period ? 1 : 0;
    }
    EXPECT_GT(units, 100);
    EXPECT_GT(periods, 1000);
}

TEST(ArbitraryValues, AreConvertedOrMissedInEveryUnit)
{
    static const char* const names[] = {"ns",   "us",    "ms",     "s",     "min",         "hours",
                                        "days", "weeks", "months", "years", "common_years"};
    static const char* const references[] = {"1970-01-01",   "2000-02-29 23:59:59.999999",
                                             "1582-10-15",   "-290000-01-01",
                                             "290000-12-30", "0000-01-01"};
    Draw draw;
    for (int i = 0; i < 20'000; ++i) {
        const Calendar calendar = draw.of(everyCalendar);
        const std::string text = std::string(draw.of(names)) + " since " + draw.of(references);
        const auto units = parseTimeUnits(text, calendar,
                                          draw.below(2) == 0 ? LongUnits::udunitsLengths
                                                             : LongUnits::calendarSteps);
        if (!units)
            continue; // a date that the calendar does not have

        const std::size_t count = 1 + draw.below(8);
        std::vector<double> values(count);
        std::vector<std::int64_t> whole(count);
        std::vector<Moment> moments(count);
        for (std::size_t k = 0; k < count; ++k) {
            values[k] = draw.number();
            whole[k] = draw.integer();
            moments[k] = draw.integer();
        }
        std::vector<double> results(6 * count);
        static constexpr Rounding roundings[] = {Rounding::toMicrosecond, Rounding::withinDouble,
                                                 Rounding::withinSingle};
        const Rounding rounding = draw.of(roundings);
        ASSERT_LE(valuesToParts(*units, values.data(), count, rounding, results.data()).count,
                  count);
        ASSERT_LE(valuesToParts(*units, whole.data(), count, results.data()).count, count);
        ASSERT_LE(valuesToDatenum(*units, values.data(), count, rounding, results.data()).count,
                  count);
        ASSERT_LE(datenumToValues(*units, values.data(), count, results.data()).count, count);
        ASSERT_LE(datenumToValues(*units, values.data(), count, 0, whole.data()).count, count);
        ASSERT_LE(momentsToValues(*units, moments.data(), count, results.data()).count, count);
        ASSERT_LE(momentsToValues(*units, moments.data(), count, 0, whole.data()).count, count);

        const Precision precision = exactPrecision(moments.data(), count);
        const std::size_t width = momentTextWidth(calendar, moments.data(), count, precision);
        std::vector<char> texts(count * width);
        momentsToTexts(calendar, moments.data(), count, precision, width, texts.data());
        for (std::size_t k = 0; k < count; ++k) {
            if (moments[k] == notATime)
                continue;
            const auto again = parsePeriod({texts.data() + k * width, width}, calendar);
            ASSERT_TRUE(again) << again.reason();
            ASSERT_EQ(again->begin, moments[k]);
        }
    }
}

} // namespace
} // namespace Ovard::gridio::cf
