// SPDX-License-Identifier: BSD-3-Clause
// The common fixture of message tests: the text of a call's error, and a file for the calls.
#pragma once

#include "tests/operations/operation_test.h"
#include "tests/support/command_line_tools.h"
#include "tests/support/library_file.h"

#include <gmock/gmock.h>

#include <string>

namespace testsupport {

class MessageTest : public OperationTest {
protected:
    // The text of the error that the call must raise.
    std::string messageOf(const std::string& operation, const Values& arguments)
    {
        const Outcome outcome = attempt(operation, arguments);
        EXPECT_TRUE(outcome.raised) << operation;
        return outcome.raised ? outcome.raised->message : "";
    }

    // A classic file in data mode with the dimensions lon (4), lat (3) and the unlimited time (12),
    // and the variables t of all three, s of none, title of characters and flag of bytes.
    int makeFile(const std::string& name = "file.nc", const Value& mode = "clobber")
    {
        const int ncid = createFile(name, mode);
        const int lon = id("defDim", {ncid, "lon", 4});
        const int lat = id("defDim", {ncid, "lat", 3});
        const int time = id("defDim", {ncid, "time", 0});
        host.call("defVar", {ncid, "t", NC_DOUBLE, row({double(lon), double(lat), double(time)})});
        host.call("defVar", {ncid, "s", NC_DOUBLE, Value::empty()});
        host.call("defVar", {ncid, "title", NC_CHAR, double(lon)});
        host.call("defVar", {ncid, "flag", NC_BYTE, row({double(lon), double(lat)})});
        host.call("putAttText", {ncid, 0, "units", "K"});
        host.call("putAttText", {ncid, NC_GLOBAL, "history", "made"});
        host.call("endDef", {ncid});
        const std::vector<double> values(4 * 3 * 12, 280);
        host.call("putVaraDouble", {ncid, 0, row({0, 0, 0}), row({4, 3, 12}), Value::row(values)});
        return ncid;
    }
};

} // namespace testsupport
