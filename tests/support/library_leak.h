// SPDX-License-Identifier: BSD-3-Clause
// For calls after which the library itself loses memory: nothing of the module may be done in here
// that is to be watched.
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

// While it lives, what is allocated and lost is not reported.
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
