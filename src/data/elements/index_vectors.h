// SPDX-License-Identifier: BSD-3-Clause
// START, COUNT and STRIDE: conversion from a host array of any numeric class and shape, in the
// host's dimension order, to the vector that the library expects, in its own order.
#pragma once

#include "vx/array.h"

#include <boost/container/small_vector.hpp>

#include <cstddef>
#include <string_view>

namespace Ovard::gridio {

// One element for each dimension; up to eight of them need no allocation.
template <class T> using DimensionVector = boost::container::small_vector<T, 8>;
using SizeVector = DimensionVector<std::size_t>;
using StrideVector = DimensionVector<std::ptrdiff_t>;

// The elements in storage order, truncated toward zero, then reversed. Raise, in this order,
// argumentIsEmpty(label), argumentHasBadDatatype(label) for a class that is not numeric,
// indexArgumentNotFinite for NaN or infinity; throw a Boost overflow for the first element out of
// range.
SizeVector toSizeVector(const vxArray* a, std::string_view label); // -1 < x < 2^64; -0.5 gives 0
StrideVector toStrideVector(const vxArray* a,
                            std::string_view label); // -2^63 < x < 2^63 of a floating class

} // namespace Ovard::gridio
