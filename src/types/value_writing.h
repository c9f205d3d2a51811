// SPDX-License-Identifier: BSD-3-Clause
// From arrays of the host to values in memory that the library can read.
#pragma once

#include "convert/host_memory.h"
#include "types/places.h"
#include "types/type_description.h"
#include "types/value_place.h"

#include <vector>

namespace Ovard::gridio {

// How many values of the type an array holds, by its class and number of elements: a char row is
// one string or one label. Of a structure, that of its first field; 0 where it cannot be said, as
// the values are then refused when they are converted.
std::size_t countValues(const Type& type, const vxArray* values);

// Values that a script gives, as the library is to read them. All checks are made when it is
// constructed, which raises the errors of any_error_identifiers.h and the host's out-of-memory
// error. Memory for strings and vlens within the values ends with it.
class OutgoingValues {
public:
    // The array must outlive it: numbers of the type's own class are used where they lie.
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
    char* blockEnd_ = nullptr; // of the block that small memory is taken from
    std::size_t blockLeft_ = 0;
    const void* values_ = nullptr;
};

} // namespace Ovard::gridio
