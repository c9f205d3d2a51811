// SPDX-License-Identifier: BSD-3-Clause
// Shapes and sizes: conversion from lengths in the library's dimension order to the dimensions of a
// host array.
#pragma once

#include "data/elements/index_vectors.h"

namespace Ovard::gridio {

// The shape rule: lengths reversed, padded with ones to at least two dimensions. An empty list
// gives 1-by-1, one length n gives n-by-1, (T, Y, X) gives X-by-Y-by-T.
SizeVector toHostDimensions(const SizeVector& lengths);

// The product of lengths, 1 for none. Throws boost::numeric::positive_overflow when it does not fit
// into size_t.
std::size_t productOf(const SizeVector& lengths);

} // namespace Ovard::gridio
