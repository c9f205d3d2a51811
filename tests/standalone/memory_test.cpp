// SPDX-License-Identifier: BSD-3-Clause
// The host's allocator: blocks for scratch space and for narrow text.
#include "tests/standalone/stand_in_module.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

namespace {

using standalone::Value;

constexpr std::size_t most = std::numeric_limits<std::size_t>::max();

class Memory : public HostContract {};

TEST_F(Memory, IsAllZeroAndAlignedForAnyElement)
{
    for (const std::size_t count : {1u, 7u, 4096u}) {
        void* block = vxCalloc(count, 3);
        const auto* bytes = static_cast<const unsigned char*>(block);
        EXPECT_TRUE(std::all_of(bytes, bytes + 3 * count, [](unsigned char b) { return b == 0; }));
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t), 0u);
        vxFree(block);
    }
}

TEST_F(Memory, IsNeverNullAlsoForZeroBytes)
{
    const std::size_t sizes[][2] = {{0, 0}, {0, 8}, {8, 0}, {most, 0}, {0, most}};
    for (const auto& [count, size] : sizes) {
        void* block = vxCalloc(count, size);
        EXPECT_NE(block, nullptr);
        vxFree(block);
    }
}

TEST_F(Memory, RaisesOutOfMemoryForSizesThatNothingCanHold)
{
    const std::size_t sizes[][2] = {
        {most, 1}, {1, most}, {most, most}, {most / 2 + 1, 2}, {1, most / 2}};
    for (const auto& [count, size] : sizes) {
        const auto outcome = inCall([c = count, s = size](const Call&) { vxCalloc(c, s); });
        ASSERT_TRUE(outcome.raised) << count << " times " << size;
        EXPECT_EQ(outcome.raised->name(), "outOfMemory");
    }
}

TEST_F(Memory, RaisesOutOfMemoryWhenExhausted)
{
    const std::function<void(const vxArray*)> allocating[] = {
        [](const vxArray*) { vxCalloc(1, 1); },
        [](const vxArray* text) { vxArrayToString(text); },
    };
    for (const auto& allocate : allocating) {
        host.failAllocation(1);
        const auto outcome =
            inCall([&](const Call& call) { allocate(call.arguments[0]); }, {"text"});
        ASSERT_TRUE(outcome.raised);
        EXPECT_EQ(outcome.raised->name(), "outOfMemory");
    }
    EXPECT_EQ(host.blocksAllocated(), 0u);
}

TEST_F(Memory, TakesNullForNothingToFree) { vxFree(nullptr); }

TEST_F(Memory, IsReleasedBlockByBlock)
{
    void* first = vxCalloc(1, 8);
    void* second = vxCalloc(1, 8);
    EXPECT_EQ(host.liveBlocks(), 2u);
    vxFree(first);
    EXPECT_EQ(host.liveBlocks(), 1u);
    vxFree(second);
    EXPECT_EQ(host.blocksAllocated(), 2u);
    EXPECT_EQ(host.blocksFreed(), 2u);
}

TEST_F(Memory, HoldsAnArraysTextInStorageOrderUpToANul)
{
    const struct {
        Value value;
        std::string narrow;
    } cases[] = {
        {"open", "open"},
        {"", ""},
        {Value::empty(vxCHAR_CLASS, {5, 0}), ""},
        {Value::text({2, 2}, u"acbd"), "acbd"},
        {Value::text({1, 2}, u"\u00E9\u20AC"), "\xC3\xA9\xE2\x82\xAC"},
    };
    for (const auto& c : cases) {
        char* text = vxArrayToString(c.value.array());
        ASSERT_NE(text, nullptr) << c.value;
        EXPECT_EQ(std::string(text), c.narrow) << c.value;
        vxFree(text);
    }
}

TEST_F(Memory, KeepsCharactersBehindANul)
{
    char* text = vxArrayToString(Value::text({1, 3}, std::u16string_view(u"a\0b", 3)).array());
    EXPECT_EQ(std::memcmp(text, "a\0b", 4), 0);
    vxFree(text);
}

TEST_F(Memory, HoldsNoTextOfAnythingButChar)
{
    const Value others[] = {1,
                            true,
                            Value::row<std::uint8_t>({104, 105}),
                            Value::cell({1, 1}, {"text"}),
                            Value::empty(),
                            Value::anythingElse()};
    for (const Value& value : others)
        EXPECT_EQ(vxArrayToString(value.array()), nullptr) << value;
    EXPECT_EQ(host.blocksAllocated(), 0u);
}

} // namespace
