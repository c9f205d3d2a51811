// SPDX-License-Identifier: BSD-3-Clause
// What a test program that replaces operator new defines: new_operators.cpp replaces every form of
// it, each by a call of these.
#pragma once

#include <cstddef>

namespace testsupport {

// The size is never 0, and the alignment is suitable for posix_memalign. Throws std::bad_alloc.
void* allocateForNew(std::size_t size, std::size_t alignment);

// The block is not null.
void releaseFromDelete(void* block) noexcept;

} // namespace testsupport
