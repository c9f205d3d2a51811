// SPDX-License-Identifier: BSD-3-Clause
#include "definitions/dimension_rows.h"

#include "convert/numeric_conversion.h"
#include "convert/unchecked_conversions.h"
#include "error_identifiers.h"

#include <algorithm>

namespace Ovard::gridio {
namespace {

constexpr int rowLengthLimit = 1024;

template <class Element, class Convert>
std::vector<Element> toReversedVector(const vxArray* row, std::string_view name, Convert convert)
{
    if (vxGetClassID(row) != vxDOUBLE_CLASS)
        vxErrMsgId(netcdf::badRowDatatype(std::string(name)));
    const int count = convertChecked<int>(vxGetNumberOfElements(row));
    if (count > rowLengthLimit)
        vxErrMsgId(netcdf::rowLengthOutOfBounds(std::string(name), rowLengthLimit));

    std::vector<Element> list(static_cast<std::size_t>(count));
    const auto* elements = static_cast<const double*>(vxGetData(row));
    std::transform(elements, elements + count, list.rbegin(), convert);
    return list;
}

} // namespace

std::vector<int> toDimIdVector(const vxArray* row, std::string_view name)
{
    return toReversedVector<int>(row, name, truncateToInt32);
}

std::vector<std::size_t> toChunkSizeVector(const vxArray* row, std::string_view name)
{
    return toReversedVector<std::size_t>(row, name, truncateToUint64);
}

} // namespace Ovard::gridio
