// SPDX-License-Identifier: BSD-3-Clause
// The filters of chunks, applied without the module's help: by plain loops and by the libraries of
// the codecs.
#pragma once

#include "chunks/codecs/codec.h"

#include <cstdint>
#include <string>
#include <vector>

namespace testsupport {

// The codecs that this build has and that a test can compress with.
std::vector<unsigned> testCodecs();

// Parameters that go with elements of that size, as the filters of HDF5 have them.
Ovard::gridio::Filter filterFor(unsigned id, std::size_t elementSize);

// The bytes of a chunk in the file. The filters of the bits that are set in skipped are not
// applied.
std::string applyFilters(const std::vector<Ovard::gridio::Filter>& filters, std::string bytes,
                         std::uint32_t skipped = 0);

// The filters of a dataset as HDF5 has stored them: it adapts the parameters of its own.
std::vector<Ovard::gridio::Filter> filtersOfDataset(std::int64_t dataset);

std::string shuffled(const std::string& bytes, std::size_t elementSize);
std::uint32_t plainFletcher32(const std::string& bytes);

} // namespace testsupport
