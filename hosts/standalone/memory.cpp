// SPDX-License-Identifier: BSD-3-Clause
// Memory blocks that the module allocates and releases itself.
#include "hosts/standalone/ledger.h"
#include "hosts/standalone/text.h"

#include "vx/text.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

namespace {

using standalone::Ledger;
using standalone::ledger;
using standalone::OutOfMemory;

void* allocateBlock(std::size_t bytes)
{
    Ledger& books = ledger();
    void* block = std::calloc(1, std::max<std::size_t>(bytes, 1)); // never null, also for nothing
    if (block == nullptr)
        throw OutOfMemory();
    try {
        books.blocks.push_back(block);
    } catch (const std::bad_alloc&) {
        std::free(block);
        throw OutOfMemory();
    }
    ++books.blocksAllocated;
    return block;
}

} // namespace

char* vxArrayToString(const vxArray* array)
{
    if (array->classId != vxCHAR_CLASS)
        return nullptr;
    ledger().countAllocation();
    try {
        const std::string text = standalone::toUtf8(vxGetText(array));
        char* block = static_cast<char*>(allocateBlock(text.size() + 1));
        std::memcpy(block, text.data(), text.size());
        return block;
    } catch (const std::bad_alloc&) {
        throw OutOfMemory();
    }
}

void* vxCalloc(size_t count, size_t size)
{
    ledger().countAllocation();
    return allocateBlock(ledger().checkedBytes(count, size));
}

void vxFree(void* memory)
{
    if (memory == nullptr)
        return;
    Ledger& books = ledger();
    const auto block = std::find(books.blocks.rbegin(), books.blocks.rend(), memory);
    if (block == books.blocks.rend()) {
        books.noteBreach("a block was freed that is not allocated, or no longer");
        return;
    }
    books.blocks.erase(std::next(block).base());
    ++books.blocksFreed;
    std::free(memory);
}
