// SPDX-License-Identifier: BSD-3-Clause
#include "tests/properties/typed_library_calls.h"

#include <stdexcept>

namespace properties {
namespace {

template <class Match> const TypedLibraryCalls& find(const Match& matches)
{
    for (const TypedLibraryCalls& calls : typedCalls) {
        if (matches(calls))
            return calls;
    }
    throw std::invalid_argument("no such type");
}

} // namespace

// Pastes the word of the library's functions.
#define PARAMETERS int n, int v
#define CALLS(word, T)                                                                             \
    [](PARAMETERS, void* p) { return nc_get_var_##word(n, v, static_cast<T*>(p)); },               \
        [](PARAMETERS, const std::size_t* s, void* p) {                                            \
            return nc_get_var1_##word(n, v, s, static_cast<T*>(p));                                \
        },                                                                                         \
        [](PARAMETERS, const std::size_t* s, const std::size_t* c, void* p) {                      \
            return nc_get_vara_##word(n, v, s, c, static_cast<T*>(p));                             \
        },                                                                                         \
        [](PARAMETERS, const std::size_t* s, const std::size_t* c, const std::ptrdiff_t* d,        \
           void* p) { return nc_get_vars_##word(n, v, s, c, d, static_cast<T*>(p)); },             \
        [](PARAMETERS, const void* p) {                                                            \
            return nc_put_var_##word(n, v, static_cast<const T*>(p));                              \
        },                                                                                         \
        [](PARAMETERS, const std::size_t* s, const std::size_t* c, const std::ptrdiff_t* d,        \
           const void* p) { return nc_put_vars_##word(n, v, s, c, d, static_cast<const T*>(p)); }, \
        [](PARAMETERS, const char* name, void* p) {                                                \
            return nc_get_att_##word(n, v, name, static_cast<T*>(p));                              \
        }
#define NUMERIC(word, T)                                                                           \
    sizeof(T), CALLS(word, T),                                                                     \
        [](PARAMETERS, const char* name, nc_type x, std::size_t count, const void* p) {            \
            return nc_put_att_##word(n, v, name, x, count, static_cast<const T*>(p));              \
        }

// clang-format off
const TypedLibraryCalls typedCalls[typedCount] = {
    {"Double", NC_DOUBLE, vxDOUBLE_CLASS, NUMERIC(double, double)},
    {"Float",  NC_FLOAT,  vxSINGLE_CLASS, NUMERIC(float, float)},
    {"Int64",  NC_INT64,  vxINT64_CLASS,  NUMERIC(longlong, long long)},
    {"Uint64", NC_UINT64, vxUINT64_CLASS, NUMERIC(ulonglong, unsigned long long)},
    {"Int",    NC_INT,    vxINT32_CLASS,  NUMERIC(int, int)},
    {"Uint",   NC_UINT,   vxUINT32_CLASS, NUMERIC(uint, unsigned int)},
    {"Short",  NC_SHORT,  vxINT16_CLASS,  NUMERIC(short, short)},
    {"Ushort", NC_USHORT, vxUINT16_CLASS, NUMERIC(ushort, unsigned short)},
    {"Schar",  NC_BYTE,   vxINT8_CLASS,   NUMERIC(schar, signed char)},
    {"Uchar",  NC_UBYTE,  vxUINT8_CLASS,  NUMERIC(uchar, unsigned char)},
    {"Text",   NC_CHAR,   vxCHAR_CLASS,   sizeof(char), CALLS(text, char), nullptr},
    {"Ubyte",  NC_UBYTE,  vxUINT8_CLASS,  NUMERIC(ubyte, unsigned char)},
};
// clang-format on

#undef NUMERIC
#undef CALLS
#undef PARAMETERS

const TypedLibraryCalls& typedLibraryCalls(const std::string& suffix)
{
    return find([&](const TypedLibraryCalls& calls) { return calls.suffix == suffix; });
}

const TypedLibraryCalls& callsOfStoredType(nc_type xtype)
{
    return find([&](const TypedLibraryCalls& calls) { return calls.storedType == xtype; });
}

} // namespace properties
