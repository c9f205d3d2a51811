// SPDX-License-Identifier: BSD-3-Clause
// The library's default chunk cache.
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"

#include <netcdf.h>

namespace Ovard::gridio::operations {

// Deliberately, the preemption is the argument's first four bytes: a double is not converted.
void setChunkCache(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const std::size_t size = readSizeScalar(args[0], "chunkSize");
    const std::size_t nelems = readSizeScalar(args[1], "nelems");
    const float preemption = readRawFloat(args[2], "preemption");

    checkStatus(nc_set_chunk_cache(size, nelems, preemption), entry);
}

void getChunkCache(int, vxArray* results[], int, const vxArray*[], const OperationEntry* entry)
{
    std::size_t size = 0;
    std::size_t nelems = 0;
    float preemption = 0;
    checkStatus(nc_get_chunk_cache(&size, &nelems, &preemption), entry);
    results[0] = sizeResult(size);
    results[1] = sizeResult(nelems);
    results[2] = vxCreateDoubleScalar(preemption);
}

} // namespace Ovard::gridio::operations
