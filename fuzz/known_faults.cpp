// SPDX-License-Identifier: BSD-3-Clause
#include "fuzz/known_faults.h"

#include <netcdf.h>

#include <algorithm>
#include <iterator>

namespace fuzz {

using standalone::Value;

namespace {

bool givesName(const Operation& operation)
{
    static constexpr const char* naming[] = {"defDim", "defVar", "defGrp", "renameDim",
                                             "renameVar"};
    return std::any_of(std::begin(naming), std::end(naming),
                       [&](const char* name) { return operation.name == name; });
}

bool isTaken(int ncid, const std::string& name)
{
    int id = 0;
    return nc_inq_dimid(ncid, name.c_str(), &id) == NC_NOERR ||
           nc_inq_varid(ncid, name.c_str(), &id) == NC_NOERR ||
           nc_inq_ncid(ncid, name.c_str(), &id) == NC_NOERR;
}

} // namespace

bool isKnownFault(const Operation& operation, const std::vector<Value>& arguments)
{
    if (!givesName(operation) || arguments.size() < operation.parameters.size())
        return false;
    const Value& ncid = arguments[0];
    const Value& name = arguments[operation.parameters.find(parameter::name)];
    if (ncid.classId() != vxDOUBLE_CLASS || ncid.numel() != 1 || name.classId() != vxCHAR_CLASS)
        return false;

    const bool isId = ncid.toDouble() >= 0 && ncid.toDouble() < 2e9;
    const int file = isId ? static_cast<int>(ncid.toDouble()) : -1;
    int model = NC_FORMATX_UNDEFINED;
    return nc_inq_format_extended(file, &model, nullptr) == NC_NOERR &&
           model == NC_FORMATX_NC_HDF5 && isTaken(file, name.toText());
}

} // namespace fuzz
