// SPDX-License-Identifier: BSD-3-Clause
// Matchers of what became of a call.
//
//     EXPECT_THAT(host.attempt("open", {path, "write"}),
//                 raises("libraryFailure", {"open", "2", "No such file or directory"}));
//     EXPECT_THAT(outcomeOf([&] { return readFlag(one.array(), "shuffle flag"); }),
//                 raises("expectedLogicalType", {"shuffle flag"}));
#pragma once

#include "hosts/standalone/host.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace testsupport {

// Full identifier from the last word: the two generic failures have a namespace of their own, and
// "outOfMemory" and "internal" are the host's.
inline std::string fullIdentifier(const std::string& name)
{
    if (name == "outOfMemory" || name == "internal")
        return "standalone:" + name;
    const bool isGeneric = name == "wrongNumberOfInputs" || name == "argumentOutOfBounds";
    return std::string("Ovard:gridio:") + (isGeneric ? "validate:" : "netcdf:") + name;
}

class RaisesMatcher {
public:
    using is_gtest_matcher = void;

    RaisesMatcher(std::string identifier, std::vector<standalone::Argument> arguments)
        : expected_{std::move(identifier), std::move(arguments), {}}
    {
    }

    bool MatchAndExplain(const standalone::Outcome& outcome, std::ostream*) const
    {
        return outcome.raised && outcome.raised->identifier == expected_.identifier &&
               outcome.raised->arguments == expected_.arguments;
    }
    void DescribeTo(std::ostream* out) const { *out << "raises " << expected_; }
    void DescribeNegationTo(std::ostream* out) const { *out << "does not raise " << expected_; }

private:
    standalone::Raised expected_;
};

// The identifier by its last word, and all its arguments in their order: texts, or numbers as long.
inline testing::Matcher<const standalone::Outcome&>
raises(const std::string& name, std::vector<standalone::Argument> arguments = {})
{
    return RaisesMatcher(fullIdentifier(name), std::move(arguments));
}

MATCHER(succeeds, "succeeds") { return arg.succeeded(); }

// What became of a piece of the module that a test runs by itself. An exception that no identifier
// stands for raises "internal" (arguments: its what()).
template <class Function> standalone::Outcome outcomeOf(Function&& function)
{
    try {
        static_cast<void>(function());
        return {};
    } catch (...) {
        return {{}, standalone::describeCurrentException()};
    }
}

} // namespace testsupport
