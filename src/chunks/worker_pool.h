// SPDX-License-Identifier: BSD-3-Clause
// Threads for the duration of one call. The calling thread dispatches the work and does its share
// of it while it waits; the others are started when there is work for them, and end with the pool.
// No thread outlives a call, so that none exists when the process forks, unloads the module or
// ends.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace Ovard::gridio {

// What the calling thread does after it has submitted work.
enum class Caller { waits, hasOtherWork };

class WorkerPool {
public:
    // Work is done on slots, which hold its data. worker is the number of the thread, below
    // threads, 0 for the calling one: an index of per-thread data.
    using Work = std::function<void(std::size_t slot, std::size_t worker)>;

    // Called in the calling thread, between pieces of its work and every few milliseconds while it
    // waits. finish() rethrows its exceptions.
    using Pause = std::function<void()>;

    WorkerPool(std::size_t threads, std::size_t slots, Work work, Pause pause);

    // Drops work that has not started and waits for the rest.
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    // Queues the work on that slot for any thread. The slot must not be in use. A caller that waits
    // does a single piece of work itself, so that no thread is started for it.
    void submit(std::size_t slot, Caller caller = Caller::waits);

    // Returns when the slot is no longer in use. Rethrows an exception of the work on any slot.
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

    std::mutex mutex_; // guards everything below except workers_
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
