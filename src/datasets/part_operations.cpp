// SPDX-License-Identifier: BSD-3-Clause
// Reading from the files of a dataset of many files, and closing them.
#include "convert/argument_readers.h"
#include "datasets/block_values.h"
#include "datasets/joined_values.h"
#include "operation_entry.h"

namespace Ovard::gridio::datasetOperations {

void readPart(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const double owner = readDoubleScalar(args[0], "owner");
    const std::string path = readText(args[1], "path");
    const std::string name = readText(args[2], "name");
    SizeVector lengths;
    if (!vxIsEmpty(args[3]))
        lengths = toSizeVector(args[3], "lengths");

    PartVariable part(owner, path, name, entry);
    part.requireLengths(lengths);
    const Block block = readDatasetBlock(args + 4, part.variable());
    const unsigned flags = readDecodingFlags(args[7]);
    results[0] = readDecoded(part.variable(), block, flags);
}

void closeParts(int, vxArray*[], int, const vxArray* args[], const OperationEntry*)
{
    PartFiles::instance().closeOf(readDoubleScalar(args[0], "owner"));
}

} // namespace Ovard::gridio::datasetOperations
