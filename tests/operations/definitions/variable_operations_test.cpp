// SPDX-License-Identifier: BSD-3-Clause
// "defVar", "inqVarID", "inqVar", "renameVar".
#include "check_status.h"
#include "tests/operations/operation_test.h"
#include "tests/support/command_line_tools.h"
#include "tests/support/file_formats.h"
#include "tests/support/library_file.h"

#include <limits>

using namespace testsupport;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class Variables : public OperationTest {
protected:
    // A file with dimensions x, y and z, of the lengths 3, 4 and 5, and the identifiers 0, 1 and 2.
    int createGrid(const Value& mode = 0)
    {
        const int ncid = createFile("v.nc", mode);
        number("defDim", {ncid, "x", 3});
        number("defDim", {ncid, "y", 4});
        number("defDim", {ncid, "z", 5});
        return ncid;
    }
};

TEST_F(Variables, ListTheirDimensionsFastestFirst)
{
    const int ncid = createGrid();
    const int varid = id("defVar", {ncid, "v", NC_SHORT, row({0, 1, 2})});
    EXPECT_EQ(host.call("inqVar", {ncid, varid}).at(2), row({0, 1, 2}));
    int dimids[3] = {};
    require(nc_inq_vardimid(ncid, varid, dimids));
    EXPECT_THAT(dimids, ElementsAre(2, 1, 0));
    closeFile(ncid);
    EXPECT_THAT(ncdump(folder.file("v.nc"), "-h"), HasSubstr("short v(z, y, x) ;"));
}

TEST_F(Variables, AreFoundDescribedAndRenamed)
{
    ncgen(folder.file("v.nc"), "netcdf v { dimensions: x = 3 ; y = 4 ; variables: int a ; "
                               "double b(y, x) ; b:units = \"K\" ; b:scale = 2.f ; }");
    const int ncid = openFile("v.nc", "write");
    EXPECT_EQ(number("inqVarID", {ncid, "b"}), 1);
    const Values described = host.call("inqVar", {ncid, 1});
    EXPECT_EQ(described, (Values{"b", NC_DOUBLE, row({0, 1}), 2}));
    host.call("redef", {ncid});
    EXPECT_TRUE(host.call("renameVar", {ncid, 0, "counter"}).empty());
    closeFile(ncid);
    EXPECT_THAT(ncdump(folder.file("v.nc"), "-h"), HasSubstr("int counter ;"));
}

TEST_F(Variables, ReportTheLibrarysStatusForAnUnknownName)
{
    for (const FileFormat& format : fileFormats) {
        const int ncid = createGrid(format.mode);
        const Outcome outcome = attempt("inqVarID", {ncid, "w"});
        EXPECT_THAT(outcome, failsWith("inqVarID", NC_ENOTVAR)) << format.name;
        EXPECT_THAT(outcome.results, testing::IsEmpty()) << format.name;
        closeFile(ncid);
    }
}

TEST_F(Variables, ReportTheLibrarysOwnRenameFailures)
{
    const std::pair<int, const char*> refused[] = {
        {7, "w"}, {7, "x"}, {7, "a/b"}, {-1, "w"}, {-1, "x"},
        {-1, ""}, {0, ""},  {0, "a/b"}, {0, "s"},
    };
    for (const FileFormat& format : fileFormats) {
        const int ncid = createGrid(format.mode);
        number("defVar", {ncid, "v", NC_INT, row({0})});
        number("defVar", {ncid, "s", NC_INT, row({})});
        for (const auto& [varid, name] : refused) {
            const int status = nc_rename_var(ncid, varid, name);
            EXPECT_THAT(attempt("renameVar", {ncid, varid, name}),
                        failsInLibrary("renameVar", Ovard::gridio::errorCodeName(status), status))
                << format.name << ' ' << varid << ' ' << name;
        }
        closeFile(ncid);

        const int readOnly = openFile("v.nc", "nowrite");
        for (const int varid : {-1, 0, 1, 7}) // 1 would, in a netCDF-4 file, be a dimension's
            EXPECT_THAT(attempt("renameVar", {readOnly, varid, "x"}),
                        failsWith("renameVar", NC_EPERM))
                << format.name << ' ' << varid;
        closeFile(readOnly);
    }
}

