// SPDX-License-Identifier: BSD-3-Clause
#include "fuzz/known_faults.h"

#include <netcdf.h>

#include <algorithm>
#include <cstdint>
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

int toId(const Value& ncid)
{
    const bool isId = ncid.toDouble() >= 0 && ncid.toDouble() < 2e9;
    return isId ? static_cast<int>(ncid.toDouble()) : -1;
}

// Whether a vector of one of the classes has an element that is far from 0.
template <class... T> bool isFar(const Value& vector)
{
    const auto holds = [&](auto zero) {
        using Element = decltype(zero);
        if (vector.classId() != standalone::classOf<Element>())
            return false;
        const std::vector<Element> elements = vector.elements<Element>();
        return std::any_of(elements.begin(), elements.end(),
                           [](Element e) { return static_cast<double>(e) > 10000; });
    };
    return (holds(T{}) || ...);
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

    const int file = toId(ncid);
    int model = NC_FORMATX_UNDEFINED;
    return nc_inq_format_extended(file, &model, nullptr) == NC_NOERR &&
           model == NC_FORMATX_NC_HDF5 && isTaken(file, name.toText());
}

bool growsFileInMemory(const Operation& operation, const std::vector<Value>& arguments)
{
    const std::size_t start = operation.parameters.find(parameter::start);
    if (operation.name.compare(0, 3, "put") != 0 || start >= arguments.size() ||
        arguments[0].classId() != vxDOUBLE_CLASS || arguments[0].numel() != 1)
        return false;
    int mode = 0;
    const char values =
        operation.function == Function::gridio ? parameter::data : parameter::values;
    const std::size_t data = std::min(operation.parameters.find(values), arguments.size());
    return nc_inq_format_extended(toId(arguments[0]), nullptr, &mode) == NC_NOERR &&
           (mode & NC_DISKLESS) != 0 &&
           std::any_of(arguments.begin() + static_cast<std::ptrdiff_t>(start),
                       arguments.begin() + static_cast<std::ptrdiff_t>(data),
                       isFar<double, float, std::int8_t, std::uint8_t, std::int16_t, std::uint16_t,
                             std::int32_t, std::uint32_t, std::int64_t, std::uint64_t>);
}

} // namespace fuzz
