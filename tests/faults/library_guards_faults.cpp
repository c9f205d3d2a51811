// SPDX-License-Identifier: BSD-3-Clause
// The guards against bugs of the library. Each test makes a call that crashes, or writes past a
// buffer, when the library is called directly (docs/limits.md).
#include "tests/faults/fault_test.h"

#include <netcdf.h>

#include <algorithm>

namespace faults {
namespace {

class LibraryGuards : public FaultTest {
protected:
    int create(const Value& mode)
    {
        const Value path = folder.file("guarded.nc");
        return static_cast<int>(host.call("create", {path, mode}).at(0).toDouble());
    }
};

// Under the address sanitizer: the library writes four bytes whatever type is requested.
TEST_F(LibraryGuards, ReadGeneratedAttributesAsElementsOfAnySize)
{
    const int ncid = create("netcdf4");
    host.call("endDef", {ncid});
    for (const std::string name : {"_IsNetcdf4", "_SuperblockVersion"}) {
        // Before release 4.10.1, 0 for the first in a file that was created.
        const Value number = host.call("getAttInt", {ncid, NC_GLOBAL, name}).at(0);
        const bool isZero = number == Value::scalar<std::int32_t>(0);
        for (const fuzz::Operation& operation : fuzz::operations()) {
            if (operation.parameters != "nvN" || operation.dataClass == vxUNKNOWN_CLASS)
                continue;
            const Outcome outcome = host.attempt(operation.name, {ncid, NC_GLOBAL, name});
            ASSERT_THAT(outcome, testsupport::succeeds()) << operation.name << ' ' << name;
            // As text, the bytes of the int up to the first NUL.
            const bool isEmpty = operation.dataClass == vxCHAR_CLASS && isZero;
            EXPECT_EQ(outcome.results.at(0).numel(), isEmpty ? 0U : 1U) << operation.name << name;
        }
    }
    EXPECT_EQ(host.call("getAttInt", {ncid, NC_GLOBAL, "_SuperblockVersion"}).at(0),
              Value::scalar<std::int32_t>(2));
    EXPECT_EQ(host.call("getAttSchar", {ncid, NC_GLOBAL, "_SuperblockVersion"}).at(0),
              Value::scalar<std::int8_t>(2));
    EXPECT_EQ(host.call("getAttUshort", {ncid, NC_GLOBAL, "_SuperblockVersion"}).at(0),
              Value::scalar<std::uint16_t>(2));
    expectHealth();
}

TEST_F(LibraryGuards, ReadTheProvenanceAttributeAsBytes)
{
    const int ncid = create("netcdf4");
    host.call("endDef", {ncid});
    const std::string text =
        host.call("getAttText", {ncid, NC_GLOBAL, "_NCProperties"}).at(0).toText();
    const std::vector<std::uint8_t> elements =
        host.call("getAttUchar", {ncid, NC_GLOBAL, "_NCProperties"}).at(0).elements<std::uint8_t>();
    EXPECT_EQ(std::string(elements.begin(), elements.end()), text);
    expectHealth();
}

TEST_F(LibraryGuards, CopyTheProvenanceAttribute)
{
    const int ncid = create("netcdf4");
    host.call("endDef", {ncid});
    {
        const Value path = folder.file("classic.nc");
        const int classic =
            static_cast<int>(host.call("create", {path, "clobber"}).at(0).toDouble());
        host.call("copyAtt", {ncid, NC_GLOBAL, "_NCProperties", classic, NC_GLOBAL});
        EXPECT_EQ(host.call("getAttText", {classic, NC_GLOBAL, "_NCProperties"}),
                  host.call("getAttText", {ncid, NC_GLOBAL, "_NCProperties"}));
    }
    EXPECT_THAT(host.attempt("copyAtt", {ncid, NC_GLOBAL, "_NCProperties", ncid, NC_GLOBAL}),
                testsupport::succeeds());
    {
        const Value other = host.call("create", {folder.file("other.nc"), "netcdf4"}).at(0);
        EXPECT_THAT(host.attempt("copyAtt", {ncid, NC_GLOBAL, "_NCProperties", other, NC_GLOBAL}),
                    failsWithStatus("copyAtt", NC_ENAMEINUSE));
    }
    expectHealth();
}

// The library fails to close a file after a written variable was renamed to the name of a dimension
// that is not its own, or a dimension was named as a variable written before.
class FileThatBreaks : public LibraryGuards, public testing::WithParamInterface<bool> {
protected:
    int make()
    {
        const int ncid = create("netcdf4");
        host.call("putAttText", {ncid, NC_GLOBAL, "title", "kept"});
        host.call("defDim", {ncid, "x", 2});
        host.call("defDim", {ncid, "y", 3});
        host.call("defVar", {ncid, "v", NC_DOUBLE, Value::row<double>({0, 1})});
        group_ = static_cast<int>(host.call("defGrp", {ncid, "g"}).at(0).toDouble());
        host.call("endDef", {ncid});
        if (GetParam())
            host.attempt("renameVar", {ncid, 0, "x"});
        else
            host.attempt("defDim", {ncid, "v", 0});
        return ncid;
    }

