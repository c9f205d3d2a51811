// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/oversized_names.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <new>

using Ovard::gridio::nameBuffer;

namespace {

// Runs code that may take only so many more bytes of address space than the process has now.
template <class Function> void withRoomFor(rlim_t bytes, Function&& function)
{
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    rlimit before{};
    getrlimit(RLIMIT_AS, &before);
    rlimit tight = before;
    tight.rlim_cur = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + bytes;
    setrlimit(RLIMIT_AS, &tight);
    function();
    setrlimit(RLIMIT_AS, &before);
}

// The buffer is created once per process, so each of these tests has its own process.
class NameBuffer : public testing::Test {
protected:
    NameBuffer() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(NameBuffer, IsTheSameEachTime) { EXPECT_EQ(nameBuffer(), nameBuffer()); }

TEST_F(NameBuffer, IsSmallerWhenAddressSpaceIsScarce)
{
    const auto useIt = [] {
        char* name = nullptr;
        withRoomFor(rlim_t{1} << 24, [&] { name = nameBuffer(); });
        name[(1 << 22) - 1] = 'x'; // more than any name
        std::exit(0);
    };
    EXPECT_EXIT(useIt(), testing::ExitedWithCode(0), "");
}

TEST_F(NameBuffer, RaisesOutOfMemoryWithoutAddressSpace)
{
    const auto askForIt = [] {
        // The first exception allocates memory that later ones reuse.
        try {
            throw std::bad_alloc();
        } catch (const std::bad_alloc&) {
        }
        bool failed = false;
        withRoomFor(0, [&] {
            try {
                nameBuffer();
            } catch (const std::bad_alloc&) {
                failed = true;
            }
        });
        std::exit(failed ? 0 : 1);
    };
    EXPECT_EXIT(askForIt(), testing::ExitedWithCode(0), "");
}

} // namespace
