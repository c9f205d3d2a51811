// SPDX-License-Identifier: BSD-3-Clause
// Reading and writing values of variables of any type.
#include "check_status.h"
#include "chunks/chunk_reads.h"
#include "chunks/chunk_writes.h"
#include "convert/argument_readers.h"
#include "data/elements/block_arguments.h"
#include "data/elements/element_storage.h"
#include "data/elements/shapes.h"
#include "error_identifiers.h"
#include "types/value_reading.h"
#include "types/value_writing.h"
#include "types/variable_values.h"

#include <algorithm>

namespace Ovard::gridio::anyOperations {
namespace {

// A variable with its type.
struct TypedVariable {
    TypedVariable(int ncid, int varid, const OperationEntry* entry)
        : variable(ncid, requireVariable(varid, entry), entry),
          types(ncid, variable.externalType(), entry)
    {
    }

    const Type& type() const { return types.root(); }

    Variable variable;
    TypeTree types;

private:
    // Inquiring NC_GLOBAL does not fail, but it has no values.
    static int requireVariable(int varid, const OperationEntry* entry)
    {
        if (varid == NC_GLOBAL)
            raiseLibraryFailure(NC_ENOTVAR, entry);
        return varid;
    }
};

ValueShape shapeOf(const Block& block)
{
    return {{block.count.rbegin(), block.count.rend()}, false};
}

// A whole variable with a dimension of length 0 has no values to read.
void readStored(Variable& variable, const ElementType& element, const Block& block,
                std::size_t count, void* destination)
{
    if (count > 0 || !block.isWhole) {
        readValues(variable, block, {destination, nullptr});
        return;
    }
    const int status = readBlock(variable, element, block, destination);
    if (status != NC_EINVALCOORDS)
        checkStatus(status, variable.entry());
}

// Numbers are read directly into the result, characters through a buffer of bytes.
vxArray* readElements(TypedVariable& typed, const Block& block)
{
    const ElementType& element = *typed.type().element;
    const std::size_t count = productOf(block.count);
    const SizeVector dims = hostDimensions({}, shapeOf(block));
    if (typed.type().kind == TypeKind::character) {
        const HostMemory<char> bytes = zeroedValues(typed.type(), count);
        readStored(typed.variable, element, block, count, bytes.get());
        return vxCreateCharArrayFromBytes(dims.size(), dims.data(), bytes.get());
    }
    vxArray* array =
        vxCreateUninitNumericArray(dims.size(), dims.data(), element.hostClass, vxREAL);
    readStored(typed.variable, element, block, count, vxGetWritableData(array));
    return array;
}

// The values and, if requested, the labels of enumerations.
void readResults(TypedVariable& typed, const Block& block, int nlhs, vxArray* results[])
{
    const TypeKind kind = typed.type().kind;
    if (kind == TypeKind::number || kind == TypeKind::character) {
        results[0] = readElements(typed, block);
        return;
    }
    const BlockValues values(typed.variable, typed.type(), block);
    results[0] =
        readValues(typed.type(), values.places(), shapeOf(block), EnumerationForm::integers);
    if (nlhs > 1 && typed.type().holdsLabels)
        results[1] =
            readValues(typed.type(), values.places(), shapeOf(block), EnumerationForm::labels);
}

void write(TypedVariable& typed, const Block& block, const vxArray* data)
{
    const Type& type = typed.type();
    const OutgoingValues values(type, data, productOf(block.count));
    if (type.kind == TypeKind::number || type.kind == TypeKind::character) {
        if (!writeChunked(typed.variable, block, values.get()))
            checkStatus(writeBlock(typed.variable, *type.element, block, values.get()),
                        typed.variable.entry());
        return;
    }
    writeValues(typed.variable, type, block, values.get());
}

// Raises emptyVariableData if there are no values. The values of a structure are counted field by
// field when they are converted.
std::size_t countGiven(const Type& type, const vxArray* data)
{
    const std::size_t given = countValues(type, data);
    if (given == 0 && type.kind != TypeKind::compound && type.kind != TypeKind::opaque)
        vxErrMsgId(netcdf::emptyVariableData());
    return given;
}

} // namespace

void getVar(int nlhs, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");

    TypedVariable typed(ncid, varid, entry);
    readResults(typed, wholeBlock(typed.variable), nlhs, results);
}

void getVarSubset(int nlhs, vxArray* results[], int nargs, const vxArray* args[],
                  const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const Block block = readBlockArguments(args + 2, nargs - 2);

    TypedVariable typed(ncid, varid, entry);
    requireMatchingLengths(block, typed.variable, Access::read);
    typed.variable.requireAccessibleValues();
    readResults(typed, block, nlhs, results);
}

// The whole variable at its present size: such a write never adds records.
void putVar(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");

    TypedVariable typed(ncid, varid, entry);
    static_cast<void>(countGiven(typed.type(), args[2])); // checked when they are converted
    write(typed, wholeBlock(typed.variable), args[2]);
}

void putVarSubset(int, vxArray*[], int nargs, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const Block block = readBlockArguments(args + 2, nargs - 3);
    const vxArray* data = args[nargs - 1];

    TypedVariable typed(ncid, varid, entry);
    requireMatchingLengths(block, typed.variable, Access::write);
    const std::size_t given = countGiven(typed.type(), data);
    if (typed.type().kind != TypeKind::compound && typed.type().kind != TypeKind::opaque)
        requireMatchingCount(block, given);
    typed.variable.requireAccessibleValues();
    write(typed, block, data);
}

} // namespace Ovard::gridio::anyOperations
