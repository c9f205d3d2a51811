// SPDX-License-Identifier: BSD-3-Clause
// Reading decoded values, and describing the decoding of a variable.
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "datasets/attribute_numbers.h"
#include "datasets/block_values.h"
#include "datasets/structure_result.h"
#include "types/type_description.h"

#include <cstring>

namespace Ovard::gridio::datasetOperations {
namespace {

const char* wordOf(vxClassID classId)
{
    // clang-format off
    switch (classId) {
    case vxDOUBLE_CLASS: return "double";
    case vxSINGLE_CLASS: return "single";
    case vxINT8_CLASS:   return "int8";
    case vxUINT8_CLASS:  return "uint8";
    case vxINT16_CLASS:  return "int16";
    case vxUINT16_CLASS: return "uint16";
    case vxINT32_CLASS:  return "int32";
    case vxUINT32_CLASS: return "uint32";
    case vxINT64_CLASS:  return "int64";
    case vxUINT64_CLASS: return "uint64";
    default:             return "";
    }
    // clang-format on
}

const char* wordOf(const Type& type)
{
    switch (type.kind) {
    case TypeKind::character:
        return "char";
    case TypeKind::string:
    case TypeKind::vlen:
        return "cell";
    case TypeKind::compound:
        return "struct";
    case TypeKind::opaque:
        return "uint8";
    case TypeKind::enumeration:
    case TypeKind::number:
        break;
    }
    return wordOf(type.element->hostClass);
}

// A row of the class that values are stored in; 0-by-0 of no value.
vxArray* storedRow(const VariableDecoding& decoding, const std::vector<cf::StoredValue>& values)
{
    const std::size_t dims[] = {values.empty() ? 0U : 1U, values.size()};
    vxArray* row = vxCreateUninitNumericArray(2, dims, decoding.storedClass, vxREAL);
    const std::size_t size = cf::sizeOf(decoding.rules.stored);
    for (std::size_t i = 0; i < values.size(); ++i)
        std::memcpy(static_cast<char*>(vxGetWritableData(row)) + i * size, values[i].data(), size);
    return row;
}

vxArray* storedRow(const VariableDecoding& decoding, const std::optional<cf::StoredValue>& value)
{
    return storedRow(decoding,
                     value ? std::vector<cf::StoredValue>{*value} : std::vector<cf::StoredValue>{});
}

// Without an attribute the offset is -0, which becomes 0.
vxArray* resultOf(const VariableDecoding& decoding)
{
    return structureResult({{"class", textResult(wordOf(decoding.resultClass()))},
                            {"storedClass", textResult(wordOf(decoding.storedClass))},
                            {"isPacked", flagResult(decoding.isPacked)},
                            {"hasMissing", flagResult(decoding.hasMissing)},
                            {"scale", vxCreateDoubleScalar(decoding.rules.scale)},
                            {"offset", vxCreateDoubleScalar(decoding.rules.offset + 0.0)},
                            {"missing", storedRow(decoding, decoding.rules.missing)},
                            {"validMin", storedRow(decoding, decoding.rules.validMin)},
                            {"validMax", storedRow(decoding, decoding.rules.validMax)},
                            {"fill", storedRow(decoding, std::optional(decoding.fill))},
                            {"warnings", textColumn(decoding.warnings)}});
}

// Of values that no decoding applies to.
vxArray* resultOf(const Type& type)
{
    return structureResult({{"class", textResult(wordOf(type))},
                            {"storedClass", textResult(wordOf(type))},
                            {"isPacked", flagResult(false)},
                            {"hasMissing", flagResult(false)},
                            {"scale", vxCreateDoubleScalar(1)},
                            {"offset", vxCreateDoubleScalar(0)},
                            {"missing", numberRow({})},
                            {"validMin", numberRow({})},
                            {"validMax", numberRow({})},
                            {"fill", numberRow({})},
                            {"warnings", textColumn({})}});
}

int readVarid(const vxArray* a, const OperationEntry* entry)
{
    const int varid = readIntScalar(a, "varid");
    if (varid == NC_GLOBAL)
        raiseLibraryFailure(NC_ENOTVAR, entry);
    return varid;
}

} // namespace

void decoding(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readVarid(args[1], entry);
    const unsigned flags = readDecodingFlags(args[2]);

    const Variable variable(ncid, varid, entry);
    if (const auto found = variableDecoding(variable, flags))
        results[0] = resultOf(*found);
    else
        results[0] = resultOf(TypeTree(ncid, variable.externalType(), entry).root());
}

void read(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readVarid(args[1], entry);
    Variable variable(ncid, varid, entry);
    const Block block = readDatasetBlock(args + 2, variable);
    const unsigned flags = readDecodingFlags(args[5]);

    results[0] = readDecoded(variable, block, flags);
}

} // namespace Ovard::gridio::datasetOperations
