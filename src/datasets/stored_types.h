// SPDX-License-Identifier: BSD-3-Clause
// The types that stored values have, as netCDF and as the host name them.
#pragma once

#include "cf/decoding.h"
#include "vx/array.h"

#include <netcdf.h>

#include <cstdint>
#include <optional>

namespace Ovard::gridio {

// The type of stored values for a netCDF type; none for a type without numbers.
std::optional<cf::StoredType> storedTypeOf(nc_type xtype);

bool isSignedInteger(cf::StoredType type);
bool isFloating(cf::StoredType type);

// The unsigned type of the same size, for signed integers; any other type as it is.
cf::StoredType unsignedOf(cf::StoredType type);

vxClassID classOf(cf::StoredType type);

// The library's default fill value of the type.
cf::StoredValue defaultFillOf(cf::StoredType type);

// Calls visit with a zero of the C type.
template <class Visit> auto withTypeOf(cf::StoredType type, Visit&& visit)
{
    // clang-format off
    switch (type) {
    case cf::StoredType::int8:    return visit(std::int8_t{});
    case cf::StoredType::uint8:   return visit(std::uint8_t{});
    case cf::StoredType::int16:   return visit(std::int16_t{});
    case cf::StoredType::uint16:  return visit(std::uint16_t{});
    case cf::StoredType::int32:   return visit(std::int32_t{});
    case cf::StoredType::uint32:  return visit(std::uint32_t{});
    case cf::StoredType::int64:   return visit(std::int64_t{});
    case cf::StoredType::uint64:  return visit(std::uint64_t{});
    case cf::StoredType::float32: return visit(float{});
    case cf::StoredType::float64: break;
    }
    // clang-format on
    return visit(double{});
}

} // namespace Ovard::gridio
