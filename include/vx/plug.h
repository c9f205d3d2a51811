// SPDX-License-Identifier: BSD-3-Clause
// The module's entry points, and the registration of its unload handler.
#pragma once

#include "vx/array.h"

// The largest number of results that any operation sets: a host passes at least this many slots,
// all null, in every call, even if the script requested fewer.
constexpr int plugResultSlots = 5;

// Threads. The host calls an entry from one thread at a time. During the call the module calls the
// functions of vx/ from that thread alone, whichever other threads it uses itself: no vx function
// has to be safe against another that runs at the same time. The handler of plugAtExit runs when no
// call is under way.

extern "C" {

// Defined by the module. arguments[0] names the operation, the rest are the operation's arguments;
// nrhs counts them all. Results are left in results[0], results[1], ... in the operation's order,
// whatever nlhs says. A failure leaves the module as an exception that implements
// fnd::except::IMsgIDException (vx/error.h), or as the host's own exception that was raised in a vx
// function; results are then not to be used.
void plugFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[]);

// Defined by the module: its second entry, for the operations on values of any type. It differs
// from plugFunction only in that some results are set only if nlhs requests them.
void plugAnyFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[]);

// Defined by the module: its third entry, for the operations that the host's dataset classes use. In
// all else it is like plugAnyFunction.
void plugDatasetFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[]);

// Defined by the host: registers the function to be called once, when the host unloads the module
// or ends, before the module's static objects are destroyed. The last registration replaces earlier
// ones. It must be cheap: the module repeats it at every call.
void plugAtExit(void (*handler)());

} // extern "C"
