// SPDX-License-Identifier: BSD-3-Clause
// For calls in which the library itself leaks memory; leaks of the module would not be detected
// either.
#pragma once

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define GRIDIO_LEAKS_ARE_WATCHED
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define GRIDIO_LEAKS_ARE_WATCHED
#endif

#ifdef GRIDIO_LEAKS_ARE_WATCHED
#include <sanitizer/lsan_interface.h>
#endif

namespace testsupport {

// During its lifetime, leaks are not reported.
class LeakOfTheLibrary {
public:
#ifdef GRIDIO_LEAKS_ARE_WATCHED
    LeakOfTheLibrary() { __lsan_disable(); }
    ~LeakOfTheLibrary() { __lsan_enable(); }
#else
    LeakOfTheLibrary() {}
    ~LeakOfTheLibrary() {}
#endif
    LeakOfTheLibrary(const LeakOfTheLibrary&) = delete;
    LeakOfTheLibrary& operator=(const LeakOfTheLibrary&) = delete;
};

} // namespace testsupport
