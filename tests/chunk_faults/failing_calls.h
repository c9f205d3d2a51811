// SPDX-License-Identifier: BSD-3-Clause
// HDF5 as the module sees it, and operator new of the whole process, in all of its threads: one
// call fails if a test wants it to.
#pragma once

#include <cstddef>
#include <string>

namespace faults {

enum class Failing { hdf5, news };

// Until its end, the n-th call (1: the next) fails.
class FailingCall {
public:
    FailingCall(Failing what, std::size_t n);
    ~FailingCall();
    FailingCall(const FailingCall&) = delete;
    FailingCall& operator=(const FailingCall&) = delete;

    // Of the last one: whether the call was made, and which it was.
    static bool hasFailed();
    static std::string name();
};

// Blocks of operator new that are not deleted.
long liveBlocks();

} // namespace faults
