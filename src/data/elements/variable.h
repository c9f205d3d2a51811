// SPDX-License-Identifier: BSD-3-Clause
// A variable of an open file, as the library describes it. Lists by dimension are in the library's
// order, slowest-varying first.
#pragma once

#include "data/elements/index_vectors.h"
#include "operation_entry.h"

#include <netcdf.h>

#include <string>

namespace Ovard::gridio {

// Makes each inquiry once, and only when it is needed. Every function raises the library's failures
// as those of the entry's operation.
class Variable {
public:
    // Type and rank (nc_inq_var, which accepts NC_GLOBAL).
    Variable(int ncid, int varid, const OperationEntry* entry);

    int ncid() const { return ncid_; }
    int varid() const { return varid_; }
    const OperationEntry* entry() const { return entry_; }
    int storageModel() const { return model_; } // NC_FORMATX_NC3, ... (nc_inq_format_extended)
    nc_type externalType() const { return externalType_; }
    std::size_t rank() const { return rank_; }

    // The identifiers of its dimensions (nc_inq_vardimid).
    const DimensionVector<int>& dimensionIds();

    // The present lengths of its dimensions (nc_inq_dimlen). Raises NC_EMAXDIMS for more dimensions
    // than the library can access.
    const SizeVector& lengths();

    // Its name in the narrow encoding (nc_inq_varname).
    std::string name() const;

    // Raises NC_EMAXDIMS for too many dimensions and NC_EBADDIM for missing ones, for which the
    // library would write past its own buffers or crash when values are accessed.
    void requireAccessibleValues();

private:
    int ncid_;
    int varid_;
    const OperationEntry* entry_;
    int model_;
    nc_type externalType_ = NC_NAT;
    std::size_t rank_ = 0;
    bool isAccessible_ = false;
    DimensionVector<int> dimensionIds_;
    SizeVector lengths_;
};

} // namespace Ovard::gridio
