// SPDX-License-Identifier: BSD-3-Clause
// How elements pass between the host's arrays and the library: numbers directly in the array's
// storage, text through a buffer of bytes, since the host's characters are 16-bit units. Each row
// of the element table has one of the two forms; nothing else distinguishes text from numbers.
#pragma once

#include "convert/host_memory.h"
#include "data/elements/index_vectors.h"

#include <string>
#include <string_view>

namespace Ovard::gridio {

struct ElementType;

// Values of an element on their way from the library into a host array.
struct IncomingElements {
    vxArray* array = nullptr; // the host's; null for text, which is created at the end
    HostMemory<char> buffer;  // null for elements that the library writes into the array itself
    std::size_t count = 0;

    // Where the library is to write.
    void* destination() const { return buffer ? buffer.get() : vxGetWritableData(array); }
};

struct ElementForm {
    // An array of these dimensions for count values of a variable. textUnitSize: bytes of the
    // buffer for each character.
    IncomingElements (*create)(const ElementType& element, const SizeVector& hostDimensions,
                               std::size_t count, std::size_t textUnitSize);

    // Moves the values that were read into the array.
    void (*finish)(const IncomingElements& elements);

    // An attribute of count values: a row, 0-by-0 for none. Its buffer has at least
    // leastAttributeBytes, and bytes that the library does not write are zero.
    IncomingElements (*createAttribute)(const ElementType& element, std::size_t count);

    // The finished attribute. Text deliberately ends at the first NUL: padding is dropped, and so
    // is everything after an embedded NUL.
    vxArray* (*finishAttribute)(const ElementType& element, const IncomingElements& elements);

    // The 0-by-0 result of a variable without values.
    vxArray* (*createEmpty)(const ElementType& element);

    // The elements of data to be written, in the form that the library reads; bytes owns those of
    // text. Raises dataSizeMismatch when the storage holds fewer bytes than its elements need.
    const void* (*borrow)(const vxArray* data, const ElementType& element, std::string& bytes);

    // Reads a fill value into 8 bytes. Raises badScalarArgument.
    void (*readFillValue)(const vxArray* argument, const ElementType& element, void* value);

    // A 1-by-1 array of zero for a fill value, which the library writes into its storage.
    vxArray* (*createFillValue)(const ElementType& element);
};

extern const ElementForm numericForm;
extern const ElementForm textForm;

} // namespace Ovard::gridio
