// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/renamed_dimensions.h"

#include "check_status.h"
#include "library/hdf5_file.h"
#include "library/storage_model.h"

#include <netcdf.h>

#include <vector>

namespace Ovard::gridio {
namespace {

void inquireVariables(int group, const OperationEntry* entry)
{
    int count = 0;
    checkStatus(nc_inq(group, nullptr, &count, nullptr, nullptr), entry);
    for (int varid = 0; varid < count; ++varid) {
        int ndims = 0;
        static_cast<void>(nc_inq_varndims(group, varid, &ndims)); // its use reports the failure
    }
}

void appendChildren(int group, std::vector<int>& groups, const OperationEntry* entry)
{
    int count = 0;
    checkStatus(nc_inq_grps(group, &count, nullptr), entry);
    const std::size_t known = groups.size();
    groups.resize(known + static_cast<std::size_t>(count));
    checkStatus(nc_inq_grps(group, nullptr, groups.data() + known), entry);
}

} // namespace

void inquireEveryVariable(int ncid, const OperationEntry* entry)
{
    NotedFile* file = findNotedFile(ncid);
    if (!isStoredInHdf5(ncid) || (file != nullptr && file->isInquired))
        return;
    std::vector<int> groups = {fileIdOf(ncid)};
    while (!groups.empty()) {
        const int group = groups.back();
        groups.pop_back();
        inquireVariables(group, entry);
        appendChildren(group, groups, entry);
    }
    if (file != nullptr)
        file->isInquired = true;
}

} // namespace Ovard::gridio
