// SPDX-License-Identifier: BSD-3-Clause
// One fuzzing run: calls of the module, each held against what must be true of every call, and an
// end that leaves nothing behind.
#pragma once

#include "fuzz/operation_signatures.h"
#include "hosts/standalone/host.h"

#include <string>
#include <vector>

namespace fuzz {

class Session {
public:
    Session();
    // Closes every file, and ends the process if one of them, or anything else, is left.
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    standalone::Host& host() { return host_; }

    // Identifiers of the files and groups that calls gave, in their order.
    const std::vector<int>& knownIds() const { return knownIds_; }

    // Calls and checks: ends the process, saying why, when the error is none of the module's or an
    // out-of-memory error, when a block or an array is left, or when a contract was broken. Tells
    // what it calls when the environment has FUZZ_TRACE.
    standalone::Outcome call(const Operation& operation,
                             const std::vector<standalone::Value>& arguments);
    // An operation of "gridio", and one of "gridio_any".
    standalone::Outcome call(const std::string& operation,
                             const std::vector<standalone::Value>& arguments);
    standalone::Outcome callAny(const std::string& operation,
                                const std::vector<standalone::Value>& arguments);

    // A file that was opened past the module, for the session to know and to close.
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
    bool namesAreStuck_ = false; // a file that did not close may still hold its name
};

// Ends the process with a message that the fuzzer keeps with the input.
[[noreturn]] void finding(const std::string& what);

} // namespace fuzz
