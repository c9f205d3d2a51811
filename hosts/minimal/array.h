// SPDX-License-Identifier: BSD-3-Clause
// What a vxArray is in this host. In yours it is a view of the interpreter's own value.
#pragma once

#include "vx/array.h"

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace minimal {

// A value of a script, as several variables of a script may hold it.
using Value = std::shared_ptr<vxArray>;

struct FreeElements {
    void operator()(void* elements) const noexcept { std::free(elements); }
};

} // namespace minimal

struct vxArray {
    vxClassID classId = vxUNKNOWN_CLASS;
    std::vector<size_t> dims;
    size_t count = 0;
    bool isComplex = false; // the imaginary part itself is never looked at

    // count elements; null when they take no bytes.
    std::unique_ptr<void, minimal::FreeElements> elements;

    std::vector<minimal::Value> contents; // of the cells or fields; null in an empty one
    std::vector<std::string> fieldNames;
};

namespace minimal {

// The bytes of one element behind vxGetData.
size_t elementSize(vxClassID classId);

// An array whose elements are all zero, or may hold anything. Throws std::bad_alloc, which is this
// host's out-of-memory error.
enum class Elements { zeros, anything };
Value makeArray(vxClassID classId, size_t rank, const size_t* dims, Elements elements);

} // namespace minimal
