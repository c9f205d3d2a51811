// SPDX-License-Identifier: BSD-3-Clause
// Long operations and the user's wish to end them.
#pragma once

extern "C" {

// Both are called by the thread that called plugFunction, and by no other.

// Whether to go on: false when the user has asked for an interrupt, in whatever way the host knows.
// The module asks every few milliseconds during long reads and writes, so it is cheap; it raises
// nothing and leaves the interrupt pending.
bool vxContinue();

// Raises the host's own interrupt, as an exception of the host's that passes through the module.
// Called after vxContinue said no; what the module was doing is abandoned as the exception passes.
[[noreturn]] void vxRaiseInterrupt();

} // extern "C"
