// SPDX-License-Identifier: BSD-3-Clause
// One call of the module from a script: arguments in, results or an error out, and nothing else.
#pragma once

#include "hosts/minimal/array.h"

#include "vx/plug.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace minimal {

// An error as the script sees it.
class Error : public std::runtime_error {
public:
    Error(std::string identifier, const std::string& text)
        : std::runtime_error(text), identifier_(std::move(identifier))
    {
    }
    const std::string& identifier() const noexcept { return identifier_; }

private:
    std::string identifier_;
};

// The identifiers of errors that are not the module's.
extern const char* const outOfMemoryIdentifier;
extern const char* const interruptIdentifier;
extern const char* const internalIdentifier;

// Calls an entry of the module; throws Error and nothing else.
using Entry = decltype(&plugFunction);
std::vector<Value> call(Entry entry, const std::vector<Value>& arguments, int nlhs = 1);

// What the script's variables are made of. More classes: makeArray, and fill the elements.
Value number(double value);
Value text(const std::string& bytes);

// The user's wish to end a long operation; a signal handler may set it.
void requestInterrupt() noexcept;

// The module's end: runs the handler that plugAtExit was given, once.
void unload();

// For the vx functions. An array that was created belongs to the call; takeFromCall hands it on.
vxArray* keepForCall(Value array);
Value takeFromCall(const vxArray* array);

} // namespace minimal
