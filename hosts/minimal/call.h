// SPDX-License-Identifier: BSD-3-Clause
// One call of the module from a script, with results or an error as its outcome.
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

// Values of the script's variables. For more classes use makeArray, and fill the elements.
Value number(double value);
Value text(const std::string& bytes);

// Set when the user wants to interrupt a long operation, for instance by a signal handler.
void requestInterrupt() noexcept;

// Unloads the module: runs the handler passed to plugAtExit, once.
void unload();

// For the vx functions. A created array belongs to the call; takeFromCall passes it on.
vxArray* keepForCall(Value array);
Value takeFromCall(const vxArray* array);

} // namespace minimal