TEST_F(Variables, HaveEveryTypeOfTheFormatAndNoOther)
{
    for (const FileFormat& format : fileFormats) {
        const int ncid = createFile("v.nc", format.mode);
        for (nc_type xtype = NC_BYTE; xtype <= NC_UINT64; ++xtype) {
            const std::string name = "v" + std::to_string(xtype);
            const Outcome outcome = attempt("defVar", {ncid, name, xtype, row({})});
            EXPECT_EQ(outcome.succeeded(), format.holds(xtype)) << format.name << ": " << outcome;
            if (outcome.succeeded()) {
                nc_type found = NC_NAT;
                require(nc_inq_vartype(ncid, id("inqVarID", {ncid, name}), &found));
                EXPECT_EQ(found, xtype) << format.name;
            }
        }
        EXPECT_THAT(attempt("defVar", {ncid, "w", NC_NAT, row({})}),
                    failsWith("defVar", NC_EBADTYPE))
            << format.name;
        closeFile(ncid);
    }
}

TEST_F(Variables, MayBeOfATypeWithoutAnElementType)
{
    const int ncid = createGrid("netcdf4");
    const int varid = id("defVar", {ncid, "s", NC_STRING, row({0})});
    EXPECT_EQ(host.call("inqVar", {ncid, varid}).at(1), Value(NC_STRING));
}

TEST_F(Variables, AreScalarWithoutDimensions)
{
    for (const Value& none : {Value::empty(), Value::empty(vxDOUBLE_CLASS, {1, 0})}) {
        const int ncid = createGrid();
        const int varid = id("defVar", {ncid, "v", NC_INT, none});
        EXPECT_EQ(host.call("inqVar", {ncid, varid}).at(2), Value::empty(vxDOUBLE_CLASS, {0, 0}));
        closeFile(ncid);
        EXPECT_THAT(ncdump(folder.file("v.nc"), "-h"), HasSubstr("int v ;"));
    }
}

TEST_F(Variables, TruncateTheirDimensionIdentifiers)
{
    const int ncid = createGrid();
    const int varid = id("defVar", {ncid, "v", NC_INT, 1.7});
    EXPECT_EQ(host.call("inqVar", {ncid, varid}).at(2), row({1}));
    EXPECT_EQ(host.call("inqVar", {ncid, id("defVar", {ncid, "w", NC_INT, -0.5})}).at(2), row({0}));
}

TEST_F(Variables, LeaveImpossibleDimensionIdentifiersToTheLibrary)
{
    const int ncid = createGrid();
    for (const double bad : {std::numeric_limits<double>::quiet_NaN(), 3.0, -1.0, 1e300})
        EXPECT_THAT(attempt("defVar", {ncid, "v", NC_INT, bad}), failsWith("defVar", NC_EBADDIM))
            << bad;
}

TEST_F(Variables, MayHaveUpTo1024Dimensions)
{
    const int ncid = createFile("v.nc", 0);
    number("defDim", {ncid, "x", 1});
    const int varid = id("defVar", {ncid, "v", NC_INT, Value::row(std::vector<double>(1024))});
    EXPECT_EQ(host.call("inqVar", {ncid, varid}).at(2).numel(), 1024U);
    EXPECT_THAT(attempt("defVar", {ncid, "w", NC_INT, Value::row(std::vector<double>(1025))}),
                raises("rowLengthOutOfBounds", {"dimids", 1024L}));
}

TEST_F(Variables, TakeNoDimensionIdentifiersButDoubles)
{
    const int ncid = createGrid();
    EXPECT_THAT(attempt("defVar", {ncid, "v", NC_INT, Value::row<std::int32_t>({0})}),
                raises("badRowDatatype", {"dimids"}));
}

