// SPDX-License-Identifier: BSD-3-Clause
// The interface for tests, fuzzers and benchmarks: call an operation of the module by name, and
// inspect the outcome and the allocation records.
//
//     standalone::Host host;
//     const Value ncid = host.call("create", {path, "netcdf4"})[0];
//     const Outcome outcome = host.attempt("defDim", {ncid, "x", "not a number"});
//     EXPECT_EQ(outcome.raised->name(), "badScalarArgument");
#pragma once

#include "hosts/standalone/errors.h"
#include "hosts/standalone/ledger.h"
#include "hosts/standalone/value.h"
#include "vx/plug.h"

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace standalone {

// The outcome of a call: results, or an error.
struct Outcome {
    std::vector<Value> results; // every slot that was set; empty if an error was raised
    std::optional<Raised> raised;

    bool succeeded() const { return !raised; }
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome);

// One of the module's entries.
using Entry = decltype(&plugFunction);

// The host of the process: at most one object at a time, which starts with empty records. Files
// that the module has open outlive it; unload() closes them, at the latest at the end of the
// process.
class Host {
public:
    Host();
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // Calls an operation and returns its results; throws RaisedError if it raises an error.
    std::vector<Value> call(const std::string& operation, const std::vector<Value>& arguments = {});

    // The same, never throwing: an error of any kind is part of the outcome.
    Outcome attempt(const std::string& operation, const std::vector<Value>& arguments = {});

    // The same two through the module's second entry. nlhs is the number of results that the script
    // requests.
    std::vector<Value> callAny(const std::string& operation,
                               const std::vector<Value>& arguments = {}, int nlhs = 1);
    Outcome attemptAny(const std::string& operation, const std::vector<Value>& arguments = {},
                       int nlhs = 1);

    // And by its third, for the operations that dataset classes are built on.
    std::vector<Value> callDataset(const std::string& operation,
                                   const std::vector<Value>& arguments = {}, int nlhs = 1);
    Outcome attemptDataset(const std::string& operation, const std::vector<Value>& arguments = {},
                           int nlhs = 1);

    // Passes exactly these arguments, for calls without any, or with a first one that is not text.
    Outcome attemptRaw(const std::vector<Value>& everyArgument, int nlhs = 1,
                       Entry entry = plugFunction);

    // Runs the handler that the module registered, once; false if there is none (any more).
    bool unload() { return books_.unload(); }
    std::size_t unloadRegistrations() const { return books_.unloadRegistrations; }

    const std::vector<Raised>& warnings() const { return books_.warnings; }

    // Arrays that exist now, Values included; blocks of vxCalloc and vxArrayToString not yet freed.
    std::size_t liveArrays() const { return books_.liveArrays; }
    std::size_t liveBlocks() const { return books_.blocks.size(); }

    // Allocations by the module since the records were last reset.
    std::size_t arraysCreated() const { return books_.arraysCreated; }
    std::size_t blocksAllocated() const { return books_.blocksAllocated; }
    std::size_t blocksFreed() const { return books_.blocksFreed; }
    std::size_t allocations() const { return books_.allocations; }

    // Violations of the contract of vx/array.h by the module: a block freed twice, an array filled
    // that it does not own, ... Empty if there were none.
    const std::vector<std::string>& breaches() const { return books_.breaches; }

    // Makes the module's n-th allocation from now (1: the next) raise out of memory; 0 cancels
    // this.
    void failAllocation(std::size_t n);

    // The largest size of an array or block in bytes; initially the memory of the machine.
    void limitBytes(std::size_t bytes) { books_.byteLimit = bytes; }

    // Fills uninitialised elements with this byte, so that tests detect one left unset.
    void fillUninitialised(std::optional<unsigned char> byte) { books_.pattern = byte; }

    // Whether vxRaiseException throws or returns; the contract allows both.
    void setRaiser(Raiser raiser) { books_.raiser = raiser; }

    // Simulates an interrupt at the module's n-th call of vxContinue from now (1: the next); 0
    // cancels this.
    void interruptQuestion(std::size_t n);
    std::size_t continueQuestions() const { return books_.continueQuestions; }

    // Calls of vxShowProgress, and how many of them said that an operation has ended.
    std::size_t progressShown() const { return books_.progressShown; }
    std::size_t operationsEnded() const { return books_.operationsEnded; }

    // Resets the records, as if the object were new.
    void reset() { books_.reset(); }

private:
    Outcome attemptNamed(const std::string& operation, const std::vector<Value>& arguments,
                         int nlhs, Entry entry);

    Ledger& books_;
};

} // namespace standalone
