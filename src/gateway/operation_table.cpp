// SPDX-License-Identifier: BSD-3-Clause
#include "gateway/operation_table.h"

#include "attributes/attribute_operations.h"
#include "constants/constant_operations.h"
#include "data/data_operations.h"
#include "definitions/definition_operations.h"
#include "error_identifiers.h"
#include "files/file_operations.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>

namespace Ovard::gridio {

namespace op = operations;

// clang-format off
constexpr OperationEntry operationTable[operationCount] = {
    // Files: life cycle
    {  0, "abort",             1, op::abort},
    {  1, "close",             1, op::close},
    {  3, "pCreate",           4, op::pCreate},
    {  4, "create",            2, op::create},
    { 14, "endDef",            1, op::endDef},
    { 13, "pEndDef",           5, op::pEndDef},
    { 75, "pOpen",             3, op::pOpen},
    { 76, "open",              2, op::open},
    {111, "redef",             1, op::redef},
    {115, "setDefaultFormat",  1, op::setDefaultFormat},
    {116, "setFill",           2, op::setFill},
    {118, "sync",              1, op::sync},

    // Chunk cache
    {119, "setChunkCache",     3, op::setChunkCache},
    {120, "getChunkCache",     0, op::getChunkCache},

    // Files: inquiries
    { 49, "inq",               1, op::inq},
    { 55, "inqDimIDs",         2, op::inqDimIDs},
    { 58, "inqFormat",         1, op::inqFormat},
    { 63, "inqLibVers",        0, op::inqLibVers},
    { 65, "inqUnlimDims",      1, op::inqUnlimDims},
    { 67, "inqVarIDs",         1, op::inqVarIDs},
    // Never reached, deliberately: the look-up stops at the first row of a name.
    { 55, "inqDimIDs",         1, op::inqDimIDs},

    // Groups
    {  6, "defGrp",            2, op::defGrp},
    { 59, "inqGrpName",        1, op::inqGrpName},
    { 60, "inqGrpNameFull",    1, op::inqGrpNameFull},
    { 61, "inqGrps",           1, op::inqGrps},
    { 62, "inqGrpParent",      1, op::inqGrpParent},
    { 64, "inqNcid",           2, op::inqNcid},

    // Dimensions
    {  5, "defDim",            3, op::defDim},
    { 53, "inqDim",            2, op::inqDim},
    { 54, "inqDimID",          2, op::inqDimID},
    {113, "renameDim",         3, op::renameDim},

    // Variables
    {  7, "defVar",            4, op::defVar},
    { 66, "inqVarID",          2, op::inqVarID},
    { 68, "inqVar",            2, op::inqVar},
    {114, "renameVar",         3, op::renameVar},

    // Storage settings
    {  8, "defVarChunking",    4, op::defVarChunking},
    {  9, "defVarDeflate",     5, op::defVarDeflate},
    { 11, "defVarFletcher32",  3, op::defVarFletcher32},
    { 69, "inqVarChunking",    2, op::inqVarChunking},
    { 70, "inqVarDeflate",     2, op::inqVarDeflate},
    { 74, "inqVarFletcher32",  2, op::inqVarFletcher32},

    // Fill values
    { 10, "defVarFill",        4, op::defVarFill},
    { 73, "inqVarFill",        2, op::inqVarFill},

    // Attribute catalogue
    {  2, "copyAtt",           5, op::copyAtt},
    { 12, "delAtt",            3, op::delAtt},
    { 50, "inqAtt",            3, op::inqAtt},
    { 51, "inqAttID",          3, op::inqAttID},
    { 52, "inqAttName",        3, op::inqAttName},
    {112, "renameAtt",         4, op::renameAtt},

    // Attribute reads
    { 15, "getAttDouble",      3, op::getAtt},
    { 16, "getAttFloat",       3, op::getAtt},
    { 17, "getAttInt64",       3, op::getAtt},
    { 18, "getAttUint64",      3, op::getAtt},
    { 19, "getAttInt",         3, op::getAtt},
    { 20, "getAttUint",        3, op::getAtt},
    { 21, "getAttShort",       3, op::getAtt},
    { 22, "getAttUshort",      3, op::getAtt},
    { 23, "getAttSchar",       3, op::getAtt},
    { 24, "getAttUchar",       3, op::getAtt},
    { 25, "getAttUbyte",       3, op::getAtt},
    { 26, "getAttText",        3, op::getAtt},

    // Attribute writes
    { 77, "putAttDouble",      5, op::putAtt},
    { 78, "putAttFloat",       5, op::putAtt},
    { 79, "putAttInt64",       5, op::putAtt},
    { 80, "putAttUint64",      5, op::putAtt},
    { 81, "putAttInt",         5, op::putAtt},
    { 82, "putAttUint",        5, op::putAtt},
    { 83, "putAttShort",       5, op::putAtt},
    { 84, "putAttUshort",      5, op::putAtt},
    { 85, "putAttSchar",       5, op::putAtt},
    { 86, "putAttUchar",       5, op::putAtt},
    { 87, "putAttUbyte",       5, op::putAtt},
    { 88, "putAttText",        4, op::putAttText},

    // Whole-variable reads
    { 27, "getVarDouble",      2, op::getVar},
    { 28, "getVarFloat",       2, op::getVar},
    { 29, "getVarInt64",       2, op::getVar},
    { 30, "getVarUint64",      2, op::getVar},
    { 31, "getVarInt",         2, op::getVar},
    { 32, "getVarUint",        2, op::getVar},
    { 33, "getVarShort",       2, op::getVar},
    { 34, "getVarUshort",      2, op::getVar},
    { 35, "getVarSchar",       2, op::getVar},
    { 36, "getVarUchar",       2, op::getVar},
    { 37, "getVarText",        2, op::getVar},

    // Whole-variable writes
    { 89, "putVarDouble",      3, op::putVar},
    { 90, "putVarFloat",       3, op::putVar},
    { 91, "putVarInt64",       3, op::putVar},
    { 92, "putVarUint64",      3, op::putVar},
    { 93, "putVarInt",         3, op::putVar},
    { 94, "putVarUint",        3, op::putVar},
    { 95, "putVarShort",       3, op::putVar},
    { 96, "putVarUshort",      3, op::putVar},
    { 97, "putVarSchar",       3, op::putVar},
    { 98, "putVarUchar",       3, op::putVar},
    { 99, "putVarText",        3, op::putVar},

    // Subset reads
    { 38, "getVar1Double",     3, op::getVarSubset},
    { 38, "getVaraDouble",     4, op::getVarSubset},
    { 38, "getVarsDouble",     5, op::getVarSubset},
    { 39, "getVar1Float",      3, op::getVarSubset},
    { 39, "getVaraFloat",      4, op::getVarSubset},
    { 39, "getVarsFloat",      5, op::getVarSubset},
    { 40, "getVar1Int64",      3, op::getVarSubset},
    { 40, "getVaraInt64",      4, op::getVarSubset},
    { 40, "getVarsInt64",      5, op::getVarSubset},
    { 41, "getVar1Uint64",     3, op::getVarSubset},
    { 41, "getVaraUint64",     4, op::getVarSubset},
    { 41, "getVarsUint64",     5, op::getVarSubset},
    { 42, "getVar1Int",        3, op::getVarSubset},
    { 42, "getVaraInt",        4, op::getVarSubset},
    { 42, "getVarsInt",        5, op::getVarSubset},
    { 43, "getVar1Uint",       3, op::getVarSubset},
    { 43, "getVaraUint",       4, op::getVarSubset},
    { 43, "getVarsUint",       5, op::getVarSubset},
    { 44, "getVar1Short",      3, op::getVarSubset},
    { 44, "getVaraShort",      4, op::getVarSubset},
    { 44, "getVarsShort",      5, op::getVarSubset},
    { 45, "getVar1Ushort",     3, op::getVarSubset},
    { 45, "getVaraUshort",     4, op::getVarSubset},
    { 45, "getVarsUshort",     5, op::getVarSubset},
    { 46, "getVar1Schar",      3, op::getVarSubset},
    { 46, "getVaraSchar",      4, op::getVarSubset},
    { 46, "getVarsSchar",      5, op::getVarSubset},
    { 47, "getVar1Uchar",      3, op::getVarSubset},
    { 47, "getVaraUchar",      4, op::getVarSubset},
    { 47, "getVarsUchar",      5, op::getVarSubset},
    { 48, "getVar1Text",       3, op::getVarSubset},
    { 48, "getVaraText",       4, op::getVarSubset},
    { 48, "getVarsText",       5, op::getVarSubset},

    // Subset writes; the single-element names of the two unsigned types have a capital I, deliberately
    {100, "putVar1Double",     4, op::putVarSubset},
    {100, "putVaraDouble",     5, op::putVarSubset},
    {100, "putVarsDouble",     6, op::putVarSubset},
    {101, "putVar1Float",      4, op::putVarSubset},
    {101, "putVaraFloat",      5, op::putVarSubset},
    {101, "putVarsFloat",      6, op::putVarSubset},
    {102, "putVar1Int64",      4, op::putVarSubset},
    {102, "putVaraInt64",      5, op::putVarSubset},
    {102, "putVarsInt64",      6, op::putVarSubset},
    {103, "putVar1UInt64",     4, op::putVarSubset},
    {103, "putVaraUint64",     5, op::putVarSubset},
    {103, "putVarsUint64",     6, op::putVarSubset},
    {104, "putVar1Int",        4, op::putVarSubset},
    {104, "putVaraInt",        5, op::putVarSubset},
    {104, "putVarsInt",        6, op::putVarSubset},
    {105, "putVar1UInt",       4, op::putVarSubset},
    {105, "putVaraUint",       5, op::putVarSubset},
    {105, "putVarsUint",       6, op::putVarSubset},
    {106, "putVar1Short",      4, op::putVarSubset},
    {106, "putVaraShort",      5, op::putVarSubset},
    {106, "putVarsShort",      6, op::putVarSubset},
    {107, "putVar1Ushort",     4, op::putVarSubset},
    {107, "putVaraUshort",     5, op::putVarSubset},
    {107, "putVarsUshort",     6, op::putVarSubset},
    {108, "putVar1Schar",      4, op::putVarSubset},
    {108, "putVaraSchar",      5, op::putVarSubset},
    {108, "putVarsSchar",      6, op::putVarSubset},
    {109, "putVar1Uchar",      4, op::putVarSubset},
    {109, "putVaraUchar",      5, op::putVarSubset},
    {109, "putVarsUchar",      6, op::putVarSubset},
    {110, "putVar1Text",       4, op::putVarSubset},
    {110, "putVaraText",       5, op::putVarSubset},
    {110, "putVarsText",       6, op::putVarSubset},

    // Named constants
    {122, "parameter",         1, op::parameter},
    {121, "getConstantNames",  0, op::getConstantNames},
};
// clang-format on

namespace {

// A few characters tell most names apart, and the length: a row with another key is passed over
// without a look at its name.
constexpr std::uint32_t keyOf(const char* name, std::size_t length)
{
    const auto at = [name](std::size_t i) {
        return std::uint32_t{static_cast<unsigned char>(name[i])};
    };
    const std::size_t last = length == 0 ? 0 : length - 1;
    return at(0) | at(length / 2) << 8 | at(last) << 16 |
           static_cast<std::uint32_t>(length & 0xFF) << 24;
}

constexpr auto keys = [] {
    std::array<std::uint32_t, operationCount> result{};
    for (std::size_t i = 0; i < operationCount; ++i) {
        const char* name = operationTable[i].name;
        result[i] = keyOf(name, std::char_traits<char>::length(name));
    }
    return result;
}();

} // namespace

const OperationEntry* findOperation(const char* name, unsigned nargs)
{
    if (name == nullptr)
        vxErrMsgId(netcdf::unrecognizedOperation(""));

    const std::uint32_t key = keyOf(name, std::strlen(name));
    for (auto row = std::find(keys.begin(), keys.end(), key); row != keys.end();
         row = std::find(row + 1, keys.end(), key)) {
        const OperationEntry& entry = operationTable[row - keys.begin()];
        if (std::strcmp(name, entry.name) != 0)
            continue;
        if (entry.nargs != nargs)
            vxErrMsgId(validate::wrongNumberOfInputs());
        return &entry;
    }
    vxErrMsgId(netcdf::unrecognizedOperation(name));
}

} // namespace Ovard::gridio
