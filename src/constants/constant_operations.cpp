// SPDX-License-Identifier: BSD-3-Clause
#include "operation_entry.h"
#include "constants/constant_table.h"
#include "convert/argument_readers.h"
#include "error_identifiers.h"

#include <netcdf.h>

#include <algorithm>
#include <cctype>
#include <cstring>

namespace Ovard::gridio::operations {
namespace {

constexpr std::size_t scalarDims[] = {1, 1};

template <class T> vxArray* typedScalar(vxClassID classId, T value)
{
    vxArray* scalar = classId == vxCHAR_CLASS
                          ? vxCreateCharArray(2, scalarDims)
                          : vxCreateNumericArray(2, scalarDims, classId, vxREAL);
    std::memcpy(vxGetWritableData(scalar), &value, sizeof value);
    return scalar;
}

// The eleven constants that are returned in the class of their netCDF type.
struct TypedConstant {
    const char* shortName;
    vxArray* (*create)();
};

// clang-format off
const TypedConstant typedConstants[] = {
    {"FILL_BYTE",   [] { return typedScalar<signed char>(vxINT8_CLASS, NC_FILL_BYTE); }},
    {"FILL_CHAR",   [] { return typedScalar<char16_t>(vxCHAR_CLASS, NC_FILL_CHAR); }},
    {"FILL_SHORT",  [] { return typedScalar<short>(vxINT16_CLASS, NC_FILL_SHORT); }},
    {"FILL_INT",    [] { return typedScalar<int>(vxINT32_CLASS, NC_FILL_INT); }},
    {"FILL_FLOAT",  [] { return typedScalar<float>(vxSINGLE_CLASS, NC_FILL_FLOAT); }},
    {"FILL_DOUBLE", [] { return typedScalar<double>(vxDOUBLE_CLASS, NC_FILL_DOUBLE); }},
    {"FILL_UBYTE",  [] { return typedScalar<unsigned char>(vxUINT8_CLASS, NC_FILL_UBYTE); }},
    {"FILL_USHORT", [] { return typedScalar<unsigned short>(vxUINT16_CLASS, NC_FILL_USHORT); }},
    {"FILL_UINT",   [] { return typedScalar<unsigned int>(vxUINT32_CLASS, NC_FILL_UINT); }},
    {"FILL_INT64",  [] { return typedScalar<long long>(vxINT64_CLASS, NC_FILL_INT64); }},
    {"FILL_UINT64", [] { return typedScalar<unsigned long long>(vxUINT64_CLASS, NC_FILL_UINT64); }},
};
// clang-format on

// The look-up key: upper case, without a leading "NC_" (a bare "NC_" is kept).
std::string lookupName(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    if (text.size() > 3 && text.compare(0, 3, "NC_") == 0)
        text.erase(0, 3);
    return text;
}

// Most texts differ in their first character, which is cheaper to compare than lengths.
bool isSame(const std::string& name, const char* text)
{
    return name[0] == text[0] && name == text;
}

} // namespace

void parameter(int, vxArray* results[], int, const vxArray* args[], const OperationEntry*)
{
    const std::string name = lookupName(readText(args[0], "parameter"));

    const auto* found =
        std::find_if(std::begin(constantTable), std::end(constantTable),
                     [&](const ConstantEntry& row) { return isSame(name, row.shortName()); });
    if (found == std::end(constantTable))
        vxErrMsgId(netcdf::unrecognizedCharParameter(name));

    const auto* typed =
        std::find_if(std::begin(typedConstants), std::end(typedConstants),
                     [&](const TypedConstant& row) { return isSame(name, row.shortName); });
    results[0] =
        typed != std::end(typedConstants) ? typed->create() : vxCreateDoubleScalar(found->value);
}

void getConstantNames(int, vxArray* results[], int, const vxArray*[], const OperationEntry*)
{
    const std::size_t dims[] = {constantCount, 1};
    vxArray* names = vxCreateCellArray(2, dims);
    for (std::size_t i = 0; i < constantCount; ++i)
        vxSetCell(names, i, vxCreateString(constantTable[i].fullName));
    results[0] = names;
}

} // namespace Ovard::gridio::operations
