// SPDX-License-Identifier: BSD-3-Clause
// "defDim", "inqDimID", "inqDim", "renameDim".
#include "tests/operations/operation_test.h"
#include "tests/support/command_line_tools.h"
#include "tests/support/library_file.h"

using namespace testsupport;
using testing::HasSubstr;

namespace {

class Dimensions : public OperationTest {};

TEST_F(Dimensions, AreDefinedFoundDescribedAndRenamed)
{
    const int ncid = createFile("d.nc", 0);
    EXPECT_EQ(host.call("defDim", {ncid, "x", 3}).size(), 1U);
    EXPECT_EQ(number("defDim", {ncid, "longitude", 4.9}), 1);
    EXPECT_EQ(number("inqDimID", {ncid, "longitude"}), 1);
    const Values described = host.call("inqDim", {ncid, 1});
    ASSERT_EQ(described.size(), 2U);
    EXPECT_EQ(described[0], Value("longitude"));
    EXPECT_EQ(described[1], Value(4));
    EXPECT_TRUE(host.call("renameDim", {ncid, 0, "y"}).empty());
    closeFile(ncid);
    EXPECT_EQ(ncdump(folder.file("d.nc"), "-h"),
              "netcdf test {\ndimensions:\n\ty = 3 ;\n\tlongitude = 4 ;\n}\n");
}

TEST_F(Dimensions, AreUnlimitedWithLengthZero)
{
    const int ncid = createFile("d.nc", 0);
    number("defDim", {ncid, "t", 0});
    EXPECT_EQ(host.call("inqDim", {ncid, 0}).at(1), Value(0));
    closeFile(ncid);
    EXPECT_THAT(ncdump(folder.file("d.nc"), "-h"), HasSubstr("t = UNLIMITED ;"));
}

TEST_F(Dimensions, AreUnlimitedAtMostOnceInAClassicFile)
{
    const int ncid = createFile("d.nc", 0);
    number("defDim", {ncid, "t", 0});
    EXPECT_THAT(attempt("defDim", {ncid, "u", 0}), failsWith("defDim", NC_EUNLIMIT));
    EXPECT_THAT(attempt("defDim", {ncid, "u", -0.5}), failsWith("defDim", NC_EUNLIMIT));
}

TEST_F(Dimensions, RaiseWhenMissingAndNeverReturnMinusOne)
{
    for (const char* mode : {"clobber", "netcdf4"}) {
        const int ncid = createFile("d.nc", mode);
        const Outcome outcome = attempt("inqDimID", {ncid, "z"});
        EXPECT_THAT(outcome, failsWith("inqDimID", NC_EBADDIM)) << mode;
        EXPECT_THAT(outcome.results, testing::IsEmpty()) << mode;
        closeFile(ncid);
    }
}

TEST_F(Dimensions, TakeOnlyTextForTheirName)
{
    for (const Value& bad : {Value(5), row({65, 66}), Value::empty(), Value::cell({1, 1}, {"x"})}) {
        const auto refusal = raises("argumentWasNotChar", {"dimension"});
        EXPECT_THAT(attempt("defDim", {1, bad, 3}), refusal) << bad;
        EXPECT_THAT(attempt("inqDimID", {1, bad}), refusal) << bad;
        EXPECT_THAT(attempt("renameDim", {1, 0, bad}), refusal) << bad;
    }
}

TEST_F(Dimensions, ReportTheirPresentLengthWhenUnlimited)
{
    ncgen(folder.file("d.nc"), "netcdf d { dimensions: t = UNLIMITED ; variables: int v(t) ; "
                               "data: v = 1, 2, 3, 4, 5 ; }");
    const int ncid = openFile("d.nc");
    EXPECT_EQ(host.call("inqDim", {ncid, 0}).at(1), Value(5));
}

TEST_F(Dimensions, KeepLengthsAboveTwoTo32)
{
    const int ncid = createFile("d.nc");
    const double length = 9007199254740991; // 2^53 - 1
    number("defDim", {ncid, "x", length});
    EXPECT_EQ(host.call("inqDim", {ncid, 0}).at(1), Value(length));
}

TEST_F(Dimensions, KeepLengthsFromTwoTo63Positive)
{
    for (const int mode : {NC_64BIT_DATA, NC_NETCDF4}) {
        const int ncid = createFile("d.nc", mode);
        number("defDim", {ncid, "x", Value::scalar((std::uint64_t{1} << 63) + 4096)});
        EXPECT_EQ(host.call("inqDim", {ncid, 0}).at(1), Value(9223372036854779904.0)) << mode;
        host.call("abort", {ncid});
    }
}

TEST_F(Dimensions, RefuseNegativeLengths)
{
    for (const Value& length : {Value(-1), Value::scalar<std::int8_t>(-1), Value(0x1p64)})
        EXPECT_THAT(attempt("defDim", {-7, "x", length}), raises("argumentOutOfBounds")) << length;
}

TEST_F(Dimensions, AreValidatedByTheLibrary)
{
    const int ncid = createFile("d.nc", 0);
    number("defDim", {ncid, "x", 3});
    number("defDim", {ncid, "y", 3});
    EXPECT_THAT(attempt("defDim", {ncid, "x", 4}), failsWith("defDim", NC_ENAMEINUSE));
    EXPECT_THAT(attempt("defDim", {ncid, "", 4}), failsWith("defDim", NC_EBADNAME));
    EXPECT_THAT(attempt("defDim", {ncid, Value::empty(vxCHAR_CLASS), 4}),
                failsWith("defDim", NC_EBADNAME));
    EXPECT_THAT(attempt("inqDimID", {ncid, "z"}), failsWith("inqDimID", NC_EBADDIM));
    EXPECT_THAT(attempt("inqDim", {ncid, 2}), failsWith("inqDim", NC_EBADDIM));
    EXPECT_THAT(attempt("inqDim", {ncid, -1}), failsWith("inqDim", NC_EBADDIM));
    EXPECT_THAT(attempt("renameDim", {ncid, 0, "y"}), failsWith("renameDim", NC_ENAMEINUSE));
    host.call("endDef", {ncid});
    EXPECT_THAT(attempt("defDim", {ncid, "z", 4}), failsWith("defDim", NC_ENOTINDEFINE));
    closeFile(ncid);
    EXPECT_THAT(attempt("defDim", {ncid, "z", 4}), failsWith("defDim", NC_EBADID));
    EXPECT_THAT(attempt("inqDimID", {ncid, "x"}), failsWith("inqDimID", NC_EBADID));
    EXPECT_THAT(attempt("inqDim", {ncid, 0}), failsWith("inqDim", NC_EBADID));
    EXPECT_THAT(attempt("renameDim", {ncid, 0, "z"}), failsWith("renameDim", NC_EBADID));
}

TEST_F(Dimensions, HaveNamesInUtf8)
{
    const int ncid = createFile("d.nc");
    number("defDim", {ncid, "Höhe", 3});
    EXPECT_EQ(host.call("inqDim", {ncid, 0}).at(0), Value("Höhe"));
    EXPECT_EQ(number("inqDimID", {ncid, "Höhe"}), 0);
    closeFile(ncid);
    EXPECT_THAT(ncdump(folder.file("d.nc"), "-h"), HasSubstr("Höhe = 3 ;"));
}

TEST_F(Dimensions, AreReadLeftToRight)
{
    const Value bad = "bad"; // as a number
    const Value badName = 5;
    struct {
        const char* operation;
        Values arguments;
        const char* error;
        std::vector<standalone::Argument> details;
    } const cases[] = {
        {"defDim", {bad, badName, bad}, "badScalarArgument", {"ncid", "numeric"}},
        {"defDim", {1, badName, bad}, "argumentWasNotChar", {"dimension"}},
        {"defDim", {1, "x", bad}, "badScalarArgument", {"dim_length", "numeric"}},
        {"defDim", {1, "x", row({1, 2})}, "badScalarArgument", {"dim_length", "numeric"}},
        {"defDim", {1, "x", true}, "badScalarArgument", {"dim_length", "numeric"}},
        {"defDim", {3e9, badName, bad}, "argumentOutOfBounds", {}},
        {"inqDimID", {bad, badName}, "badScalarArgument", {"ncid", "numeric"}},
        {"inqDimID", {1, badName}, "argumentWasNotChar", {"dimension"}},
        {"inqDim", {bad, bad}, "badScalarArgument", {"ncid", "numeric"}},
        {"inqDim", {1, bad}, "badScalarArgument", {"dimid", "numeric"}},
        {"inqDim", {1, -3e9}, "argumentOutOfBounds", {}},
        {"renameDim", {bad, bad, badName}, "badScalarArgument", {"ncid", "numeric"}},
        {"renameDim", {1, bad, badName}, "badScalarArgument", {"dimid", "numeric"}},
        {"renameDim", {1, 0, badName}, "argumentWasNotChar", {"dimension"}},
    };
    for (const auto& c : cases)
        EXPECT_THAT(attempt(c.operation, c.arguments), raises(c.error, c.details)) << c.operation;
}

} // namespace
