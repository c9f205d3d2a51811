// SPDX-License-Identifier: BSD-3-Clause
#include "data/elements/variable.h"

#include "check_status.h"
#include "library/guards/missing_dimensions.h"
#include "library/guards/oversized_names.h"
#include "library/guards/oversized_ranks.h"
#include "library/storage_model.h"

namespace Ovard::gridio {

Variable::Variable(int ncid, int varid, const OperationEntry* entry)
    : ncid_(ncid), varid_(varid), entry_(entry), model_(gridio::storageModel(ncid))
{
    int ndims = 0;
    checkStatus(nc_inq_var(ncid, varid, nullptr, &externalType_, &ndims, nullptr, nullptr), entry);
    rank_ = static_cast<std::size_t>(ndims);
}

const DimensionVector<int>& Variable::dimensionIds()
{
    if (dimensionIds_.size() < rank_) {
        dimensionIds_.resize(rank_);
        checkStatus(nc_inq_vardimid(ncid_, varid_, dimensionIds_.data()), entry_);
    }
    return dimensionIds_;
}

const SizeVector& Variable::lengths()
{
    requireAccessibleRank(static_cast<int>(rank_), entry_);
    if (lengths_.size() < rank_) {
        const DimensionVector<int>& dimids = dimensionIds();
        lengths_.resize(rank_);
        for (std::size_t i = 0; i < rank_; ++i)
            checkStatus(nc_inq_dimlen(ncid_, dimids[i], &lengths_[i]), entry_);
    }
    return lengths_;
}

std::string Variable::name() const
{
    char* name = nameBuffer();
    checkStatus(nc_inq_varname(ncid_, varid_, name), entry_);
    return name;
}

void Variable::requireAccessibleValues()
{
    if (isAccessible_)
        return;
    requireAccessibleRank(static_cast<int>(rank_), entry_);
    // If the lengths are known, every dimension has already been inquired.
    if (model_ == NC_FORMATX_NC_HDF5 && lengths_.size() < rank_)
        requireKnownDimensions(ncid_, dimensionIds().data(), rank_, entry_);
    isAccessible_ = true;
}

} // namespace Ovard::gridio
