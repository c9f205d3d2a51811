// SPDX-License-Identifier: BSD-3-Clause
// Threads for the length of one call. The calling thread hands out the work and does its share of
// it while it waits; the others are started when there is work for them, and end with the pool, so
// that none outlives a call: forking, unloading and the end of the process meet no thread.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace Ovard::gridio {

class WorkerPool {
public:
    // Work is done on slots, which hold what it needs. worker is the number of the thread, below
    // threads, 0 for the calling one: for what each has of its own.
    using Work = std::function<void(std::size_t slot, std::size_t worker)>;

    // Called in the calling thread, between pieces of its work and every few milliseconds while it
    // waits. What it throws leaves from finish().
    using Pause = std::function<void()>;

    WorkerPool(std::size_t threads, std::size_t slots, Work work, Pause pause);

    // Drops work that has not begun and waits for the rest.
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    // Has the work on that slot done, by any thread. The slot is not in use.
    void submit(std::size_t slot);

    // Returns when the slot is not in use (any more). Throws what work on any slot has thrown.
    void finish(std::size_t slot);

    // The same for all slots.
    void finishAll();

private:
    enum class State { free, waiting, running };

    using Lock = std::unique_lock<std::mutex>;

    void startWorker();
    void runWorker(std::size_t worker);
    void doNext(Lock& lock, std::size_t worker);
    void stopWorkers();

    const std::size_t threads_;
    const Work work_;
    const Pause pause_;

    std::mutex mutex_; // of everything below but workers_
    std::condition_variable hasWork_;
    std::condition_variable isDone_;
    std::vector<State> states_;        // of the slots
    std::vector<std::size_t> waiting_; // a ring of slots, first come first served
    std::size_t firstWaiting_ = 0;
    std::size_t waitingCount_ = 0;
    std::size_t idleWorkers_ = 0;
    bool isStopping_ = false;
    std::exception_ptr failure_; // the first
    std::vector<std::thread> workers_;
    bool canStartMore_ = true;
};

} // namespace Ovard::gridio
