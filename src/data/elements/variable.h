// SPDX-License-Identifier: BSD-3-Clause
// A variable of an open file, as the library describes it. Lists by dimension are in the library's
// order, slowest-varying first.
#pragma once

#include "data/elements/index_vectors.h"
#include "operation_entry.h"

#include <netcdf.h>

#include <string>

namespace Ovard::gridio {

// Asks each thing once, and only when it is needed. All of it raises the library's failures as
// those of the entry's operation.
class Variable {
public:
    // nc_inq_var: type and rank. NC_GLOBAL passes, as it does there.
    Variable(int ncid, int varid, const OperationEntry* entry);

    int ncid() const { return ncid_; }
    int varid() const { return varid_; }
    const OperationEntry* entry() const { return entry_; }
    int storageModel() const { return model_; } // NC_FORMATX_NC3, ... (nc_inq_format_extended)
    nc_type externalType() const { return externalType_; }
    std::size_t rank() const { return rank_; }

    // The identifiers of its dimensions (nc_inq_vardimid).
    const DimensionVector<int>& dimensionIds();

    // How long its dimensions are now (nc_inq_dimlen). Raises NC_EMAXDIMS for more dimensions than
    // the library can access.
    const SizeVector& lengths();

    // Its name in the narrow encoding (nc_inq_varname).
    std::string name() const;

    // Raises what the library would crash on, or write past its own buffers, when values are
    // accessed: NC_EMAXDIMS for too many dimensions, NC_EBADDIM for missing ones.
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
