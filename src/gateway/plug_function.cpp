// SPDX-License-Identifier: BSD-3-Clause
// The three entry points of the module.
#include "vx/plug.h"

#include "convert/host_memory.h"
#include "error_identifiers.h"
#include "gateway/any_operation_table.h"
#include "gateway/dataset_operation_table.h"
#include "gateway/operation_table.h"
#include "open_file_registry.h"

#include <boost/numeric/conversion/cast.hpp>

using namespace Ovard::gridio;

namespace {

template <auto find>
void dispatch(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[])
{
    plugAtExit(closeRegisteredFiles);

    const HostMemory<char> name(nrhs > 0 ? vxArrayToString(arguments[0]) : nullptr);
    const int nargs = nrhs > 0 ? nrhs - 1 : 0;
    const OperationEntry* entry = find(name.get(), static_cast<unsigned>(nargs));

    try {
        entry->handler(nlhs, results, nargs, arguments + 1, entry);
    } catch (const boost::numeric::bad_numeric_cast&) {
        vxErrMsgId(validate::argumentOutOfBounds());
    }
}

} // namespace

void plugFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[])
{
    dispatch<findOperation>(nlhs, results, nrhs, arguments);
}

void plugAnyFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[])
{
    dispatch<findAnyOperation>(nlhs, results, nrhs, arguments);
}

void plugDatasetFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[])
{
    dispatch<findDatasetOperation>(nlhs, results, nrhs, arguments);
}
