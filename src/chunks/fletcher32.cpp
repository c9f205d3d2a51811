// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/fletcher32.h"

#include <algorithm>

namespace Ovard::gridio {
namespace {

// The number of values summed at once, in loops of constant length that compilers can vectorise.
constexpr std::uint32_t blockLength = 256;

// Adds the upper bits to the lower 16 until only these are left. Zero stays zero and nothing else
// becomes zero, so that each remainder modulo 65535 has one representation.
std::uint64_t folded(std::uint64_t sum)
{
    while (sum > 0xFFFF)
        sum = (sum & 0xFFFF) + (sum >> 16);
    return sum;
}

std::uint32_t numberAt(const unsigned char* data)
{
    return static_cast<std::uint32_t>(data[0] << 8 | data[1]);
}

struct Sums {
    std::uint64_t plain = 0;    // of the numbers
    std::uint64_t weighted = 0; // sum of the plain sums after each number

    void addBlock(const unsigned char* data)
    {
        std::uint32_t numbers = 0;
        std::uint32_t weightedNumbers[2] = {}; // even and odd ones: neither overflows
        for (std::uint32_t i = 0; i < blockLength; i += 2) {
            const std::uint32_t even = numberAt(data + 2 * i);
            const std::uint32_t odd = numberAt(data + 2 * i + 2);
            numbers += even + odd;
            weightedNumbers[0] += even * (blockLength - i);
            weightedNumbers[1] += odd * (blockLength - 1 - i);
        }
        weighted = folded(weighted + plain * blockLength + weightedNumbers[0] + weightedNumbers[1]);
        plain = folded(plain + numbers);
    }

    void add(std::uint32_t number)
    {
        plain = folded(plain + number);
        weighted = folded(weighted + plain);
    }
};

static_assert(std::uint64_t{0xFFFF} * (blockLength / 2) * blockLength <= 0xFFFFFFFF);

std::uint32_t withSwappedHalves(std::uint32_t checksum)
{
    return (checksum & 0x00FF00FF) << 8 | (checksum >> 8 & 0x00FF00FF);
}

} // namespace

std::uint32_t fletcher32(const unsigned char* data, std::size_t size)
{
    Sums sums;
    std::size_t done = 0;
    for (; size - done >= 2 * blockLength; done += 2 * blockLength)
        sums.addBlock(data + done);
    for (; size - done >= 2; done += 2)
        sums.add(numberAt(data + done));
    if (done < size)
        sums.add(static_cast<std::uint32_t>(data[done] << 8));
    return static_cast<std::uint32_t>(sums.weighted << 16 | sums.plain);
}

bool hasValidChecksum(const unsigned char* data, std::size_t size)
{
    if (size < checksumSize)
        return false;
    const unsigned char* end = data + size - checksumSize;
    std::uint32_t stored = 0;
    for (std::size_t i = checksumSize; i-- > 0;)
        stored = stored << 8 | end[i];
    const std::uint32_t checksum = fletcher32(data, size - checksumSize);
    return stored == checksum || stored == withSwappedHalves(checksum);
}

void appendChecksum(unsigned char* data, std::size_t size)
{
    const std::uint32_t checksum = fletcher32(data, size);
    for (std::size_t i = 0; i < checksumSize; ++i)
        data[size + i] = static_cast<unsigned char>(checksum >> 8 * i);
}

} // namespace Ovard::gridio
