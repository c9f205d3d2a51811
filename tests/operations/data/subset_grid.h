// SPDX-License-Identifier: BSD-3-Clause
// A variable of two dimensions for tests of subset operations.
#pragma once

#include "tests/operations/operation_test.h"
#include "tests/support/element_samples.h"
#include "tests/support/library_file.h"

namespace testsupport {

constexpr std::size_t ySize = 4;
constexpr std::size_t xSize = 6;

class SubsetGrid : public OperationTest {
protected:
    // A variable v(y, x), 4 by 6, of that type, in data mode.
    int createGrid(nc_type xtype, int mode = NC_NETCDF4)
    {
        const int ncid = createFile("s.nc", mode);
        number("defDim", {ncid, "x", xSize});
        number("defDim", {ncid, "y", ySize});
        number("defVar", {ncid, "v", xtype, row({0, 1})});
        host.call("endDef", {ncid});
        return ncid;
    }
    // The same, filled with 0, 1, ... 23 in the order of the file.
    int createCountingGrid(nc_type xtype = NC_INT, int mode = NC_NETCDF4)
    {
        const int ncid = createGrid(xtype, mode);
        const Ovard::gridio::ElementType& element = *Ovard::gridio::findExternalType(xtype);
        require(nc_put_var(ncid, 0, countingBytes(element, ySize * xSize).data()));
        return ncid;
    }
};

} // namespace testsupport
