// SPDX-License-Identifier: BSD-3-Clause
// Memory that the interpreter can own as an array's storage.
#pragma once

#include "hosts/memory/large_blocks.h"

#include <octave/oct.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

#ifdef OCTAVE_HAVE_STD_PMR_POLYMORPHIC_ALLOCATOR
#include <memory_resource>
#endif

namespace hosts::oct {

// A block that begins on a cache line, for a result that is large enough to gain from it; null for
// any other. It may be released by every form of operator delete.
void* newAlignedBlock(size_t bytes);

// The allocator with which an array of the interpreter releases its storage: another one if the
// interpreter was built with polymorphic allocators.
template <class> struct AllocatorOf;
template <class Element, class Allocator> struct AllocatorOf<Array<Element, Allocator>> {
    using type = Allocator;
};

template <class Element> bool usesOperatorDelete(const std::allocator<Element>&) { return true; }
#ifdef OCTAVE_HAVE_STD_PMR_POLYMORPHIC_ALLOCATOR
template <class Element>
bool usesOperatorDelete(const std::pmr::polymorphic_allocator<Element>& allocator)
{
    return allocator.resource() == std::pmr::new_delete_resource();
}
#endif

// An uninitialised block that an array of the interpreter releases.
template <class Element> void* newElements(size_t count)
{
    if (count > PTRDIFF_MAX / sizeof(Element))
        throw std::bad_alloc();
    const size_t bytes = count * sizeof(Element);
    typename AllocatorOf<Array<Element>>::type allocator;
    void* block = usesOperatorDelete(allocator) ? newAlignedBlock(bytes) : nullptr;
    if (block == nullptr)
        block = allocator.allocate(count);
    memory::adviseHugePages(block, bytes);
    return block;
}

// Releases one that no array has taken over.
template <class Element> void deleteElements(void* block, size_t count)
{
    typename AllocatorOf<Array<Element>>::type allocator;
    if (block != nullptr)
        allocator.deallocate(static_cast<Element*>(block), count);
}

} // namespace hosts::oct
