// SPDX-License-Identifier: BSD-3-Clause
// The host's records, one object per process: allocations and their owners, contract violations,
// and the allocation that is to fail on purpose.
#pragma once

#include "hosts/standalone/array.h"
#include "hosts/standalone/errors.h"

#include "hosts/messages/call_context.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace standalone {

enum class Raiser { returns, throws };

struct Ledger {
    std::vector<ArrayOwner> created; // by the module, not yet passed on; released after the call
    std::vector<void*> blocks;       // of vxCalloc and vxArrayToString, not freed yet
    std::size_t liveArrays = 0;
    std::size_t arraysCreated = 0;
    std::size_t blocksAllocated = 0;
    std::size_t blocksFreed = 0;

    std::size_t allocations = 0;          // arrays and blocks together
    std::size_t failingAllocation = 0;    // counted as allocations is; 0: none
    std::size_t byteLimit = 0;            // of one array or block
    std::optional<unsigned char> pattern; // the byte that uninitialised elements are filled with

    Raiser raiser = Raiser::returns;
    std::vector<Raised> warnings;
    std::vector<std::string> breaches; // of the contract, by the module

    void (*unloadHandler)() = nullptr;
    std::size_t unloadRegistrations = 0;

    std::size_t continueQuestions = 0;   // of vxContinue
    std::size_t interruptedQuestion = 0; // the call from which on an interrupt is pending; 0: none

    std::size_t progressShown = 0;   // calls of vxShowProgress
    std::size_t operationsEnded = 0; // of which it said so
    double lastProgress = 0;

    bool hasHost = false;

    const hosts::messages::CallContext* call = nullptr; // the running one

    Ledger();

    // Called before every allocation of the module: throws OutOfMemory if this is the one to fail.
    void countAllocation();

    // Throws OutOfMemory if count elements of that size exceed the limit of one allocation.
    std::size_t checkedBytes(std::size_t count, std::size_t size) const;

    // Takes an array over from the call; null if the call does not own it.
    ArrayOwner takeCreated(const vxArray* array) noexcept;

    void noteBreach(const char* what) noexcept;

    // Runs the unload handler; false if there is none (any more).
    bool unload();

    // Restores the initial state, except for the arrays that Values own, the handler and hasHost.
    void reset();
};

// Constructed at the first call.
Ledger& ledger();

} // namespace standalone
