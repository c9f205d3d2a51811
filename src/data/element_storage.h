// SPDX-License-Identifier: BSD-3-Clause
// Where the library reads elements from and writes them to. Numeric elements lie in the host array
// itself; text goes through a byte buffer, since the host's characters are 16-bit units.
#pragma once

#include "convert/host_memory.h"
#include "data/element_types.h"
#include "data/index_vectors.h"

#include <string>

namespace Ovard::gridio {

// The result of a typed read, from its creation to its last byte.
class ElementResult {
public:
    // Creates the array and stores it in the result slot at once. textUnitSize: bytes that the
    // buffer of a text read takes for each element. Raises the host's out-of-memory error; throws a
    // Boost overflow when the product of the dimensions does.
    ElementResult(vxArray*& slot, const ElementType& element, const SizeVector& hostDimensions,
                  std::size_t textUnitSize);

    // Where the library is to write count() elements.
    void* destination() const { return buffer_ ? buffer_.get() : vxGetWritableData(array_); }
    std::size_t count() const { return count_; }

    // Brings text into the array, each byte widened by sign extension: bytes from 0x80 become units
    // from 0xFF80, deliberately. To be called when the read has succeeded.
    void finish();

private:
    std::size_t count_;
    vxArray* array_; // the host's
    HostMemory<char> buffer_;
};

// The data argument of a typed write, as the library is to read it.
class ElementSource {
public:
    // Raises dataSizeMismatch when the array's storage holds fewer bytes than its count of elements
    // needs; its class is deliberately not checked. To be made right before the library call.
    ElementSource(const vxArray* data, const ElementType& element);

    const void* get() const { return values_; }

private:
    std::string text_;
    const void* values_;
};

} // namespace Ovard::gridio
