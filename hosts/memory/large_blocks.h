// SPDX-License-Identifier: BSD-3-Clause
// What makes large blocks of memory quick to fill, for every host.
#pragma once

#include <cstddef>

namespace hosts::memory {

// The alignment to allocate a block of that many bytes with; 0 leaves it to the allocator.
std::size_t alignmentOf(std::size_t bytes);

// Requests huge pages for a large block that has not been touched yet: touching small pages one by
// one takes longer than most reads. Does nothing for a small block.
void adviseHugePages(void* block, std::size_t bytes);

} // namespace hosts::memory