TEST_F(Variables, RefuseNcGlobalBeforeCallingTheLibrary)
{
    for (const Value& ncid : {Value(-7), Value(createGrid())})
        EXPECT_THAT(attempt("inqVar", {ncid, NC_GLOBAL}), raises("inqVarNcGlobal"));
    EXPECT_THAT(attempt("inqVar", {"no", NC_GLOBAL}),
                raises("badScalarArgument", {"ncid", "numeric"}));
}

TEST_F(Variables, AreValidatedByTheLibrary)
{
    const int ncid = createGrid();
    number("defVar", {ncid, "v", NC_INT, row({})});
    EXPECT_THAT(attempt("defVar", {ncid, "v", NC_INT, row({})}),
                failsWith("defVar", NC_ENAMEINUSE));
    EXPECT_THAT(attempt("defVar", {ncid, "w", 99, row({})}), failsWith("defVar", NC_EBADTYPE));
    EXPECT_THAT(attempt("inqVarID", {ncid, "w"}), failsWith("inqVarID", NC_ENOTVAR));
    EXPECT_THAT(attempt("inqVarID", {-7, "v"}), failsWith("inqVarID", NC_EBADID));
    EXPECT_THAT(attempt("inqVar", {ncid, 1}), failsWith("inqVar", NC_ENOTVAR));
    EXPECT_THAT(attempt("inqVar", {ncid, -2}), failsWith("inqVar", NC_ENOTVAR));
    EXPECT_THAT(attempt("inqVar", {-7, 0}), failsWith("inqVar", NC_EBADID));
    EXPECT_THAT(attempt("renameVar", {ncid, 1, "w"}), failsWith("renameVar", NC_ENOTVAR));
    host.call("endDef", {ncid});
    EXPECT_THAT(attempt("defVar", {ncid, "w", NC_INT, row({})}),
                failsWith("defVar", NC_ENOTINDEFINE));
    EXPECT_THAT(attempt("renameVar", {ncid, 0, "longer"}), failsWith("renameVar", NC_ENOTINDEFINE));
}

TEST_F(Variables, AreReadLeftToRight)
{
    const Value bad = "bad";
    const Value badName = 5;
    const Value badRow = true;
    struct {
        const char* operation;
        Values arguments;
        const char* error;
        std::vector<standalone::Argument> details;
    } const cases[] = {
        {"defVar", {bad, badName, bad, badRow}, "badScalarArgument", {"ncid", "numeric"}},
        {"defVar", {1, badName, bad, badRow}, "argumentWasNotChar", {"variable"}},
        {"defVar", {1, "v", bad, badRow}, "badScalarArgument", {"xtype", "numeric"}},
        {"defVar", {1, "v", 1e10, badRow}, "argumentOutOfBounds", {}},
        {"defVar", {1, "v", NC_INT, badRow}, "badRowDatatype", {"dimids"}},
        {"inqVarID", {bad, badName}, "badScalarArgument", {"ncid", "numeric"}},
        {"inqVarID", {1, badName}, "argumentWasNotChar", {"variable"}},
        {"inqVar", {bad, bad}, "badScalarArgument", {"ncid", "numeric"}},
        {"inqVar", {1, bad}, "badScalarArgument", {"varid", "numeric"}},
        {"inqVar", {1, 1e10}, "argumentOutOfBounds", {}},
        {"renameVar", {bad, bad, badName}, "badScalarArgument", {"ncid", "numeric"}},
        {"renameVar", {1, bad, badName}, "badScalarArgument", {"varid", "numeric"}},
        {"renameVar", {1, 0, badName}, "argumentWasNotChar", {"variable"}},
    };
    for (const auto& c : cases)
        EXPECT_THAT(attempt(c.operation, c.arguments), raises(c.error, c.details)) << c.operation;
}

} // namespace
