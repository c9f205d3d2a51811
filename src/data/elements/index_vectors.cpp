// SPDX-License-Identifier: BSD-3-Clause
#include "data/elements/index_vectors.h"

#include "convert/numeric_class.h"
#include "convert/numeric_conversion.h"
#include "error_identifiers.h"

#include <algorithm>

namespace Ovard::gridio {
namespace {

template <class T> void requireFinite(const T* elements, std::size_t count)
{
    if constexpr (std::is_floating_point_v<T>) {
        const auto isNotFinite = [](T x) { return vxIsNaN(x) || vxIsInf(x); };
        if (std::any_of(elements, elements + count, isNotFinite))
            vxErrMsgId(netcdf::indexArgumentNotFinite());
    }
}

template <class Target>
DimensionVector<Target> toReversedVector(const vxArray* a, std::string_view label)
{
    if (vxIsEmpty(a))
        vxErrMsgId(netcdf::argumentIsEmpty(std::string(label)));

    const std::size_t count = vxGetNumberOfElements(a);
    DimensionVector<Target> vector;
    const bool isNumeric = visitNumericElements(a, [&](const auto* elements) {
        using Source = std::decay_t<decltype(*elements)>;
        requireFinite(elements, count);
        vector.resize(count, boost::container::default_init);
        std::transform(elements, elements + count, vector.rbegin(), convertChecked<Target, Source>);
    });
    if (!isNumeric)
        vxErrMsgId(netcdf::argumentHasBadDatatype(std::string(label)));
    return vector;
}

} // namespace

SizeVector toSizeVector(const vxArray* a, std::string_view label)
{
    return toReversedVector<std::size_t>(a, label);
}

StrideVector toStrideVector(const vxArray* a, std::string_view label)
{
    return toReversedVector<std::ptrdiff_t>(a, label);
}

} // namespace Ovard::gridio
