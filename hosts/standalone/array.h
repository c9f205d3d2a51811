// SPDX-License-Identifier: BSD-3-Clause
// The definition of vxArray in this host: a class, dimensions, and a block of elements or a list of
// arrays.
#pragma once

#include "vx/array.h"

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace standalone {

struct FreeElements {
    void operator()(void* elements) const noexcept { std::free(elements); }
};
using Elements = std::unique_ptr<void, FreeElements>;

// Shared, because a Value may be copied; an array never changes once it has an owner.
using ArrayOwner = std::shared_ptr<vxArray>;

// 8 for double, 2 for char, 1 for logical, 0 for cells, structures and anything else.
std::size_t elementSize(vxClassID classId) noexcept;

bool isNumericClass(vxClassID classId) noexcept;

enum class Contents { zeros, anything };

// An array of that class and those dimensions, extended to rank 2. Throws OutOfMemory if the number
// of bytes overflows, exceeds the ledger's limit, or cannot be allocated.
ArrayOwner makeArray(vxClassID classId, std::size_t rank, const std::size_t* dims,
                     Contents contents);

} // namespace standalone

struct vxArray {
    vxClassID classId = vxUNKNOWN_CLASS;
    std::vector<std::size_t> dims; // at least two, fastest first
    std::size_t count = 0;         // product of dims
    standalone::Elements elements; // count times the element size; null when that is zero bytes
    standalone::Elements imaginary;
    // The contents of a cell array, or of the fields of a structure of one element; null for an
    // empty one.
    std::vector<standalone::ArrayOwner> cells;
    std::vector<std::string> fieldNames; // of a structure
    bool writable = false;               // created by the module in the running call

    vxArray();
    ~vxArray();
    vxArray(const vxArray&) = delete;
    vxArray& operator=(const vxArray&) = delete;
};
