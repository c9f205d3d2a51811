// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/visible_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

using namespace hosts::messages;
using namespace std::string_literals;

TEST(Visible, EscapesEveryControlCharacter)
{
    for (int code = 0; code < 0x100; ++code) {
        const std::string text(1, static_cast<char>(code));
        const bool isControl = code < 0x20 || (code >= 0x7F && code < 0xA0);
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, code == 0 ? "\\0" : "\\x%02X",
                      static_cast<unsigned>(code));
        EXPECT_EQ(visible(text), isControl ? escaped : text) << code;
        EXPECT_EQ(visible("a" + text + "b"), "a" + (isControl ? escaped : text) + "b") << code;
    }
}

TEST(Visible, EscapesControlCharactersInUtf8)
{
    for (int code = 0x80; code < 0xA0; ++code) {
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, "\\x%02X", static_cast<unsigned>(code));
        EXPECT_EQ(visible("\xC2" + std::string(1, static_cast<char>(code))), escaped) << code;
    }
    EXPECT_EQ(visible("\xC2\xA0"), "\xC2\xA0");
}

TEST(Visible, KeepsUtf8AndWhatIsNone)
{
    for (const char* text :
         {"", "temp", "\\x1B", "\xC3\xA9", "\xC3\x9F", "\xE2\x82\xAC", "\xE4\xB8\x9B",
          "\xF0\x9F\x8C\x8A", "\xE9", "\xC3", "\xFF\xFE", "a\xE9z"})
        EXPECT_EQ(visible(text), text);
}

TEST(Visible, EscapesWhatOnlyLooksLikeTheRestOfACharacter)
{
    EXPECT_EQ(visible("\xE2\x9B"), "\xE2\\x9B");
    EXPECT_EQ(visible("\xC0\x9B"), "\xC0\\x9B");
    EXPECT_EQ(visible("\xF0\x9F\x8C"), "\xF0\\x9F\\x8C");
    EXPECT_EQ(visible("\xC2\x1B"), "\xC2\\x1B");
    EXPECT_EQ(visible("\xF8\x9B\x80\x80\x80"), "\xF8\\x9B\\x80\\x80\\x80");
}

TEST(InQuotes, CutsALongTextBetweenCharacters)
{
    EXPECT_EQ(inQuotes("a\"b"), "\"a\"b\"");
    EXPECT_EQ(inQuotes(std::string(200, 'x')), '"' + std::string(200, 'x') + '"');
    EXPECT_EQ(inQuotes(std::string(201, 'x')), '"' + std::string(200, 'x') + "...\"");
    EXPECT_EQ(inQuotes(std::string(199, 'x') + "\xC3\xA9"), '"' + std::string(199, 'x') + "...\"");
    EXPECT_EQ(inQuotes(std::string(1000, '\x9B')).substr(0, 5), "\"\\x9B");
}

TEST(QuotedNames, NamesTheFirstAndCountsTheOthers)
{
    using Names = std::vector<std::string>;
    EXPECT_EQ(quotedNames(Names{}, 3, "and"), "");
    EXPECT_EQ(quotedNames(Names{"a"}, 3, "and"), "\"a\"");
    EXPECT_EQ(quotedNames(Names{"a", "b"}, 3, "or"), "\"a\" or \"b\"");
    EXPECT_EQ(quotedNames(Names{"a", "b", "c"}, 3, "and"), "\"a\", \"b\" and \"c\"");
    EXPECT_EQ(quotedNames(Names{"a", "b", "c", "d"}, 2, "and"), "\"a\", \"b\" and 2 more");
}

TEST(Counted, WritesNoOneAndMany)
{
    EXPECT_EQ(counted(0, "argument"), "no arguments");
    EXPECT_EQ(counted(1, "argument"), "1 argument");
    EXPECT_EQ(counted(2, "argument"), "2 arguments");
}

TEST(Ordinal, IsAWordForTheFirstSix)
{
    EXPECT_EQ(ordinal(1), "first");
    EXPECT_EQ(ordinal(6), "sixth");
    EXPECT_EQ(ordinal(7), "7th");
    EXPECT_EQ(ordinal(11), "11th");
    EXPECT_EQ(ordinal(12), "12th");
    EXPECT_EQ(ordinal(21), "21st");
    EXPECT_EQ(ordinal(22), "22nd");
    EXPECT_EQ(ordinal(103), "103rd");
    EXPECT_EQ(ordinal(111), "111th");
}

TEST(NumberText, IsWhatAScriptWouldWrite)
{
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(numberText(12), "12");
    EXPECT_EQ(numberText(-0.0), "0");
    EXPECT_EQ(numberText(-1), "-1");
    EXPECT_EQ(numberText(0.5), "0.5");
    EXPECT_EQ(numberText(65536 * 3), "196608");
    EXPECT_EQ(numberText(1e300), "1e+300");
    EXPECT_EQ(numberText(std::nan("")), "NaN");
    EXPECT_EQ(numberText(infinity), "Inf");
    EXPECT_EQ(numberText(-infinity), "-Inf");
}

} // namespace
