// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/thread_count.h"

#include "chunks/work_sizes.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace Ovard::gridio {
namespace {

class ThreadCount : public testing::Test {
protected:
    void SetUp() override { unsetenv(variable); }
    void TearDown() override
    {
        setThreadCount(0);
        unsetenv(variable);
    }

    static void choose(const char* text) { setenv(variable, text, 1); }

    static constexpr const char* variable = "GRIDIO_THREADS";
};

TEST_F(ThreadCount, DefaultsToTheMachinesNumber)
{
    const std::size_t usual = threadCount();
    EXPECT_GE(usual, 1U);
    EXPECT_LE(usual, 16U);
    setThreadCount(3);
    EXPECT_EQ(threadCount(), 3U);
    setThreadCount(100000);
    EXPECT_EQ(threadCount(), mostThreads);
    setThreadCount(0);
    EXPECT_EQ(threadCount(), usual);
}

TEST_F(ThreadCount, IsThatOfTheEnvironment)
{
    choose("7");
    EXPECT_EQ(threadCount(), 7U);
    EXPECT_FALSE(isLibraryChosen());
    setThreadCount(1);
    EXPECT_EQ(threadCount(), 1U);
    EXPECT_FALSE(isLibraryChosen()) << "a thread of its own is not the user's choice";
    setThreadCount(0);
    choose("1");
    EXPECT_EQ(threadCount(), 1U);
    EXPECT_TRUE(isLibraryChosen());
    choose("99999999999999999999999");
    EXPECT_EQ(threadCount(), mostThreads);
}

TEST_F(ThreadCount, MindsNothingButNumbersInTheEnvironment)
{
    const std::size_t usual = threadCount();
    for (const char* text : {"", "0", "-1", " 2", "+2", "2 ", "2x", "two", "0x10"}) {
        choose(text);
        EXPECT_EQ(threadCount(), usual) << text;
        EXPECT_FALSE(isLibraryChosen()) << text;
    }
}

TEST_F(ThreadCount, IsNoLargerThanTheWork)
{
    setThreadCount(8);
    EXPECT_EQ(workSizes(1, 1 << 20).threads, 1U);
    EXPECT_EQ(workSizes(1, 1 << 20, Caller::hasOtherWork).threads, 2U);
    EXPECT_EQ(workSizes(3, 1 << 20).threads, 3U);
    EXPECT_EQ(workSizes(100, 1 << 20).threads, 8U);
    EXPECT_EQ(workSizes(100, 1024).threads, 1U) << "small chunks are handed out together";
    EXPECT_EQ(workSizes(10000, 1024).threads, 8U);
}

// The packed chunks, and one unpacked chunk for each thread.
TEST_F(ThreadCount, KeepsTheMemoryWithinItsBound)
{
    for (const std::size_t threads : {1U, 2U, 5U, 16U, 64U}) {
        setThreadCount(threads);
        for (std::size_t chunkSize = 100; chunkSize <= memoryBound; chunkSize *= 3) {
            const WorkSizes sizes = workSizes(100000, chunkSize);
            EXPECT_EQ(sizes.threads, threads);
            EXPECT_GE(sizes.slots, threads);
            const std::size_t bytes =
                (sizes.slots * sizes.chunksInSlot + sizes.threads) * chunkSize;
            EXPECT_LE(bytes, std::max(memoryBound, 2 * threads * chunkSize))
                << threads << " threads, " << chunkSize << " bytes";
        }
    }
}

} // namespace
} // namespace Ovard::gridio
