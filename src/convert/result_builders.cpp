// SPDX-License-Identifier: BSD-3-Clause
#include "convert/result_builders.h"

#include <algorithm>

namespace Ovard::gridio {

vxArray* intResult(int v) { return vxCreateDoubleScalar(v); }

vxArray* sizeResult(std::size_t v) { return vxCreateDoubleScalar(static_cast<double>(v)); }

vxArray* idVectorToRow(const std::vector<int>& ids)
{
    const std::size_t dims[] = {ids.empty() ? std::size_t{0} : std::size_t{1}, ids.size()};
    vxArray* row = vxCreateUninitNumericArray(2, dims, vxDOUBLE_CLASS, vxREAL);
    std::copy(ids.begin(), ids.end(), static_cast<double*>(vxGetWritableData(row)));
    return row;
}

vxArray* textResult(const char* s) { return vxCreateString(s); }

vxArray* flagResult(bool b) { return vxCreateLogicalScalar(b); }

} // namespace Ovard::gridio
