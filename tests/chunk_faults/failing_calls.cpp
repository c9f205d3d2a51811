// SPDX-License-Identifier: BSD-3-Clause
#include "tests/chunk_faults/failing_calls.h"

#include "tests/library/new_operators.h"

#include <hdf5.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace faults {
namespace {

std::atomic<long> live{0};
std::atomic<std::size_t> toHdf5{0}; // calls until the one that fails; 0: none
std::atomic<std::size_t> toNew{0};
std::atomic<bool> failed{false};
std::atomic<const char*> failedName{""};

// Whether this is the call that fails.
bool counts(std::atomic<std::size_t>& left, const char* name)
{
    std::size_t before = left.load();
    while (before > 0 && !left.compare_exchange_weak(before, before - 1)) {
    }
    if (before != 1)
        return false;
    failedName = name;
    failed = true;
    return true;
}

} // namespace

FailingCall::FailingCall(Failing what, std::size_t n)
{
    failed = false;
    failedName = "";
    (what == Failing::hdf5 ? toHdf5 : toNew) = n;
}

FailingCall::~FailingCall() { toHdf5 = toNew = 0; }

bool FailingCall::hasFailed() { return failed; }

std::string FailingCall::name() { return failedName.load(); }

long liveBlocks() { return live; }

} // namespace faults

void* testsupport::allocateForNew(std::size_t size, std::size_t alignment)
{
    if (faults::counts(faults::toNew, "new"))
        throw std::bad_alloc();
    void* block = nullptr;
    if (posix_memalign(&block, alignment, size) != 0)
        throw std::bad_alloc();
    ++faults::live;
    return block;
}

void testsupport::releaseFromDelete(void* block) noexcept
{
    --faults::live;
    std::free(block);
}

extern "C" {

// clang-format off
#define CALL(result, name, parameters, arguments)                                                  \
    result __real_##name parameters;                                                               \
    result __wrap_##name parameters;                                                               \
    result __wrap_##name parameters                                                                \
    {                                                                                              \
        return faults::counts(faults::toHdf5, #name) ? static_cast<result>(-1) : __real_##name arguments; \
    }
#define NO_CALL(result, name, parameters, arguments)
#if H5_VERSION_GE(2, 0, 0)
#define CALL_FROM_2 CALL
#define CALL_BEFORE_2 NO_CALL
#else
#define CALL_FROM_2 NO_CALL
#define CALL_BEFORE_2 CALL
#endif
// clang-format on
#include "tests/chunk_faults/hdf5_calls.inc"
#undef CALL
#undef CALL_FROM_2
#undef CALL_BEFORE_2
#undef NO_CALL

} // extern "C"
