// SPDX-License-Identifier: BSD-3-Clause
// Showing how far a long operation is.
#pragma once

extern "C" {

// Called by the thread that called plugFunction, and by no other: often in the course of a long
// operation, with the part of it that is done, from 0 to 1, and once with a negative number when it
// ends, also when an exception ends it. What a host makes of it is up to the host: one without a
// terminal does nothing. It raises nothing and must be cheap.
void vxShowProgress(double done);

} // extern "C"
