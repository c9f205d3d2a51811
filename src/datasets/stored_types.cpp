// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/stored_types.h"

namespace Ovard::gridio {

std::optional<cf::StoredType> storedTypeOf(nc_type xtype)
{
    switch (xtype) {
    case NC_BYTE:
        return cf::StoredType::int8;
    case NC_UBYTE:
        return cf::StoredType::uint8;
    case NC_SHORT:
        return cf::StoredType::int16;
    case NC_USHORT:
        return cf::StoredType::uint16;
    case NC_INT:
        return cf::StoredType::int32;
    case NC_UINT:
        return cf::StoredType::uint32;
    case NC_INT64:
        return cf::StoredType::int64;
    case NC_UINT64:
        return cf::StoredType::uint64;
    case NC_FLOAT:
        return cf::StoredType::float32;
    case NC_DOUBLE:
        return cf::StoredType::float64;
    default:
        return std::nullopt;
    }
}

bool isSignedInteger(cf::StoredType type)
{
    return type == cf::StoredType::int8 || type == cf::StoredType::int16 ||
           type == cf::StoredType::int32 || type == cf::StoredType::int64;
}

bool isFloating(cf::StoredType type)
{
    return type == cf::StoredType::float32 || type == cf::StoredType::float64;
}

cf::StoredType unsignedOf(cf::StoredType type)
{
    return isSignedInteger(type)
               ? static_cast<cf::StoredType>(static_cast<int>(type) + 1) // declared in pairs
               : type;
}

static_assert(static_cast<int>(cf::StoredType::uint64) ==
              static_cast<int>(cf::StoredType::int64) + 1);

vxClassID classOf(cf::StoredType type)
{
    constexpr vxClassID classes[] = {vxINT8_CLASS,   vxUINT8_CLASS,  vxINT16_CLASS, vxUINT16_CLASS,
                                     vxINT32_CLASS,  vxUINT32_CLASS, vxINT64_CLASS, vxUINT64_CLASS,
                                     vxSINGLE_CLASS, vxDOUBLE_CLASS};
    return classes[static_cast<int>(type)];
}

cf::StoredValue defaultFillOf(cf::StoredType type)
{
    // clang-format off
    switch (type) {
    case cf::StoredType::int8:    return cf::storedValue<std::int8_t>(NC_FILL_BYTE);
    case cf::StoredType::uint8:   return cf::storedValue<std::uint8_t>(NC_FILL_UBYTE);
    case cf::StoredType::int16:   return cf::storedValue<std::int16_t>(NC_FILL_SHORT);
    case cf::StoredType::uint16:  return cf::storedValue<std::uint16_t>(NC_FILL_USHORT);
    case cf::StoredType::int32:   return cf::storedValue<std::int32_t>(NC_FILL_INT);
    case cf::StoredType::uint32:  return cf::storedValue<std::uint32_t>(NC_FILL_UINT);
    case cf::StoredType::int64:   return cf::storedValue<std::int64_t>(NC_FILL_INT64);
    case cf::StoredType::uint64:  return cf::storedValue<std::uint64_t>(NC_FILL_UINT64);
    case cf::StoredType::float32: return cf::storedValue<float>(NC_FILL_FLOAT);
    case cf::StoredType::float64: break;
    }
    // clang-format on
    return cf::storedValue<double>(NC_FILL_DOUBLE);
}

} // namespace Ovard::gridio
