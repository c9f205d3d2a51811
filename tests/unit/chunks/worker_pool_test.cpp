// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/worker_pool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <future>
#include <set>
#include <stdexcept>

namespace Ovard::gridio {
namespace {

constexpr auto noPause = [] {};

void waitFor(const std::atomic<bool>& flag)
{
    while (!flag)
        std::this_thread::yield();
}

TEST(WorkerPool, DoesEachPieceOfWorkOnce)
{
    for (const std::size_t threads : {1U, 2U, 3U, 8U}) {
        for (const std::size_t slots : {1U, 2U, 7U}) {
            std::vector<std::size_t> input(slots); // not atomic: the pool orders the accesses
            std::vector<std::size_t> output(slots);
            WorkerPool pool(
                threads, slots,
                [&](std::size_t slot, std::size_t worker) {
                    ASSERT_LT(worker, threads);
                    output[slot] += input[slot];
                },
                noPause);
            std::size_t expected = 0;
            for (std::size_t i = 0; i < 500; ++i) {
                const std::size_t slot = i % slots;
                pool.finish(slot);
                input[slot] = i;
                expected += i;
                pool.submit(slot);
            }
            pool.finishAll();
            std::size_t sum = 0;
            for (const std::size_t part : output)
                sum += part;
            ASSERT_EQ(sum, expected) << threads << " threads, " << slots << " slots";
        }
    }
}

TEST(WorkerPool, UsesAllItsThreadsWhenThereIsWork)
{
    constexpr std::size_t threads = 3;
    std::mutex mutex;
    std::set<std::thread::id> seen;
    WorkerPool pool(
        threads, threads,
        [&](std::size_t, std::size_t) {
            // Each waits for the others.
            const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
            {
                const std::lock_guard<std::mutex> lock(mutex);
                seen.insert(std::this_thread::get_id());
            }
            for (std::size_t count = 0;
                 count < threads && std::chrono::steady_clock::now() < deadline;) {
                const std::lock_guard<std::mutex> lock(mutex);
                count = seen.size();
            }
        },
        noPause);
    for (std::size_t slot = 0; slot < threads; ++slot)
        pool.submit(slot);
    pool.finishAll();
    EXPECT_EQ(seen.size(), threads);
}

TEST(WorkerPool, StartsNoThreadForASinglePieceOfWork)
{
    std::thread::id worker;
    WorkerPool pool(
        4, 4, [&](std::size_t, std::size_t) { worker = std::this_thread::get_id(); }, noPause);
    pool.submit(2);
    pool.finishAll();
    EXPECT_EQ(worker, std::this_thread::get_id());
}

TEST(WorkerPool, DoesASinglePieceOfWorkWhileItsCallerIsBusy)
{
    std::promise<std::thread::id> worker;
    WorkerPool pool(
        2, 1, [&](std::size_t, std::size_t) { worker.set_value(std::this_thread::get_id()); },
        noPause);
    pool.submit(0, Caller::hasOtherWork);
    EXPECT_NE(worker.get_future().get(), std::this_thread::get_id());
    pool.finishAll();
}

TEST(WorkerPool, ThrowsWhatWorkThrows)
{
    for (const std::size_t threads : {1U, 4U}) {
        WorkerPool pool(
            threads, 4,
            [](std::size_t slot, std::size_t) {
                if (slot == 2)
                    throw std::length_error("slot 2");
            },
            noPause);
        for (std::size_t slot = 0; slot < 4; ++slot)
            pool.submit(slot);
        EXPECT_THROW(pool.finishAll(), std::length_error) << threads;
    }
}

TEST(WorkerPool, DropsWorkThatHasNotBegunWhenItEnds)
{
    constexpr int slots = 200; // two seconds of work: the destructor comes before its end
    std::atomic<int> begun = 0;
    {
        WorkerPool pool(
            2, slots,
            [&](std::size_t, std::size_t) {
                ++begun;
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
            },
            noPause);
        for (std::size_t slot = 0; slot < slots; ++slot)
            pool.submit(slot);
        while (begun == 0)
            std::this_thread::yield();
    }
    EXPECT_LT(begun, slots);
}

TEST(WorkerPool, PausesWhileItWaits)
{
    std::atomic<bool> isPaused = false;
    std::atomic<int> begun = 0;
    WorkerPool pool(
        2, 2,
        [&](std::size_t, std::size_t worker) {
            ++begun;
            if (worker > 0)
                waitFor(isPaused); // the calling thread has nothing to do but wait
        },
        [&] { isPaused = begun == 2; });
    pool.submit(0);
    pool.submit(1);
    while (begun == 0)
        std::this_thread::yield();
    pool.finishAll();
    EXPECT_TRUE(isPaused);
}

TEST(WorkerPool, LetsWhatAPauseThrowsOut)
{
    struct Interrupt {};
    int done = 0;
    WorkerPool pool(
        1, 4, [&](std::size_t, std::size_t) { ++done; }, [] { throw Interrupt(); });
    for (std::size_t slot = 0; slot < 4; ++slot)
        pool.submit(slot);
    EXPECT_THROW(pool.finishAll(), Interrupt);
    EXPECT_EQ(done, 1);
}

TEST(WorkerPool, LeavesSignalsToTheCallingThread)
{
    std::atomic<bool> isDone = false;
    std::atomic<bool> isBlocked = false;
    WorkerPool pool(
        2, 2,
        [&](std::size_t, std::size_t worker) {
            if (worker == 0) {
                waitFor(isDone);
                return;
            }
            sigset_t blocked;
            pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
            isBlocked = sigismember(&blocked, SIGINT) == 1 && sigismember(&blocked, SIGTERM) == 1;
            isDone = true;
        },
        noPause);
    sigset_t before;
    pthread_sigmask(SIG_SETMASK, nullptr, &before);
    pool.submit(0);
    pool.submit(1);
    waitFor(isDone);
    pool.finishAll();
    EXPECT_TRUE(isBlocked);
    sigset_t after;
    pthread_sigmask(SIG_SETMASK, nullptr, &after);
    EXPECT_EQ(sigismember(&after, SIGINT), sigismember(&before, SIGINT));
}

} // namespace
} // namespace Ovard::gridio
