// SPDX-License-Identifier: BSD-3-Clause
#include "types/library_values.h"

#include <boost/numeric/conversion/cast.hpp>

#include <cstring>

namespace Ovard::gridio {
namespace {

void release(const Type& type, char* value);

void releaseEach(const Type& type, char* values, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        release(type, values + i * type.size);
}

// Releases the memory that one value owns, with the library's functions, since its allocator may
// not be ours; those for one string and for one vlen are in every release. The pointers are copied
// out first, since a value may be unaligned.
void release(const Type& type, char* value)
{
    if (!type.ownsMemory)
        return;
    if (type.kind == TypeKind::string) {
        char* text = nullptr;
        std::memcpy(&text, value, sizeof text);
        static_cast<void>(nc_free_string(1, &text)); // it cannot fail
    } else if (type.kind == TypeKind::vlen) {
        nc_vlen_t vlen{};
        std::memcpy(&vlen, value, sizeof vlen);
        if (vlen.p != nullptr)
            releaseEach(*type.base, static_cast<char*>(vlen.p), vlen.len);
        static_cast<void>(nc_free_vlen(&vlen)); // it cannot fail
    } else {
        for (const Field& field : type.fields)
            releaseEach(*field.type, value + field.offset, field.count);
    }
}

} // namespace

HostMemory<char> zeroedValues(const Type& type, std::size_t count)
{
    std::size_t bytes = 0;
    if (__builtin_mul_overflow(count, type.size, &bytes))
        throw boost::numeric::positive_overflow();
    return HostMemory<char>(static_cast<char*>(vxCalloc(bytes, 1)));
}

LibraryValues::LibraryValues(const Type& type, std::size_t count)
    : type_(type), count_(count), memory_(zeroedValues(type, count))
{
}

LibraryValues::~LibraryValues()
{
    if (type_.ownsMemory)
        releaseEach(type_, memory_.get(), count_);
}

} // namespace Ovard::gridio
