// SPDX-License-Identifier: BSD-3-Clause
// Allocation records, and unloading the module.
#include "hosts/standalone/ledger.h"

#include "vx/plug.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <utility>

namespace standalone {

namespace {

// An overcommitting system would grant more than this, and kill the process later, when the pages
// are touched.
std::size_t memoryOfMachine()
{
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long pageSize = sysconf(_SC_PAGE_SIZE);
    if (pages <= 0 || pageSize <= 0)
        return std::numeric_limits<std::size_t>::max() / 4;
    return static_cast<std::size_t>(pages) * static_cast<std::size_t>(pageSize);
}

// Unloads the module when the process ends. Thread-local, since thread-local objects of the main
// thread are destroyed before all static ones, including those that the module constructs later.
struct EndOfProcess {
    ~EndOfProcess()
    {
        Ledger& books = ledger();
        const std::size_t before = books.warnings.size();
        books.unload();
        for (std::size_t i = before; i < books.warnings.size(); ++i)
            std::cerr << "warning: " << books.warnings[i].message << std::endl;
    }
};

} // namespace

Ledger& ledger()
{
    // Never destroyed: arrays of static storage duration still report their release.
    static Ledger& books = *new Ledger;
    return books;
}

Ledger::Ledger() { reset(); }

void Ledger::countAllocation()
{
    ++allocations;
    if (allocations == failingAllocation)
        throw OutOfMemory();
}

std::size_t Ledger::checkedBytes(std::size_t count, std::size_t size) const
{
    if (size != 0 && count > byteLimit / size)
        throw OutOfMemory();
    return count * size;
}

ArrayOwner Ledger::takeCreated(const vxArray* array) noexcept
{
    const auto isIt = [array](const ArrayOwner& owner) { return owner.get() == array; };
    const auto found = std::find_if(created.rbegin(), created.rend(), isIt);
    if (found == created.rend())
        return nullptr;
    ArrayOwner owner = std::move(*found);
    created.erase(std::next(found).base());
    return owner;
}

void Ledger::noteBreach(const char* what) noexcept
{
    try {
        breaches.emplace_back(what);
    } catch (const std::exception&) {
        std::cerr << "breach: " << what << std::endl; // no memory to record it
    }
}

bool Ledger::unload()
{
    if (unloadHandler == nullptr)
        return false;
    void (*const handler)() = std::exchange(unloadHandler, nullptr);
    try {
        handler();
    } catch (...) {
        noteBreach("the unload handler let an exception out");
    }
    return true;
}

void Ledger::reset()
{
    created.clear();
    for (void* block : blocks)
        std::free(block);
    blocks.clear();
    arraysCreated = blocksAllocated = blocksFreed = 0;
    allocations = failingAllocation = 0;
    byteLimit = memoryOfMachine();
    pattern.reset();
    raiser = Raiser::returns;
    warnings.clear();
    breaches.clear();
    unloadRegistrations = 0;
    continueQuestions = interruptedQuestion = 0;
    progressShown = operationsEnded = 0;
    lastProgress = 0;
}

} // namespace standalone

void plugAtExit(void (*handler)())
{
    static thread_local standalone::EndOfProcess endOfProcess;
    static_cast<void>(endOfProcess);
    standalone::ledger().unloadHandler = handler;
    ++standalone::ledger().unloadRegistrations;
}
