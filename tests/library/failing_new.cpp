// SPDX-License-Identifier: BSD-3-Clause
#include "tests/library/failing_new.h"

#include "tests/library/new_operators.h"
#include "vx/plug.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace testsupport {
namespace {

// What the module's threads change.
std::atomic<long> live{0};
std::atomic<std::size_t> countdown{0}; // to the call that fails; 0: none
std::atomic<bool> failed{false};

Failing manner = Failing::once;
Where place = Where::inModule;
bool moduleRuns = false;

} // namespace

void* allocateForNew(std::size_t size, std::size_t alignment)
{
    const bool counts = moduleRuns || place == Where::everywhere;
    if (counts && countdown > 0 && --countdown == 0) {
        failed = true;
        if (manner == Failing::fromThenOn)
            countdown = 1;
        throw std::bad_alloc();
    }
    void* block = nullptr;
    if (posix_memalign(&block, alignment, size) != 0)
        throw std::bad_alloc();
    ++live;
    return block;
}

void releaseFromDelete(void* block) noexcept
{
    --live;
    std::free(block);
}

FailingNew::FailingNew(std::size_t n, Failing failing, Where where)
{
    place = where;
    countdown = n;
    manner = failing;
    failed = false;
}

FailingNew::~FailingNew() { countdown = 0; }

bool FailingNew::hasFailed() { return failed; }

long liveNewBlocks() { return live; }

} // namespace testsupport

namespace {

struct Running {
    Running() { testsupport::moduleRuns = true; }
    ~Running() { testsupport::moduleRuns = false; }
};

} // namespace

extern "C" {

void __real_plugFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[]);
void __real_plugAnyFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[]);

void __wrap_plugFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[])
{
    const Running running;
    __real_plugFunction(nlhs, results, nrhs, arguments);
}

void __wrap_plugAnyFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[])
{
    const Running running;
    __real_plugAnyFunction(nlhs, results, nrhs, arguments);
}

} // extern "C"
