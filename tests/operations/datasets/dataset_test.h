// SPDX-License-Identifier: BSD-3-Clause
// What the tests of the third table share: files made by ncgen, and short calls.
#pragma once

#include "tests/operations/operation_test.h"
#include "tests/support/command_line_tools.h"

#include <gmock/gmock.h>

namespace testsupport {

class DatasetTest : public OperationTest {
protected:
    using Dims = standalone::Dims;

    // Opens what ncgen makes of the body of a file's text.
    int openMade(const std::string& body, const std::string& kind = "nc4")
    {
        ncgen(folder.file("made.nc"), "netcdf made {" + body + "}", kind);
        return openFile("made.nc");
    }

    Values results(const std::string& operation, const Values& arguments, int nlhs = 1)
    {
        return host.callDataset(operation, arguments, nlhs);
    }
    Value result(const std::string& operation, const Values& arguments)
    {
        return results(operation, arguments).at(0);
    }
    Outcome attemptDataset(const std::string& operation, const Values& arguments)
    {
        return host.attemptDataset(operation, arguments);
    }

    static std::vector<std::string> texts(const Value& cells)
    {
        std::vector<std::string> list;
        for (const Value& cell : cells.cells())
            list.push_back(cell.isEmpty() ? "" : cell.toText());
        return list;
    }
    static std::vector<double> numbers(const Value& array) { return array.elements<double>(); }
};

// One of the identifiers of dataset_error_identifiers.h, by its last word.
inline testing::Matcher<const standalone::Outcome&>
raisesInDatasets(const std::string& name, std::vector<standalone::Argument> arguments)
{
    return RaisesMatcher("Ovard:gridio:dataset:" + name, std::move(arguments));
}

} // namespace testsupport
