// SPDX-License-Identifier: BSD-3-Clause
#include <octave/oct.h>

#include <cstdint>

// Exact as a double: addresses have 47 bits.
DEFUN_DLD(address_of, args, , "address_of (X): where the elements of a real array begin.")
{
    const auto address = reinterpret_cast<std::uintptr_t>(args(0).array_value().data());
    return ovl(static_cast<double>(address));
}
