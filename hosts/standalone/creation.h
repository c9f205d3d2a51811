// SPDX-License-Identifier: BSD-3-Clause
// What every vxCreate function comes down to.
#pragma once

#include "hosts/standalone/array.h"
#include "hosts/standalone/errors.h"
#include "hosts/standalone/ledger.h"

#include <new>

namespace standalone {

// Makes an array and leaves it with the call that is under way.
template <class Make> vxArray* createForCall(const Make& make)
{
    Ledger& books = ledger();
    books.countAllocation();
    try {
        ArrayOwner array = make();
        array->writable = true;
        books.created.push_back(array);
        ++books.arraysCreated;
        return array.get();
    } catch (const std::bad_alloc&) {
        throw OutOfMemory();
    }
}

} // namespace standalone
