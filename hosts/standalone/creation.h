// SPDX-License-Identifier: BSD-3-Clause
// The common part of every vxCreate function.
#pragma once

#include "hosts/standalone/array.h"
#include "hosts/standalone/errors.h"
#include "hosts/standalone/ledger.h"

#include <new>

namespace standalone {

// Creates an array that belongs to the running call.
template <class Make> vxArray* createForCall(const Make& make)
{
    Ledger& records = ledger();
    records.countAllocation();
    try {
        ArrayOwner array = make();
        array->writable = true;
        records.created.push_back(array);
        ++records.arraysCreated;
        return array.get();
    } catch (const std::bad_alloc&) {
        throw OutOfMemory();
    }
}

} // namespace standalone
