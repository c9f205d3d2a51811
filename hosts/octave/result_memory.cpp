// SPDX-License-Identifier: BSD-3-Clause
#include "result_memory.h"

#include <dlfcn.h>

#include <cstring>

// clang before 19 declares these only where it calls them; the interpreter may have been compiled
// by another compiler.
void operator delete(void*, size_t) noexcept;
void operator delete(void*, size_t, std::align_val_t) noexcept;

namespace hosts::oct {

namespace {

#if defined(__GLIBCXX__) && defined(__linux__)

bool isDefinedByLibstdcxx(void* function)
{
    Dl_info where;
    return dladdr(function, &where) != 0 && where.dli_fname != nullptr &&
           std::strstr(where.dli_fname, "libstdc++.so") != nullptr;
}

// The standard does not promise that operator delete releases what operator new has aligned. In
// libstdc++ every form is free(), and the process has not replaced these.
bool anyDeleteReleasesAligned()
{
    static const bool result = [] {
        void* (*const aligned)(size_t, std::align_val_t) = ::operator new;
        void (*const plain)(void*) = ::operator delete;
        void (*const sized)(void*, size_t) = ::operator delete;
        void (*const ofAligned)(void*, size_t, std::align_val_t) = ::operator delete;
        return isDefinedByLibstdcxx(reinterpret_cast<void*>(aligned)) &&
               isDefinedByLibstdcxx(reinterpret_cast<void*>(plain)) &&
               isDefinedByLibstdcxx(reinterpret_cast<void*>(sized)) &&
               isDefinedByLibstdcxx(reinterpret_cast<void*>(ofAligned));
    }();
    return result;
}

#else

bool anyDeleteReleasesAligned() { return false; }

#endif

} // namespace

void* newAlignedBlock(size_t bytes)
{
    const size_t alignment = memory::alignmentOf(bytes);
    if (alignment == 0 || !anyDeleteReleasesAligned())
        return nullptr;
    return ::operator new (bytes, std::align_val_t{alignment});
}

} // namespace hosts::oct
