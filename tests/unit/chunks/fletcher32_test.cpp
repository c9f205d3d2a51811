// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/fletcher32.h"

#include "tests/support/chunk_filters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace Ovard::gridio {
namespace {

std::uint32_t checksumOf(const std::string& text)
{
    const std::vector<unsigned char> bytes(text.begin(), text.end());
    return fletcher32(bytes.data(), bytes.size());
}

std::vector<unsigned char> withChecksum(const std::string& text)
{
    std::vector<unsigned char> bytes(text.begin(), text.end());
    bytes.resize(bytes.size() + checksumSize);
    appendChecksum(bytes.data(), text.size());
    return bytes;
}

TEST(Fletcher32, IsTheSumOfNumbersAndOfTheirSums)
{
    EXPECT_EQ(checksumOf(""), 0U);
    EXPECT_EQ(checksumOf(std::string("\x01\x02", 2)), 0x01020102U);
    EXPECT_EQ(checksumOf(std::string("\x01\x02\x03\x04", 4)), 0x05080406U);
    EXPECT_EQ(checksumOf(std::string("\x01\x02\x03", 3)), 0x05040402U) << "an odd byte";
}

TEST(Fletcher32, EqualsTheSumOneByOneForLongData)
{
    std::mt19937 engine(1);
    for (int round = 0; round < 400; ++round) {
        std::string text(engine() % 4000, '\0');
        const unsigned kind = engine() % 4;
        for (char& byte : text)
            byte = static_cast<char>(kind == 0   ? 255U
                                     : kind == 1 ? 0U
                                     : kind == 2 ? engine() % 50 / 49
                                                 : engine());
        ASSERT_EQ(checksumOf(text), testsupport::plainFletcher32(text)) << text.size();
    }
}

TEST(HasValidChecksum, FindsAnyChangedByte)
{
    auto bytes = withChecksum("some data, of an odd number!");
    EXPECT_TRUE(hasValidChecksum(bytes.data(), bytes.size()));
    for (unsigned char& byte : bytes) {
        byte ^= 0x10;
        EXPECT_FALSE(hasValidChecksum(bytes.data(), bytes.size()));
        byte ^= 0x10;
    }
}

TEST(HasValidChecksum, AcceptsThatOfEarlyReleasesOfHdf5)
{
    auto bytes = withChecksum("some data");
    auto* checksum = bytes.data() + bytes.size() - checksumSize;
    std::swap(checksum[0], checksum[1]);
    EXPECT_FALSE(hasValidChecksum(bytes.data(), bytes.size()));
    std::swap(checksum[2], checksum[3]);
    EXPECT_TRUE(hasValidChecksum(bytes.data(), bytes.size()));
}

TEST(HasValidChecksum, IsFalseForFewerBytesThanItTakes)
{
    const unsigned char bytes[checksumSize] = {};
    for (std::size_t size = 0; size < checksumSize; ++size)
        EXPECT_FALSE(hasValidChecksum(bytes, size)) << size;
    EXPECT_TRUE(hasValidChecksum(bytes, checksumSize)) << "of no data";
}

} // namespace
} // namespace Ovard::gridio
