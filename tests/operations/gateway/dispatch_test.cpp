// SPDX-License-Identifier: BSD-3-Clause
// From the first argument to the handler.
#include "tests/support/module_test.h"

namespace testsupport {
namespace {

using standalone::Value;

using Dispatch = ModuleTest;

TEST_F(Dispatch, FindsOnlyTheExactSpellingOfOpen)
{
    const Value missing = folder.file("missing.nc");
    EXPECT_THAT(host.attempt("open", {missing, "nowrite"}),
                raises("libraryFailure", {"open", "2", "No such file or directory"}));
    for (const char* name : {"Open", "oPen", "opEn", "opeN", "OPEN"})
        EXPECT_THAT(host.attempt(name, {missing, "nowrite"}),
                    raises("unrecognizedOperation", {name}));
}

} // namespace
} // namespace testsupport
