// SPDX-License-Identifier: BSD-3-Clause
// The checksum filter of HDF5.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Ovard::gridio {

constexpr std::size_t checksumSize = 4; // behind the data, least significant byte first

// Fletcher's checksum of the data as 16-bit numbers, most significant byte first.
std::uint32_t fletcher32(const unsigned char* data, std::size_t size);

// Whether the size bytes end with the checksum of those before it. The checksum of HDF5 before
// 1.6.3 on little-endian machines, with the bytes of each half swapped, is accepted too.
bool hasValidChecksum(const unsigned char* data, std::size_t size);

// Appends the checksum of the data.
void appendChecksum(unsigned char* data, std::size_t size);

} // namespace Ovard::gridio
