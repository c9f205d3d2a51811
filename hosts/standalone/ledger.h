// SPDX-License-Identifier: BSD-3-Clause
// The host's books, one per process: what is allocated and by whom it is owned, what went wrong,
// and which allocation is to fail on purpose.
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
    std::vector<ArrayOwner> created; // by the module, not handed on yet: they end with the call
    std::vector<void*> blocks;       // of vxCalloc and vxArrayToString, not freed yet
    std::size_t liveArrays = 0;
    std::size_t arraysCreated = 0;
    std::size_t blocksAllocated = 0;
    std::size_t blocksFreed = 0;

    std::size_t allocations = 0;          // arrays and blocks together
    std::size_t failingAllocation = 0;    // counted as allocations is; 0: none
    std::size_t byteLimit = 0;            // of one array or block
    std::optional<unsigned char> pattern; // what elements that may hold anything are filled with

    Raiser raiser = Raiser::returns;
    std::vector<Raised> warnings;
    std::vector<std::string> breaches; // of the contract, by the module

    void (*unloadHandler)() = nullptr;
    std::size_t unloadRegistrations = 0;

    std::size_t continueQuestions = 0; // of vxContinue
    std::size_t interruptedQuestion = 0; // from this one on the user wants an interrupt; 0: none

    bool hasHost = false;

    const hosts::messages::CallContext* call = nullptr; // the one that is under way

    Ledger();

    // Before every allocation that the module asks for: throws OutOfMemory when its turn has come.
    void countAllocation();

    // Throws OutOfMemory when count elements of that size are more than one allocation may hold.
    std::size_t checkedBytes(std::size_t count, std::size_t size) const;

    // Takes an array of the module over from the call; null when the call does not own it.
    ArrayOwner takeCreated(const vxArray* array) noexcept;

    void noteBreach(const char* what) noexcept;

    // Runs the unload handler if there is one; false when there is none (any more).
    bool unload();

    // Back to how the process began, but for the arrays that Values own, for the handler and for
    // hasHost.
    void reset();
};

// Made when first asked for.
Ledger& ledger();

} // namespace standalone
