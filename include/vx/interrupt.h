// SPDX-License-Identifier: BSD-3-Clause
// Interrupting long operations.
#pragma once

extern "C" {

// Both are called by the thread that called plugFunction, and by no other.

// Whether to continue: false if the user has requested an interrupt, by whatever means the host
// provides. The module calls this every few milliseconds during long reads and writes, so it must
// be cheap; it raises nothing and leaves the interrupt pending.
bool vxContinue();

// Raises the host's own interrupt, as an exception of the host that passes through the module.
// Called after vxContinue returned false; the operation is abandoned as the exception passes.
[[noreturn]] void vxRaiseInterrupt();

} // extern "C"
