// SPDX-License-Identifier: BSD-3-Clause
// Every library call of every operation fails in turn.
#include "tests/faults/any_operation_calls.h"
#include "tests/faults/fault_test.h"

#include <netcdf.h>

#include <algorithm>
#include <map>

namespace faults {
namespace {

// Every status that has a name, others that a library may give, and errors of the system.
std::vector<int> everyStatus()
{
    std::vector<int> all = {1, 2, 5, 12, 13, 24, 27, 28, 30, 116, -2, -32, -77, -100, -129, -200};
    for (int status = NC_ENOTBUILT; status <= NC2_ERR; ++status) {
        if (status >= NC_EHDFERR - 27 && status <= NC_EHDFERR)
            all.push_back(status);
        if ((status >= NC_ETRANSLATION && status <= NC_EBADID) || status == NC2_ERR)
            all.push_back(status);
    }
    return all;
}

class LibraryStatus : public FaultTest {};

TEST_F(LibraryStatus, IsTriedWithEveryNamedStatus)
{
    const std::vector<int> all = everyStatus();
    EXPECT_EQ(
        std::count_if(all.begin(), all.end(), [](int s) { return nc_strerror(s) != nullptr; }),
        73 + 16);
}

// Each status once, to cover names, texts and the choice between the two identifiers.
TEST_F(LibraryStatus, IsRaisedWithItsNameAndText)
{
    const PreparedFile file(folder.path());
    for (const int status : everyStatus()) {
        LibraryStandIn library;
        library.failingCall = 1;
        library.status = status;
        EXPECT_THAT(host.attempt("sync", {file.ncid()}), failsWithStatus("sync", status));
    }
    expectHealth();
}

// Calls whose failure the operation tolerates: it makes them to choose between alternatives, and
// the call that follows reports the error.
bool mayFailSilently(const std::string& operation, const std::string& call)
{
    if (operation == "close")
        return call != "nc_close";
    const bool isCreating = operation == "create" || operation == "pCreate";
    if (isCreating && (call == "nc_set_default_format" || call == "nc_inq_path"))
        return true;
    if (operation.compare(0, 3, "def") == 0 && call == "nc_inq_dimid")
        return true; // a dimension that has the name of the new type
    if (operation == "renameDim" && call == "nc_inq_varndims")
        return true; // of a variable that cannot be used either
    return call == "nc_inq_format_extended";
}

const std::vector<int> causes = {NC_EHDFERR, NC_ENOMEM, NC_EDAP, NC_ENODATA, 28, -77};

class EveryLibraryCall : public FaultTest, public testing::WithParamInterface<fuzz::Operation> {
protected:
    // The library calls of the operation when it succeeds.
    std::vector<std::string> callsOf(const fuzz::Operation& operation)
    {
        std::vector<std::string> calls;
        {
            const PreparedFile file(folder.path(), operation.function);
            const std::vector<Value> arguments = argumentsThatSucceed(operation, file);
            LibraryStandIn library;
            const Outcome outcome = attempt(host, operation, arguments);
            EXPECT_THAT(outcome, testsupport::succeeds());
            calls = library.calls;
            completeNewType(operation, file);
            if (operation.name == "pCreate" && outcome.succeeded())
                expectUnheld(static_cast<int>(outcome.results.at(1).toDouble()));
        }
        expectHealth();
        return calls;
    }
};

TEST_P(EveryLibraryCall, FailsAsAnErrorOfTheOperation)
{
    const fuzz::Operation& operation = GetParam();
    const std::vector<std::string> calls = callsOf(operation);
    for (std::size_t n = 1; n <= calls.size(); ++n) {
        if (calls[n - 1].compare(0, 8, "nc_free_") == 0)
            continue; // they cannot fail, and would leave memory behind
        for (const int status : causes) {
            SCOPED_TRACE(calls[n - 1] + " gives " + std::to_string(status));
            {
                const PreparedFile file(folder.path(), operation.function);
                const std::vector<Value> arguments = argumentsThatSucceed(operation, file);
                LibraryStandIn library;
                library.failingCall = n;
                library.status = status;
                const Outcome outcome = attempt(host, operation, arguments);
                if (outcome.succeeded()) {
                    EXPECT_TRUE(mayFailSilently(operation.name, calls[n - 1]));
                    if (operation.name == "pCreate")
                        expectUnheld(static_cast<int>(outcome.results.at(1).toDouble()));
                } else {
                    EXPECT_THAT(outcome, failsWithStatus(operation.name, status));
                    EXPECT_THAT(outcome.results, testing::IsEmpty());
                }
                // Written, but not closed: the library may have torn it down.
                if (calls[n - 1] == "nc_close")
                    expectUnheld(file.ncid());
                completeNewType(operation, file);
            }
            expectHealth();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Operations, EveryLibraryCall, testing::ValuesIn(fuzz::operations()),
                         [](const auto& operation) { return operation.param.title(); });

class PartlyWrittenVariable : public FaultTest {
protected:
    // A variable that is shorter than both of its dimensions, in a group of a new file.
    int make()
    {
        const Value file = host.call("create", {folder.file("partly.nc"), "netcdf4"}).at(0);
        const Value row = Value::row<double>({0, 1});
        host.call("defDim", {file, "x", 0});
        host.call("defDim", {file, "t", 0});
        const Value group = host.call("defGrp", {file, "g"}).at(0);
        host.call("defVar", {group, "v", NC_INT, row});
        host.call("defVar", {group, "w", NC_INT, row});
        host.call("putVar1Int", {group, 0, Value::row<double>({1, 1}), 1});
        host.call("putVar1Int", {group, 1, Value::row<double>({2, 2}), 1});
        return static_cast<int>(group.toDouble());
    }

    std::vector<std::string> callsOfRead(int group)
    {
        LibraryStandIn library;
        host.call("getVarInt", {group, 0});
        return library.calls;
    }

    void closeFile(int group) { host.call("close", {group & ~0xFFFF}); }
};

TEST_F(PartlyWrittenVariable, IsReadByOneCallApartFromTheFillValue)
{
    const int group = make();
    const std::vector<std::string> calls = callsOfRead(group);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "nc_get_vars_int"), 2);
    closeFile(group);
}

// The written part is not guessed from the last value: land masks end with fill values.
TEST_F(PartlyWrittenVariable, IsDistinguishedFromAWrittenOneThatEndsWithAFillValue)
{
    const int group = make();
    const Value count = Value::row<double>({3, 3});
    const Value values =
        Value::numeric<std::int32_t>({3, 3}, {1, 2, 3, 4, 5, 6, 7, 8, NC_FILL_INT});
    host.call("putVaraInt", {group, 0, Value::row<double>({0, 0}), count, values});
    const std::vector<std::string> calls = callsOfRead(group);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "nc_get_var_int") +
                  std::count(calls.begin(), calls.end(), "nc_get_vars_int"),
              1);
    EXPECT_EQ(host.call("getVarInt", {group, 0}).at(0), values);
    closeFile(group);
}

