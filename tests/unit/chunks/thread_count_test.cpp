// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/thread_count.h"

#include "chunks/work_sizes.h"

#include <gtest/gtest.h>

namespace Ovard::gridio {
namespace {

class ThreadCount : public testing::Test {
protected:
    void TearDown() override { setThreadCount(0); }
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

TEST_F(ThreadCount, IsNoLargerThanTheWork)
{
    setThreadCount(8);
    EXPECT_EQ(workSizes(1, 1 << 20).threads, 1U);
    EXPECT_EQ(workSizes(3, 1 << 20).threads, 3U);
    EXPECT_EQ(workSizes(100, 1 << 20).threads, 8U);
    EXPECT_EQ(workSizes(100, 1024).threads, 1U) << "small chunks are handed out together";
    EXPECT_EQ(workSizes(10000, 1024).threads, 8U);
}

// What is packed, and one unpacked chunk for each thread.
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
