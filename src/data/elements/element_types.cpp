// SPDX-License-Identifier: BSD-3-Clause
#include "data/elements/element_types.h"

#include "convert/argument_readers.h"
#include "error_identifiers.h"

#include <cstring>

namespace Ovard::gridio {
namespace {

static_assert(sizeof(double) == 8 && sizeof(float) == 4);
static_assert(sizeof(long long) == 8 && sizeof(int) == 4 && sizeof(short) == 2);

// Each of these is one library call with its element type erased.
template <class T, int (*call)(int, int, T*)> int getVar(int ncid, int varid, void* values)
{
    return call(ncid, varid, static_cast<T*>(values));
}

template <class T, int (*call)(int, int, const T*)>
int putVar(int ncid, int varid, const void* values)
{
    return call(ncid, varid, static_cast<const T*>(values));
}

template <class T,
          int (*call)(int, int, const std::size_t*, const std::size_t*, const std::ptrdiff_t*, T*)>
int getVars(int ncid, int varid, const std::size_t* start, const std::size_t* count,
            const std::ptrdiff_t* stride, void* values)
{
    return call(ncid, varid, start, count, stride, static_cast<T*>(values));
}

template <class T, int (*call)(int, int, const std::size_t*, const std::size_t*,
                               const std::ptrdiff_t*, const T*)>
int putVars(int ncid, int varid, const std::size_t* start, const std::size_t* count,
            const std::ptrdiff_t* stride, const void* values)
{
    return call(ncid, varid, start, count, stride, static_cast<const T*>(values));
}

template <class T, int (*call)(int, int, const char*, T*)>
int getAtt(int ncid, int varid, const char* name, void* values)
{
    return call(ncid, varid, name, static_cast<T*>(values));
}

template <class T, int (*call)(int, int, const char*, nc_type, std::size_t, const T*)>
int putAtt(int ncid, int varid, const char* name, nc_type xtype, std::size_t count,
           const void* values)
{
    return call(ncid, varid, name, xtype, count, static_cast<const T*>(values));
}

template <auto reader>
void storeScalar(const vxArray* argument, std::string_view name, void* element)
{
    const auto value = reader(argument, name);
    std::memcpy(element, &value, sizeof value);
}

} // namespace

// Each pastes the word of the typed library calls.
#define GRIDIO_DATA_CALLS(word, T)                                                                 \
    getVar<T, nc_get_var_##word>, putVar<T, nc_put_var_##word>, getVars<T, nc_get_vars_##word>,    \
        putVars<T, nc_put_vars_##word>
#define GRIDIO_ATTRIBUTE_CALLS(word, T) getAtt<T, nc_get_att_##word>, putAtt<T, nc_put_att_##word>
#define GRIDIO_NUMERIC_CALLS(word, T) GRIDIO_DATA_CALLS(word, T), GRIDIO_ATTRIBUTE_CALLS(word, T)

// "Uchar" and "Ubyte" deliberately differ only in the library calls. A netCDF type is looked up
// from the first row down.
// clang-format off
const ElementType elementTypes[elementTypeCount] = {
    {"Double", vxDOUBLE_CLASS, 8, NC_DOUBLE, &numericForm, GRIDIO_NUMERIC_CALLS(double, double),                storeScalar<readDoubleScalar>},
    {"Float",  vxSINGLE_CLASS, 4, NC_FLOAT,  &numericForm, GRIDIO_NUMERIC_CALLS(float, float),                  storeScalar<readFloatScalar>},
    {"Int64",  vxINT64_CLASS,  8, NC_INT64,  &numericForm, GRIDIO_NUMERIC_CALLS(longlong, long long),           storeScalar<readInt64Scalar>},
    {"Uint64", vxUINT64_CLASS, 8, NC_UINT64, &numericForm, GRIDIO_NUMERIC_CALLS(ulonglong, unsigned long long), storeScalar<readSizeScalar>},
    {"Int",    vxINT32_CLASS,  4, NC_INT,    &numericForm, GRIDIO_NUMERIC_CALLS(int, int),                      storeScalar<readIntScalar>},
    {"Uint",   vxUINT32_CLASS, 4, NC_UINT,   &numericForm, GRIDIO_NUMERIC_CALLS(uint, unsigned int),            storeScalar<readUintScalar>},
    {"Short",  vxINT16_CLASS,  2, NC_SHORT,  &numericForm, GRIDIO_NUMERIC_CALLS(short, short),                  storeScalar<readShortScalar>},
    {"Ushort", vxUINT16_CLASS, 2, NC_USHORT, &numericForm, GRIDIO_NUMERIC_CALLS(ushort, unsigned short),        storeScalar<readUshortScalar>},
    {"Schar",  vxINT8_CLASS,   1, NC_BYTE,   &numericForm, GRIDIO_NUMERIC_CALLS(schar, signed char),            storeScalar<readScharScalar>},
    {"Uchar",  vxUINT8_CLASS,  1, NC_UBYTE,  &numericForm, GRIDIO_NUMERIC_CALLS(uchar, unsigned char),          storeScalar<readUcharScalar>},
    {"Ubyte",  vxUINT8_CLASS,  1, NC_UBYTE,  &numericForm, nullptr, nullptr, nullptr, nullptr, GRIDIO_ATTRIBUTE_CALLS(ubyte, unsigned char), storeScalar<readUcharScalar>},
    {"Text",   vxCHAR_CLASS,   1, NC_CHAR,   &textForm,    GRIDIO_DATA_CALLS(text, char), getAtt<char, nc_get_att_text>, nullptr, nullptr},
};
// clang-format on

#undef GRIDIO_NUMERIC_CALLS
#undef GRIDIO_ATTRIBUTE_CALLS
#undef GRIDIO_DATA_CALLS

namespace {

constexpr std::int32_t ubyteRow = 10;
constexpr std::int32_t textRow = 11;

constexpr std::int32_t rowOfCode(const TypedFamily& family, std::int32_t code)
{
    const std::int32_t row = code - family.firstCode;
    return row == ubyteRow && !family.hasUbyte ? textRow : row;
}

constexpr std::int32_t lastRow(const TypedFamily& family)
{
    return rowOfCode(family, family.lastCode);
}

static_assert(lastRow(attributeReads) == textRow && lastRow(attributeWrites) == ubyteRow);
static_assert(lastRow(wholeReads) == textRow && lastRow(wholeWrites) == textRow);
static_assert(lastRow(subsetReads) == textRow && lastRow(subsetWrites) == textRow);

} // namespace

const ElementType* findElementType(const TypedFamily& family, std::int32_t code)
{
    if (code < family.firstCode || code > family.lastCode)
        return nullptr;
    return &elementTypes[rowOfCode(family, code)];
}

const ElementType& elementTypeOf(const TypedFamily& family, const OperationEntry* entry)
{
    const ElementType* element = findElementType(family, entry->code);
    if (element == nullptr)
        vxErrMsgId(netcdf::unrecognizedOperation(entry->name));
    return *element;
}

const ElementType* findExternalType(nc_type xtype)
{
    for (const ElementType& element : elementTypes) {
        if (element.externalType == xtype)
            return &element;
    }
    return nullptr;
}

} // namespace Ovard::gridio
