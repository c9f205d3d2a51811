// SPDX-License-Identifier: BSD-3-Clause
#include "cf/ascii_text.h"

#include <gtest/gtest.h>

#include <string>

namespace Ovard::gridio::cf {
namespace {

TEST(Trimmed, DropsBlanksControlCharactersAndNulAtBothEnds)
{
    EXPECT_EQ(trimmed(std::string_view("\0 \t days \n\r\0", 12)), "days");
    EXPECT_EQ(trimmed("a b"), "a b");
    EXPECT_EQ(trimmed(" \n "), "");
    EXPECT_EQ(trimmed("\xC2\xB5s"), "\xC2\xB5s");
}

TEST(Lowered, ChangesAsciiLettersOnly)
{
    EXPECT_EQ(lowered("Days SINCE @[`{ \xC3\x84"), "days since @[`{ \xC3\x84");
}

TEST(InQuotes, IsShortAndOnOneLine)
{
    EXPECT_EQ(inQuotes("days"), "\"days\"");
    EXPECT_EQ(inQuotes(std::string_view("a\nb\0c\x7F", 6)), "\"a?b?c?\"");
    EXPECT_EQ(inQuotes(std::string(60, 'x')), '"' + std::string(60, 'x') + '"');
    EXPECT_EQ(inQuotes(std::string(61, 'x')), '"' + std::string(60, 'x') + "...\"");
}

} // namespace
} // namespace Ovard::gridio::cf