    int group_ = 0;
};

TEST_P(FileThatBreaks, IsClosedByTheLibraryOnceOnly)
{
    const int ncid = make();
    // At first the library may fail to write, and only then to close.
    const auto failure = failsWithStatus("close", NC_EHDFERR);
    EXPECT_THAT(host.attempt("close", {ncid}), failure);
    host.attempt("close", {ncid});
    host.attempt("close", {ncid});
    LibraryStandIn library;
    for (const fuzz::Operation& operation : fuzz::operations()) {
        if (operation.parameters.find(fuzz::parameter::ncid) != 0)
            continue;
        const PreparedFile whole(folder.path(), operation.function);
        std::vector<Value> arguments = argumentsThatSucceed(operation, whole);
        for (const int id : {ncid, group_}) {
            arguments[0] = id;
            EXPECT_THAT(attempt(host, operation, arguments),
                        failsWithStatus(operation.name, NC_EBADID));
        }
        host.call("close", {whole.ncid()});
    }
    host.unload();
    EXPECT_EQ(std::count(library.closed.begin(), library.closed.end(), ncid), 0);
    EXPECT_THAT(host.warnings(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(LibraryGuards, FileThatBreaks, testing::Bool());

TEST_F(LibraryGuards, DoNotRenameAScalarAsADimensionOfItsNetcdf4Group)
{
    for (const char* mode : {"netcdf4", "clobber"}) {
        const int ncid = create(mode);
        host.call("defDim", {ncid, "x", 2});
        host.call("defVar", {ncid, "s", NC_INT, Value::empty()});
        const Outcome renamed = host.attempt("renameVar", {ncid, 0, "x"});
        if (std::string(mode) == "clobber")
            EXPECT_THAT(renamed, testsupport::succeeds());
        else
            EXPECT_THAT(renamed, failsWithStatus("renameVar", NC_ENAMEINUSE));
        EXPECT_THAT(host.attempt("renameVar", {ncid, 0, "other"}), testsupport::succeeds());
        host.call("close", {ncid});
    }
    // A dimension of a parent group has its name there.
    const int ncid = create("netcdf4");
    host.call("defDim", {ncid, "x", 2});
    const int group = static_cast<int>(host.call("defGrp", {ncid, "g"}).at(0).toDouble());
    host.call("defVar", {group, "s", NC_INT, Value::empty()});
    EXPECT_THAT(host.attempt("renameVar", {group, 0, "x"}), testsupport::succeeds());
    expectHealth();
}

// A Zarr store is renamed by other code of the library.
TEST_F(LibraryGuards, RenameAScalarAsADimensionOfItsZarrGroup)
{
    const std::string path = "file://" + folder.file("store") + "#mode=nczarr,file";
    const int ncid = static_cast<int>(host.call("create", {path, "netcdf4"}).at(0).toDouble());
    host.call("defDim", {ncid, "x", 2});
    host.call("defVar", {ncid, "s", NC_INT, Value::empty()});
    EXPECT_THAT(host.attempt("renameVar", {ncid, 0, "x"}), testsupport::succeeds());
    EXPECT_EQ(host.call("inqVarID", {ncid, "x"}).at(0).toDouble(), 0);
    expectHealth();
}

// A renaming that fails leaves a second identifier of the file without one of the dimensions.
TEST_F(LibraryGuards, RefuseAVariableWithoutItsDimension)
{
    const int first = create("netcdf4");
    host.call("defDim", {first, "x", 2});
    host.call("defDim", {first, "y", 3});
    host.call("defVar", {first, "v", NC_DOUBLE, Value::row<double>({0, 1})});
    host.call("endDef", {first});
    host.attempt("renameVar", {first, 0, "x"});
    host.attempt("renameVar", {first, 0, "other"});
    {
        const Value ncid = host.call("open", {folder.file("guarded.nc"), "write"}).at(0);
        const Value start = Value::row<double>({0, 0});
        const Value count = Value::row<double>({2, 1});
        const Value stride = Value::row<double>({1, 2});
        const Value two = Value::row<double>({1, 2});
        const struct {
            const char* operation;
            std::vector<Value> arguments;
        } calls[] = {
            {"getVarDouble", {ncid, 0}},
            {"getVar1Double", {ncid, 0, start}},
            {"getVaraDouble", {ncid, 0, start, count}},
            {"getVarsDouble", {ncid, 0, start, count, stride}},
            {"putVaraDouble", {ncid, 0, start, count, two}},
            {"putVarDouble", {ncid, 0, two}},
            {"renameVar", {ncid, 0, "x"}},
        };
        for (const auto& call : calls)
            EXPECT_THAT(host.attempt(call.operation, call.arguments),
                        failsWithStatus(call.operation, NC_EBADDIM));
    }
    for (const int ncid : openFiles())
        host.attempt("close", {ncid});
}

TEST_F(LibraryGuards, RefuseANetcdf4FileInAFullTable)
{
    LibraryStandIn library;
    library.answers = {{"nc_inq_path", NC_NOERR}};
    EXPECT_THAT(host.attempt("create", {folder.file("x.nc"), "netcdf4"}),
                failsWithStatus("create", NC_ENFILE));
    EXPECT_EQ(std::count(library.calls.begin(), library.calls.end(), "nc_create"), 0);
    host.call("close", {host.call("create", {folder.file("x.nc"), "clobber"}).at(0)});
}

} // namespace
} // namespace faults
