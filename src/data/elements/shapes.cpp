// SPDX-License-Identifier: BSD-3-Clause
#include "data/elements/shapes.h"

#include <boost/numeric/conversion/cast.hpp>

#include <algorithm>

namespace Ovard::gridio {

SizeVector toHostDimensions(const SizeVector& lengths)
{
    SizeVector dims(lengths.rbegin(), lengths.rend());
    dims.resize(std::max<std::size_t>(lengths.size(), 2), 1);
    return dims;
}

std::size_t productOf(const SizeVector& lengths)
{
    if (std::find(lengths.begin(), lengths.end(), std::size_t{0}) != lengths.end())
        return 0;

    std::size_t product = 1;
    for (const std::size_t length : lengths) {
        if (__builtin_mul_overflow(product, length, &product))
            throw boost::numeric::positive_overflow();
    }
    return product;
}

} // namespace Ovard::gridio
