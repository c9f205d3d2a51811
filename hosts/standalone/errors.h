// SPDX-License-Identifier: BSD-3-Clause
// An error as a script would see it, and the exceptions of this host.
#pragma once

#include "vx/error.h"

#include <exception>
#include <iosfwd>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace standalone {

using Argument = std::variant<std::string, long>; // texts in UTF-8

// An error, or a warning.
struct Raised {
    std::string identifier; // "Ovard:gridio:netcdf:libraryFailure", or our own "standalone:..."
    std::vector<Argument> arguments;
    std::string message;

    // The last word of the identifier: "libraryFailure".
    std::string name() const;
};

// "standalone:outOfMemory": no memory is left. "standalone:internal": an exception left the module
// that should not.
extern const char* const outOfMemoryIdentifier;
extern const char* const internalErrorIdentifier;

// The identifier of an interrupt.
extern const char* const interruptIdentifier;

// Its text is composed from the running call, if there is one.
Raised describe(const msgcat::BaseMsgID& id);

// The current exception, of any type. Called in a catch block.
Raised describeCurrentException() noexcept;

std::ostream& operator<<(std::ostream& out, const Raised& raised);

// Thrown by Host::call, and by a raiser that throws.
class RaisedError : public std::exception {
public:
    explicit RaisedError(Raised raised) : raised_(std::move(raised)) {}

    const Raised& raised() const noexcept { return raised_; }
    const char* what() const noexcept override { return raised_.message.c_str(); }

private:
    Raised raised_;
};

// This host's own out-of-memory error. Deliberately unrelated to std::bad_alloc: it must pass
// through a module that does not know it.
class OutOfMemory : public std::exception {
public:
    const char* what() const noexcept override { return "out of memory"; }
};

// This host's interrupt.
class Interrupt : public std::exception {
public:
    const char* what() const noexcept override { return "interrupted"; }
};

} // namespace standalone
