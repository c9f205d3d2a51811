// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/block_values.h"

#include "check_status.h"
#include "chunks/chunk_reads.h"
#include "convert/argument_readers.h"
#include "data/elements/block_arguments.h"
#include "data/elements/shapes.h"
#include "dataset_error_identifiers.h"
#include "datasets/stored_types.h"
#include "types/value_reading.h"
#include "types/variable_values.h"

#include <algorithm>
#include <cstring>

namespace Ovard::gridio {
namespace {

// The library would report the same, but only after memory for all values was allocated.
void requireInside(const Block& block, Variable& variable)
{
    const SizeVector& lengths = variable.lengths();
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        if (block.stride[i] <= 0)
            raiseLibraryFailure(NC_ESTRIDE, variable.entry());
        if (block.count[i] == 0)
            continue;
        if (block.start[i] >= lengths[i])
            raiseLibraryFailure(NC_EINVALCOORDS, variable.entry());
        const std::size_t behind =
            (lengths[i] - 1 - block.start[i]) / static_cast<std::size_t>(block.stride[i]);
        if (block.count[i] - 1 > behind)
            raiseLibraryFailure(NC_EEDGE, variable.entry());
    }
}

vxArray* createNumbers(const Block& block, vxClassID classId)
{
    const SizeVector dims = toHostDimensions(block.count);
    return vxCreateUninitNumericArray(dims.size(), dims.data(), classId, vxREAL);
}

void readInto(Variable& variable, const Block& block, void* values, const cf::Decoder* decoder)
{
    if (productOf(block.count) > 0)
        readValues(variable, block, {values, decoder});
}

bool holds(const void* values, std::size_t count, cf::StoredType type,
           const cf::StoredValue& sought)
{
    return withTypeOf(type, [&](auto value) {
        const auto* first = static_cast<const decltype(value)*>(values);
        std::memcpy(&value, sought.data(), sizeof value);
        return std::find(first, first + count, value) != first + count;
    });
}

// The class is kept unless a value is the default fill value, so the values are read first.
vxArray* readPlain(Variable& variable, const Block& block, const VariableDecoding& decoding)
{
    vxArray* stored = createNumbers(block, decoding.storedClass);
    readInto(variable, block, vxGetWritableData(stored), nullptr);
    const std::size_t count = productOf(block.count);
    if (!decoding.defaultFill || count == 0 ||
        !holds(vxGetData(stored), count, decoding.rules.stored, *decoding.defaultFill))
        return stored;
    vxArray* decoded = createNumbers(block, decoding.decodedClass());
    cf::Decoder(decoding.rules).decode(vxGetData(stored), count, vxGetWritableData(decoded));
    return decoded;
}

vxArray* readNumbers(Variable& variable, const Block& block, const VariableDecoding& decoding)
{
    const bool needsNone =
        decoding.isPlain && !decoding.hasMissing && decoding.rules.missing.empty();
    if (needsNone || decoding.defaultFill)
        return readPlain(variable, block, decoding);
    vxArray* array = createNumbers(block, decoding.decodedClass());
    const cf::Decoder decoder(decoding.rules);
    readInto(variable, block, vxGetWritableData(array), &decoder);
    return array;
}

vxArray* readCharacters(Variable& variable, const Block& block)
{
    const SizeVector dims = toHostDimensions(block.count);
    const HostMemory<char> bytes(
        static_cast<char*>(vxCalloc(std::max<std::size_t>(productOf(block.count), 1), 1)));
    readInto(variable, block, bytes.get(), nullptr);
    return vxCreateCharArrayFromBytes(dims.size(), dims.data(), bytes.get());
}

vxArray* readOthers(Variable& variable, const Block& block)
{
    const TypeTree types(variable.ncid(), variable.externalType(), variable.entry());
    const BlockValues values(variable, types.root(), block);
    return readValues(types.root(), values.places(),
                      {{block.count.rbegin(), block.count.rend()}, false},
                      EnumerationForm::integers);
}

} // namespace

Block readDatasetBlock(const vxArray* const vectors[], Variable& variable)
{
    if (variable.rank() == 0 &&
        std::all_of(vectors, vectors + 3, [](const vxArray* vector) { return vxIsEmpty(vector); }))
        return wholeBlock(variable);
    Block block = readBlockArguments(vectors, 3);
    requireMatchingLengths(block, variable, Access::read);
    requireInside(block, variable);
    return block;
}

unsigned readDecodingFlags(const vxArray* a)
{
    const unsigned flags = readUintScalar(a, "flags");
    if (flags > allDecodingFlags)
        vxErrMsgId(dataset::badArgument("flags", "a sum of 1, 2, 4, 8, 16 and 32"));
    return flags;
}

vxArray* readDecoded(Variable& variable, const Block& block, unsigned flags)
{
    variable.requireAccessibleValues();
    if (variable.externalType() == NC_CHAR)
        return readCharacters(variable, block);
    if (const auto decoding = variableDecoding(variable, flags))
        return readNumbers(variable, block, *decoding);
    return readOthers(variable, block);
}

} // namespace Ovard::gridio
