// SPDX-License-Identifier: BSD-3-Clause
// The warning about values of another class than the operation's. Writes take the bytes of the
// values, whatever their class, so that a script which passes the interpreter's doubles to
// "putVarFloat" stores nonsense without an error.
#pragma once

#include <octave/oct.h>

namespace hosts::oct {

// Warns, with the identifier Ovard:gridio:octave:rawBytes, when the call is a write whose values
// are of another class, or complex. Throws the interpreter's exception if the script has turned
// that warning into an error. Does not warn about a call that is refused anyway: an operation that
// does not exist or takes another number of arguments, or values that are empty or neither numeric
// nor text nor logical.
void warnOfRawBytes(const octave_value_list& args);

} // namespace hosts::oct
