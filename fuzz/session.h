// SPDX-License-Identifier: BSD-3-Clause
// One fuzzing run: calls of the module, each checked for what must hold after every call, and a
// clean-up that must leave nothing behind.
#pragma once

#include "fuzz/operation_signatures.h"
#include "hosts/standalone/host.h"

#include <string>
#include <vector>

namespace fuzz {

class Session {
public:
    Session();
    // Closes every file, and aborts the process if a file or any other resource is left.
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    standalone::Host& host() { return host_; }

    // Identifiers of files and groups that calls returned, in order.
    const std::vector<int>& knownIds() const { return knownIds_; }

    // Calls and checks: aborts the process with a message if the error is neither one of the
    // module's nor an out-of-memory error, if a block or an array is left, or if the contract was
    // violated. Prints the call if the environment has FUZZ_TRACE.
    standalone::Outcome call(const Operation& operation,
                             const std::vector<standalone::Value>& arguments);
    // An operation of "gridio", and one of "gridio_any".
    standalone::Outcome call(const std::string& operation,
                             const std::vector<standalone::Value>& arguments);
    standalone::Outcome callAny(const std::string& operation,
                                const std::vector<standalone::Value>& arguments);

    // Registers a file that was opened without the module, so that the session closes it.
    void adoptFile(int ncid);

private:
    standalone::Outcome callOf(Function function, const std::string& operation,
                               const std::vector<standalone::Value>& arguments);
    void keepIds(const std::string& operation, const standalone::Outcome& outcome);
    void giveUp(int ncid);
    void closeAll();

    standalone::Host host_;
    std::vector<int> knownIds_;
    int filesOpened_ = 0; // or attempted
    bool ranOutOfMemory_ = false;
    bool namesAreStuck_ = false; // a file that failed to close may still block its name
};

// Aborts the process with a message; the fuzzer keeps the input.
[[noreturn]] void finding(const std::string& what);

} // namespace fuzz
