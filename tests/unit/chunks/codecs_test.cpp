// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/codecs/codec.h"

#include "tests/support/chunk_filters.h"

#include <gtest/gtest.h>

#include <string>

namespace Ovard::gridio {
namespace {

constexpr std::size_t size = 100'000;

std::string someBytes()
{
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<char>(i / 1000 + i % 3);
    return bytes;
}

class EachCodec : public testing::TestWithParam<unsigned> {
protected:
    bool decompresses(const std::string& bytes, std::size_t expected)
    {
        back = std::string(expected, '\0');
        return makeDecompressor(testsupport::filterFor(GetParam(), 4))
            ->decompress(static_cast<const unsigned char*>(static_cast<const void*>(bytes.data())),
                         bytes.size(), static_cast<unsigned char*>(static_cast<void*>(back.data())),
                         expected);
    }

    const std::string stored =
        testsupport::applyFilters({testsupport::filterFor(GetParam(), 4)}, someBytes());
    std::string back;
};

TEST_P(EachCodec, IsKnown) { EXPECT_TRUE(isCodec(GetParam())); }

TEST_P(EachCodec, GivesBackWhatWasCompressed)
{
    EXPECT_LT(stored.size(), size);
    EXPECT_TRUE(decompresses(stored, size));
    EXPECT_EQ(back, someBytes());
}

TEST_P(EachCodec, RefusesAnotherSize)
{
    EXPECT_FALSE(decompresses(stored, size - 4));
    EXPECT_FALSE(decompresses(stored, size + 4));
    EXPECT_FALSE(decompresses(stored, 4));
}

TEST_P(EachCodec, RefusesNothingAndRubbish)
{
    EXPECT_FALSE(decompresses("", size));
    EXPECT_FALSE(decompresses("x", size));
    EXPECT_FALSE(decompresses(std::string(1000, '\xFF'), size));
    EXPECT_FALSE(decompresses(std::string(1000, '\0'), size));
}

INSTANTIATE_TEST_SUITE_P(Codecs, EachCodec, testing::ValuesIn(testsupport::testCodecs()),
                         [](const auto& codec) { return std::to_string(codec.param); });

#ifdef GRIDIO_HAS_LIBAEC
// Found by the fuzzer: libaec calls it an error of memory when half of an element is left to write.
TEST(Szip, RefusesHalfAnElement)
{
    const std::string stored =
        std::string("\x21\0\0\0\x25\x10\x0C\xFF\xFF\xFF", 10) + std::string(80, '\xDB');
    unsigned char elements[33];
    EXPECT_FALSE(
        makeDecompressor({szipFilter, {168, 8, 10, 16}})
            ->decompress(static_cast<const unsigned char*>(static_cast<const void*>(stored.data())),
                         stored.size(), elements, sizeof elements));
}
#endif

TEST(Codecs, AreNoOtherFilters)
{
    for (const unsigned id : {0U, shuffleFilter, fletcher32Filter, 5U, 6U, 32008U})
        EXPECT_FALSE(isCodec(id)) << id;
    EXPECT_EQ(codecNames().size(), testsupport::testCodecs().size());
}

} // namespace
} // namespace Ovard::gridio
