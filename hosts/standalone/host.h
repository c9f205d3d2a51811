// SPDX-License-Identifier: BSD-3-Clause
// The host as tests, fuzzers and benchmarks use it: call an operation of the module by name, look
// at what came back, and at the books.
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

// What became of a call: results, or what was raised.
struct Outcome {
    std::vector<Value> results; // every slot that was set; none when something was raised
    std::optional<Raised> raised;

    bool succeeded() const { return !raised; }
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome);

// One of the module's entries.
using Entry = decltype(&plugFunction);

// The one host of the process: at most one object at a time, which begins with clean books. Files
// that the module holds open outlive it; unload() closes them, at the latest at the end of the
// process.
class Host {
public:
    Host();
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // Calls an operation and gives its results; throws RaisedError when it raises.
    std::vector<Value> call(const std::string& operation, const std::vector<Value>& arguments = {});

    // The same, never throwing: an error of any kind is part of the outcome.
    Outcome attempt(const std::string& operation, const std::vector<Value>& arguments = {});

    // The same two by the module's second entry. How many results the script asks for is nlhs.
    std::vector<Value> callAny(const std::string& operation,
                               const std::vector<Value>& arguments = {}, int nlhs = 1);
    Outcome attemptAny(const std::string& operation, const std::vector<Value>& arguments = {},
                       int nlhs = 1);

    // And by its third, for the operations that dataset classes are built on.
    std::vector<Value> callDataset(const std::string& operation,
                                   const std::vector<Value>& arguments = {}, int nlhs = 1);
    Outcome attemptDataset(const std::string& operation, const std::vector<Value>& arguments = {},
                           int nlhs = 1);

    // Passes these arguments and no others: also none at all, or a first one that is no text.
    Outcome attemptRaw(const std::vector<Value>& everyArgument, int nlhs = 1,
                       Entry entry = plugFunction);

    // Runs the handler that the module registered, once; false when there is none (any more).
    bool unload() { return books_.unload(); }
    std::size_t unloadRegistrations() const { return books_.unloadRegistrations; }

    const std::vector<Raised>& warnings() const { return books_.warnings; }

    // Arrays that exist now, Values included; blocks of vxCalloc and vxArrayToString not yet freed.
    std::size_t liveArrays() const { return books_.liveArrays; }
    std::size_t liveBlocks() const { return books_.blocks.size(); }

    // Since the books were clean, by the module.
    std::size_t arraysCreated() const { return books_.arraysCreated; }
    std::size_t blocksAllocated() const { return books_.blocksAllocated; }
    std::size_t blocksFreed() const { return books_.blocksFreed; }
    std::size_t allocations() const { return books_.allocations; }

    // What the module did against the contract of vx/array.h: freed a block twice, filled an array
    // that it does not own, ... Empty when all is well.
    const std::vector<std::string>& breaches() const { return books_.breaches; }

    // The n-th allocation from now (1: the next) that the module asks for raises out of memory; 0
    // takes that back.
    void failAllocation(std::size_t n);

    // The most bytes of one array or block; at first the memory of the machine.
    void limitBytes(std::size_t bytes) { books_.byteLimit = bytes; }

    // Fills elements that may hold anything with this byte, so that one left unset shows.
    void fillUninitialised(std::optional<unsigned char> byte) { books_.pattern = byte; }

    // Whether vxRaiseException throws or leaves that to its caller, which is allowed both.
    void setRaiser(Raiser raiser) { books_.raiser = raiser; }

    // The n-th time from now (1: the next) that the module asks whether to go on, the user wants an
    // interrupt; 0 takes that back.
    void interruptQuestion(std::size_t n);
    std::size_t continueQuestions() const { return books_.continueQuestions; }

    // Clean books, as if the object were new.
    void reset() { books_.reset(); }

private:
    Outcome attemptNamed(const std::string& operation, const std::vector<Value>& arguments,
                         int nlhs, Entry entry);

    Ledger& books_;
};

} // namespace standalone
