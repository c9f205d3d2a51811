// SPDX-License-Identifier: BSD-3-Clause
#include "tests/host/allocation_ledger.h"

#include "vx/array.h"

#include <limits>
#include <set>

namespace contract {
namespace {

Ledger current;
std::set<void*> blocks;
std::size_t failingAllocation = 0;

} // namespace

void startLedger(std::size_t failing)
{
    blocks.clear();
    current = Ledger();
    failingAllocation = failing;
}

const Ledger& ledger()
{
    current.blocksLive = blocks.size();
    return current;
}

} // namespace contract

// NOLINTBEGIN(bugprone-reserved-identifier): the linker gives these names.
extern "C" {

void* __real_vxCalloc(size_t count, size_t size);
char* __real_vxArrayToString(const vxArray* array);
void __real_vxFree(void* memory);

} // extern "C"

namespace {

void countAllocation()
{
    constexpr std::size_t tooMany = std::numeric_limits<std::size_t>::max();
    if (++contract::current.allocations == contract::failingAllocation)
        __real_vxCalloc(tooMany, tooMany);
}

} // namespace

extern "C" {

void* __wrap_vxCalloc(size_t count, size_t size)
{
    countAllocation();
    void* const memory = __real_vxCalloc(count, size);
    contract::blocks.insert(memory);
    return memory;
}

char* __wrap_vxArrayToString(const vxArray* array)
{
    countAllocation();
    char* const text = __real_vxArrayToString(array);
    if (text != nullptr)
        contract::blocks.insert(text);
    return text;
}

void __wrap_vxFree(void* memory)
{
    if (memory != nullptr && contract::blocks.erase(memory) == 0)
        ++contract::current.strayFrees;
    __real_vxFree(memory);
}

// A creator of arrays: what its parameters are, and what they are called in the call.
#define COUNT_ARRAYS(name, parameters, arguments)                                                  \
    vxArray* __real_##name parameters;                                                             \
    vxArray* __wrap_##name parameters                                                              \
    {                                                                                              \
        countAllocation();                                                                         \
        return __real_##name arguments;                                                            \
    }

COUNT_ARRAYS(vxCreateDoubleScalar, (double value), (value))
COUNT_ARRAYS(vxCreateLogicalScalar, (bool value), (value))
COUNT_ARRAYS(vxCreateString, (const char* text), (text))
COUNT_ARRAYS(vxCreateCharArray, (size_t rank, const size_t* dims), (rank, dims))
COUNT_ARRAYS(vxCreateCharArrayFromBytes, (size_t rank, const size_t* dims, const char* bytes),
             (rank, dims, bytes))
COUNT_ARRAYS(vxCreateNumericArray,
             (size_t rank, const size_t* dims, vxClassID classId, vxComplexity complexity),
             (rank, dims, classId, complexity))
COUNT_ARRAYS(vxCreateUninitNumericArray,
             (size_t rank, const size_t* dims, vxClassID classId, vxComplexity complexity),
             (rank, dims, classId, complexity))
COUNT_ARRAYS(vxCreateCellArray, (size_t rank, const size_t* dims), (rank, dims))
COUNT_ARRAYS(vxCreateStruct, (size_t fieldCount, const char* const* names), (fieldCount, names))

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier)