// Extents once seen to be written are not inquired again.
TEST_F(PartlyWrittenVariable, IsNotInquiredFromHdf5WhenKnownToBeWritten)
{
    const int group = make();
    callsOfRead(group);
    const Value index = Value::row<double>({0, 0});
    const Value count = Value::row<double>({2, 2});
    LibraryStandIn library;
    host.call("getVaraInt", {group, 0, index, count});
    EXPECT_EQ(std::count(library.calls.begin(), library.calls.end(), "nc_inq_grpname_full"), 0);
    closeFile(group);
}

TEST_F(PartlyWrittenVariable, FailsToBeReadWithEachCall)
{
    const int group = make();
    const std::vector<std::string> calls = callsOfRead(group);
    closeFile(group);
    for (std::size_t n = 1; n <= calls.size(); ++n) {
        for (const int status : causes) {
            SCOPED_TRACE(calls[n - 1] + " gives " + std::to_string(status));
            const int fresh = make();
            {
                LibraryStandIn library;
                library.failingCall = n;
                library.status = status;
                const Outcome outcome = host.attempt("getVarInt", {fresh, 0});
                if (outcome.succeeded())
                    EXPECT_TRUE(mayFailSilently("getVarInt", calls[n - 1]));
                else
                    EXPECT_THAT(outcome, failsWithStatus("getVarInt", status));
            }
            closeFile(fresh);
        }
    }
    expectHealth();
}

} // namespace
} // namespace faults
