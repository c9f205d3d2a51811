// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/worker_pool.h"

#include <chrono>
#include <csignal>
#include <system_error>

namespace Ovard::gridio {
namespace {

constexpr std::chrono::milliseconds pauseInterval(5);

// Signals are left to the calling thread: a new thread inherits the blocked set.
class BlockedSignals {
public:
    BlockedSignals()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    BlockedSignals(const BlockedSignals&) = delete;
    BlockedSignals& operator=(const BlockedSignals&) = delete;

private:
    sigset_t before_{};
};

} // namespace

WorkerPool::WorkerPool(std::size_t threads, std::size_t slots, Work work, Pause pause)
    : threads_(threads), work_(std::move(work)), pause_(std::move(pause)),
      states_(slots, State::free), waiting_(slots)
{
    workers_.reserve(threads - 1);
}

WorkerPool::~WorkerPool() { stopWorkers(); }

void WorkerPool::submit(std::size_t slot, Caller caller)
{
    bool needsWorker = false;
    {
        const Lock lock(mutex_);
        states_[slot] = State::waiting;
        waiting_[(firstWaiting_ + waitingCount_) % waiting_.size()] = slot;
        ++waitingCount_;
        needsWorker = (waitingCount_ > 1 || caller == Caller::hasOtherWork) && idleWorkers_ == 0;
    }
    if (needsWorker && canStartMore_ && workers_.size() + 1 < threads_)
        startWorker();
    hasWork_.notify_one();
}

void WorkerPool::finish(std::size_t slot)
{
    Lock lock(mutex_);
    while (states_[slot] != State::free && !failure_) {
        if (waitingCount_ > 0)
            doNext(lock, 0);
        else
            isDone_.wait_for(lock, pauseInterval);
        lock.unlock();
        pause_();
        lock.lock();
    }
    if (failure_)
        std::rethrow_exception(failure_);
}

void WorkerPool::finishAll()
{
    for (std::size_t slot = 0; slot < states_.size(); ++slot)
        finish(slot);
}

// Continues with the threads that could be started.
void WorkerPool::startWorker()
{
    const BlockedSignals blocked;
    try {
        workers_.emplace_back(&WorkerPool::runWorker, this, workers_.size() + 1);
    } catch (const std::system_error&) {
        canStartMore_ = false;
    }
}

void WorkerPool::runWorker(std::size_t worker)
{
    Lock lock(mutex_);
    while (!isStopping_) {
        if (waitingCount_ > 0) {
            doNext(lock, worker);
            continue;
        }
        ++idleWorkers_;
        hasWork_.wait(lock);
        --idleWorkers_;
    }
}

void WorkerPool::doNext(Lock& lock, std::size_t worker)
{
    const std::size_t slot = waiting_[firstWaiting_];
    firstWaiting_ = (firstWaiting_ + 1) % waiting_.size();
    --waitingCount_;
    states_[slot] = State::running;
    std::exception_ptr failure;
    lock.unlock();
    try {
        work_(slot, worker);
    } catch (...) {
        failure = std::current_exception();
    }
    lock.lock();
    if (failure && !failure_)
        failure_ = failure;
    states_[slot] = State::free;
    isDone_.notify_one();
}

void WorkerPool::stopWorkers()
{
    {
        const Lock lock(mutex_);
        isStopping_ = true;
        waitingCount_ = 0;
    }
    hasWork_.notify_all();
    for (std::thread& worker : workers_)
        worker.join();
}

} // namespace Ovard::gridio
