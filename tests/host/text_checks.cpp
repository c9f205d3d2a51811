// SPDX-License-Identifier: BSD-3-Clause
// Text, and the host's allocator.
#include "tests/host/contract.h"

#include "vx/text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

namespace contract {

namespace {

constexpr std::size_t most = std::numeric_limits<std::size_t>::max();

std::string narrow(std::u16string_view text)
{
    return fnd::filesystem::codecvt_ustring_to_narrow_string()(text);
}

void units(Check& check)
{
    check.expect(vxGetText(check.sample(textRow)) == u"open", "a row");
    check.expect(vxGetText(check.sample(textMatrix)) == std::u16string_view(u"a\0cd", 4),
                 "a matrix, in storage order");
    check.expect(vxGetText(check.sample(emptyChar)).empty(), "no characters");
    const std::u16string_view row = vxGetText(check.sample(textRow));
    check.expect(row.data() == vxGetData(check.sample(textRow)), "vxGetText is vxGetData");
}

void bytes(Check& check)
{
    char four[] = "....";
    vxGetCharBytes(check.sample(textMatrix), four);
    check.expect(std::memcmp(four, "a\0cd", 5) == 0, "vxGetCharBytes");
    vxGetCharBytes(check.sample(emptyChar), nullptr);
}

void narrowForms(Check& check)
{
    std::u16string ascii;
    for (char16_t unit = 0; unit < 0x80; ++unit)
        ascii += unit;
    check.expect(narrow(ascii) == std::string(ascii.begin(), ascii.end()), "ASCII stays as it is");
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) // also halves of surrogate pairs
        check.expect(!narrow(std::u16string(1, static_cast<char16_t>(unit))).empty(),
                     "a narrow form of every unit");
    check.expect(narrow({}).empty(), "nothing of nothing");
}

void strings(Check& check)
{
    char* text = vxArrayToString(check.sample(textRow));
    check.expect(std::strcmp(text, "open") == 0, "a row");
    vxFree(text);
    text = vxArrayToString(check.sample(textMatrix));
    check.expect(std::memcmp(text, "a\0cd", 5) == 0, "characters behind a NUL");
    vxFree(text);
    text = vxArrayToString(check.sample(emptyChar));
    check.expect(*text == '\0', "an empty text");
    vxFree(text);
    for (const Sample sample : {doubles, uint8s, logicals, cells, structs, other})
        check.expect(vxArrayToString(check.sample(sample)) == nullptr, "null for another class");
}

void memory(Check& check)
{
    for (const std::size_t count : {1U, 7U, 4096U, 1U << 23}) {
        void* block = vxCalloc(count, 3);
        const auto* first = static_cast<const unsigned char*>(block);
        check.expect(std::all_of(first, first + 3 * count, [](unsigned char b) { return b == 0; }),
                     "all zero");
        check.expect(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t) == 0,
                     "aligned for any element");
        std::memset(block, 1, 3 * count);
        vxFree(block);
    }
    const std::size_t nothing[][2] = {{0, 0}, {0, 8}, {8, 0}, {most, 0}, {0, most}};
    for (const auto& [count, size] : nothing) {
        void* block = vxCalloc(count, size);
        check.expect(block != nullptr, "never null");
        vxFree(block);
    }
    vxFree(nullptr);
}

void manyBlocks(Check& check)
{
    std::vector<unsigned char*> blocks;
    for (unsigned i = 0; i < 200; ++i) {
        blocks.push_back(static_cast<unsigned char*>(vxCalloc(i + 1, 1)));
        std::memset(blocks.back(), static_cast<int>(i), i + 1);
    }
    for (unsigned i = 0; i < 200; i += 2)
        vxFree(blocks[i]);
    for (unsigned i = 1; i < 200; i += 2) {
        const auto isOwn = [i](unsigned char byte) { return byte == i; };
        check.expect(std::all_of(blocks[i], blocks[i] + i + 1, isOwn), "blocks do not overlap");
        vxFree(blocks[i]);
    }
}

void noMemory(Check& check)
{
    const std::size_t absurd[][2] = {
        {most, 1}, {1, most}, {most, most}, {most / 2 + 1, 2}, {1, most / 2}};
    for (const auto& sizes : absurd)
        check.expectNoMemory([&] { vxCalloc(sizes[0], sizes[1]); }, "vxCalloc raises");
}

} // namespace

std::vector<CheckEntry> textChecks()
{
    return {
        {"TextHasItsUnitsInStorageOrder", 1, "returns", units},
        {"TextHandsOutItsBytes", 1, "returns", bytes},
        {"TextHasANarrowFormOfEveryUnit", 1, "returns", narrowForms},
        {"StringsAreOfTextOnly", 1, "returns", strings},
        {"MemoryIsZeroAlignedAndNeverNull", 1, "returns", memory},
        {"MemoryIsReleasedInAnyOrder", 1, "returns", manyBlocks},
        {"MemoryBeyondMeasureRaises", 1, "returns", noMemory},
    };
}

} // namespace contract
