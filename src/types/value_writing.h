// SPDX-License-Identifier: BSD-3-Clause
// Conversion of arrays of the host to values in memory that the library can read.
#pragma once

#include "convert/host_memory.h"
#include "types/places.h"
#include "types/type_description.h"
#include "types/value_place.h"

#include <vector>

namespace Ovard::gridio {

// How many values of the type an array holds, by its class and number of elements: a char row is
// one string or one label. For a structure, that of its first field; 0 if it cannot be determined,
// since such values are refused when they are converted.
std::size_t countValues(const Type& type, const vxArray* values);

// The values of a script in the form that the library reads. The constructor makes all checks, and
// raises the errors of any_error_identifiers.h and the host's out-of-memory error. The object owns
// the memory of strings and vlens within the values.
class OutgoingValues {
public:
    // The array must outlive the object: numbers of the type's own class are used in place.
    OutgoingValues(const Type& type, const vxArray* values, std::size_t count);

    const void* get() const { return values_; }

private:
    void convert(const Type& type, const WritePlaces& places, const vxArray* values,
                 const ValuePlace& place);
    void convertNumbers(const Type& type, const WritePlaces& places, const vxArray* values,
                        const ValuePlace& place);
    void convertText(const WritePlaces& places, const vxArray* values, const ValuePlace& place);
    void convertStrings(const WritePlaces& places, const vxArray* values, const ValuePlace& place);
    void convertString(char* target, const vxArray* text, const ValuePlace& place);
    void convertEnumeration(const Type& type, const WritePlaces& places, const vxArray* values,
                            const ValuePlace& place);
    void convertVlens(const Type& type, const WritePlaces& places, const vxArray* values,
                      const ValuePlace& place);
    void convertVlen(const Type& base, char* target, const vxArray* elements,
                     const ValuePlace& place);
    void convertStructure(const Type& type, const WritePlaces& places, const vxArray* values,
                          const ValuePlace& place);
    void convertBytes(const Type& type, const WritePlaces& places, const vxArray* values,
                      const ValuePlace& place);

    // Memory within values, all zero.
    char* allocate(std::size_t count, std::size_t size, std::size_t alignment);

    HostMemory<char> memory_;
    std::vector<HostMemory<char>> blocks_;
    char* blockEnd_ = nullptr; // of the block from which small pieces are allocated
    std::size_t blockLeft_ = 0;
    const void* values_ = nullptr;
};

} // namespace Ovard::gridio
