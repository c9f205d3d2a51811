// SPDX-License-Identifier: BSD-3-Clause
// Chunking, compression and checksum.
#include "tests/operations/operation_test.h"
#include "tests/support/command_line_tools.h"
#include "tests/support/file_formats.h"
#include "tests/support/library_file.h"

#include <limits>

using namespace testsupport;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class StorageSettings : public OperationTest {
protected:
    // A file with a variable v(y, x) of 20 by 30, identifier 0, and a scalar s, identifier 1.
    int createGrid(const Value& mode = "netcdf4")
    {
        const int ncid = createFile("s.nc", mode);
        number("defDim", {ncid, "x", 30});
        number("defDim", {ncid, "y", 20});
        number("defVar", {ncid, "v", NC_INT, row({0, 1})});
        number("defVar", {ncid, "s", NC_INT, row({})});
        return ncid;
    }
    std::string dumped(int ncid)
    {
        closeFile(ncid);
        return ncdump(folder.file("s.nc"), "-hs");
    }
};

TEST_F(StorageSettings, ListChunkSizesFastestFirst)
{
    const int ncid = createGrid();
    EXPECT_TRUE(host.call("defVarChunking", {ncid, 0, NC_CHUNKED, row({10, 5})}).empty());
    std::size_t sizes[2] = {};
    require(nc_inq_var_chunking(ncid, 0, nullptr, sizes));
    EXPECT_THAT(sizes, ElementsAre(5U, 10U));
    EXPECT_EQ(host.call("inqVarChunking", {ncid, 0}), (Values{"chunked", row({10, 5})}));
    EXPECT_THAT(dumped(ncid), HasSubstr("v:_ChunkSizes = 5, 10 ;"));
}

TEST_F(StorageSettings, TakeOneChunkSizeForEachDimension)
{
    const int ncid = createGrid();
    number("defDim", {ncid, "z", 2});
    const int cube = id("defVar", {ncid, "cube", NC_INT, row({0, 1, 2})});
    EXPECT_THAT(attempt("defVarChunking", {ncid, cube, NC_CHUNKED, row({1, 1})}),
                raises("invalidChunkParameter", {2L, 3L}));
    EXPECT_THAT(attempt("defVarChunking", {ncid, 0, NC_CHUNKED, row({})}),
                raises("invalidChunkParameter", {0L, 2L}));
    EXPECT_THAT(attempt("defVarChunking", {ncid, 1, NC_CHUNKED, row({4})}),
                raises("invalidChunkParameter", {1L, 0L}));
}

TEST_F(StorageSettings, IgnoreChunkSizesOfContiguousVariables)
{
    for (const Value& sizes : {row({}), row({1}), row({1, 2, 3}), row({-1, 0})}) {
        const int ncid = createGrid();
        EXPECT_THAT(attempt("defVarChunking", {ncid, 0, NC_CONTIGUOUS, sizes}), succeeds())
            << sizes;
        EXPECT_THAT(dumped(ncid), HasSubstr("v:_Storage = \"contiguous\" ;")) << sizes;
    }
}

TEST_F(StorageSettings, AcceptOnlyChunkedAndContiguous)
{
    for (const int storage : {2, -1, 3})
        EXPECT_THAT(attempt("defVarChunking", {-7, 0, storage, row({})}),
                    raises("unrecognizedChunkStorage"))
            << storage;
}

TEST_F(StorageSettings, ReportABadRowBeforeABadStorage)
{
    EXPECT_THAT(attempt("defVarChunking", {-7, 0, 2, Value::row<std::int32_t>({1})}),
                raises("badRowDatatype", {"chunk dims"}));
    EXPECT_THAT(attempt("defVarChunking", {-7, 0, 2, Value::row(std::vector<double>(1025))}),
                raises("rowLengthOutOfBounds", {"chunk dims", 1024L}));
}

TEST_F(StorageSettings, LeaveAbsurdChunkSizesToTheLibrary)
{
    const int ncid = createGrid();
    for (const double size : {-1.0, 31.0, std::numeric_limits<double>::quiet_NaN(), 1e300})
        EXPECT_THAT(attempt("defVarChunking", {ncid, 0, NC_CHUNKED, row({size, 5})}),
                    failsWith("defVarChunking", NC_EBADCHUNK))
            << size;
    EXPECT_THAT(attempt("defVarChunking", {ncid, 0, NC_CHUNKED, row({10.7, 5})}), succeeds());
    EXPECT_EQ(host.call("inqVarChunking", {ncid, 0}).at(1), row({10, 5}));
}

TEST_F(StorageSettings, ReturnZeroByZeroSizesForContiguousVariables)
{
    const int ncid = createGrid();
    EXPECT_EQ(host.call("inqVarChunking", {ncid, 0}),
              (Values{"contiguous", Value::empty(vxDOUBLE_CLASS, {0, 0})}));
}

// The library creates no file with a chunked scalar, so nc_inq_var_chunking is replaced.
TEST_F(StorageSettings, CannotChunkAScalar)
{
    const int ncid = createGrid();
    EXPECT_THAT(attempt("defVarChunking", {ncid, 1, NC_CHUNKED, row({})}),
                failsWith("defVarChunking", NC_EINVAL));
}

TEST_F(StorageSettings, RaiseForOtherStorageCodes)
{
    ncgen(folder.file("s.nc"), "netcdf s { dimensions: x = 3 ; variables: int v(x) ; "
                               "v:_Storage = \"compact\" ; data: v = 1, 2, 3 ; }");
    const int ncid = openFile("s.nc");
    EXPECT_THAT(attempt("inqVarChunking", {ncid, 0}),
                raises("unrecognizedChunkingCode", {static_cast<long>(NC_COMPACT)}));
}

TEST_F(StorageSettings, AreInquiredInNetcdf4FilesOnly)
{
    for (const FileFormat& format : fileFormats) {
        const int ncid = createGrid(format.mode);
        if (format.isNetcdf4) {
            EXPECT_THAT(attempt("inqVarChunking", {ncid, 0}), succeeds()) << format.name;
            EXPECT_THAT(attempt("inqVarFletcher32", {ncid, 0}), succeeds()) << format.name;
            EXPECT_THAT(attempt("inqVarDeflate", {ncid, 0}), succeeds()) << format.name;
        } else {
            EXPECT_THAT(attempt("inqVarChunking", {ncid, 0}),
                        raises("attemptedChunkingInquiryOnNetcdf3File"))
                << format.name;
            EXPECT_THAT(attempt("inqVarFletcher32", {ncid, 0}),
                        raises("attemptedChecksumInquiryOnNetcdf3File"))
                << format.name;
            // The library decides, and reports that nothing is set.
            EXPECT_EQ(host.call("inqVarDeflate", {ncid, 0}), (Values{false, false, 0}))
                << format.name;
        }
        closeFile(ncid);
    }
}

TEST_F(StorageSettings, ReportTheFormatBeforeABadVariable)
{
    const int ncid = createGrid(0);
    EXPECT_THAT(attempt("inqVarChunking", {ncid, 99}),
                raises("attemptedChunkingInquiryOnNetcdf3File"));
    EXPECT_THAT(attempt("inqVarFletcher32", {ncid, 99}),
                raises("attemptedChecksumInquiryOnNetcdf3File"));
}

TEST_F(StorageSettings, AreDefinedInClassicFilesAsTheLibraryAllows)
{
    const int ncid = createGrid(0);
    const int chunking = nc_def_var_chunking(ncid, 0, NC_CONTIGUOUS, nullptr);
    const int deflate = nc_def_var_deflate(ncid, 0, 0, 1, 5);
    const int checksum = nc_def_var_fletcher32(ncid, 0, 1);
    ASSERT_EQ(deflate, NC_ENOTNC4);
    ASSERT_EQ(checksum, NC_ENOTNC4);
    EXPECT_EQ(attempt("defVarChunking", {ncid, 0, NC_CONTIGUOUS, row({})}).succeeded(),
              chunking == NC_NOERR);
    EXPECT_THAT(attempt("defVarChunking", {ncid, 0, NC_CHUNKED, row({1, 1})}),
                failsWith("defVarChunking", NC_ENOTNC4));
    EXPECT_THAT(attempt("defVarDeflate", {ncid, 0, false, true, 5}),
                failsWith("defVarDeflate", NC_ENOTNC4));
    EXPECT_THAT(attempt("defVarFletcher32", {ncid, 0, 1}),
                failsWith("defVarFletcher32", NC_ENOTNC4));
}

TEST_F(StorageSettings, ReturnTheDeflateSettingsGiven)
{
    struct {
        bool shuffle, deflate;
        Value level;
        Values inquired;
    } const cases[] = {
        {true, true, 4, {true, true, 4}},
        {false, true, 9, {false, true, 9}},
        {true, false, 7, {true, false, 0}},
        {false, false, "not looked at", {false, false, 0}},
        {true, false, Value::empty(), {true, false, 0}},
        {false, false, Value::cell({0, 0}, {}), {false, false, 0}},
    };
    for (const auto& c : cases) {
        const int ncid = createGrid();
        EXPECT_TRUE(host.call("defVarDeflate", {ncid, 0, c.shuffle, c.deflate, c.level}).empty());
        EXPECT_EQ(host.call("inqVarDeflate", {ncid, 0}), c.inquired) << c.level;
        int shuffle = -1;
        int deflate = -1;
        int level = -1;
        require(nc_inq_var_deflate(ncid, 0, &shuffle, &deflate, &level));
        EXPECT_EQ(shuffle == 1, c.shuffle) << c.level;
        EXPECT_EQ(deflate == 1, c.deflate) << c.level;
        const std::string header = dumped(ncid);
        EXPECT_EQ(header.find("_Shuffle = \"true\"") != std::string::npos, c.shuffle) << header;
        EXPECT_EQ(header.find("_DeflateLevel = " + std::to_string(level)) != std::string::npos,
                  c.deflate)
            << header;
    }
}

TEST_F(StorageSettings, TakeDeflateLevelsThatTheLibraryAllows)
{
    const int ncid = createGrid();
    for (const int level : {-1, 10})
        EXPECT_THAT(attempt("defVarDeflate", {ncid, 0, false, true, level}),
                    failsWith("defVarDeflate", NC_EINVAL))
            << level;
}

TEST_F(StorageSettings, RefuseNumbersForDeflateFlags)
{
    for (const double flag : {0.0, 1.0}) {
        EXPECT_THAT(attempt("defVarDeflate", {1, 0, flag, true, 4}),
                    raises("expectedLogicalType", {"shuffle flag"}));
        EXPECT_THAT(attempt("defVarDeflate", {1, 0, true, flag, 4}),
                    raises("expectedLogicalType", {"deflate flag"}));
    }
}

TEST_F(StorageSettings, NeedADeflateLevelEvenWhenItIsIgnored)
{
    EXPECT_THAT(attempt("defVarDeflate", {0, 0, false, false}), raises("wrongNumberOfInputs"));
}

TEST_F(StorageSettings, ReturnTheChecksumSettingGiven)
{
    const int ncid = createGrid();
    EXPECT_EQ(got("inqVarFletcher32", {ncid, 0}), Value("NOCHECKSUM"));
    EXPECT_TRUE(host.call("defVarFletcher32", {ncid, 0, NC_FLETCHER32}).empty());
    EXPECT_EQ(got("inqVarFletcher32", {ncid, 0}), Value("FLETCHER32"));
    EXPECT_THAT(dumped(ncid), HasSubstr("v:_Fletcher32 = \"true\" ;"));
}

TEST_F(StorageSettings, PassTheChecksumSettingUnchanged)
{
    for (const int setting : {7, -1}) {
        const int ncid = createGrid();
        const int status = nc_def_var_fletcher32(ncid, 0, setting); // the library's status for it
        const int again = createFile("t.nc");
        number("defVar", {again, "v", NC_INT, number("defDim", {again, "x", 3})});
        const Outcome outcome = attempt("defVarFletcher32", {again, 0, setting});
        EXPECT_EQ(outcome.succeeded(), status == NC_NOERR) << setting << ": " << outcome;
        closeFile(ncid);
        closeFile(again);
    }
}

TEST_F(StorageSettings, ReportTheLibrarysStatusForAMissingVariable)
{
    const int ncid = createGrid();
    EXPECT_THAT(attempt("defVarChunking", {ncid, 9, NC_CHUNKED, row({1})}),
                failsWith("defVarChunking", NC_ENOTVAR));
    EXPECT_THAT(attempt("inqVarChunking", {ncid, 9}), failsWith("inqVarChunking", NC_ENOTVAR));
    EXPECT_THAT(attempt("defVarDeflate", {ncid, 9, true, true, 1}),
                failsWith("defVarDeflate", NC_ENOTVAR));
    EXPECT_THAT(attempt("inqVarDeflate", {ncid, 9}), failsWith("inqVarDeflate", NC_ENOTVAR));
    EXPECT_THAT(attempt("defVarFletcher32", {ncid, 9, 1}),
                failsWith("defVarFletcher32", NC_ENOTVAR));
    EXPECT_THAT(attempt("inqVarFletcher32", {ncid, 9}), failsWith("inqVarFletcher32", NC_ENOTVAR));
    for (const char* operation : {"inqVarChunking", "inqVarDeflate", "inqVarFletcher32"})
        EXPECT_THAT(attempt(operation, {-7, 0}), failsWith(operation, NC_EBADID));
}

TEST_F(StorageSettings, AreReadLeftToRight)
{
    const Value bad = "bad";
    const Value badFlag = 1; // a number is not a flag
    const Value badRow = true;
    struct {
        const char* operation;
        Values arguments;
        const char* error;
        std::vector<standalone::Argument> details;
    } const cases[] = {
        {"defVarChunking", {bad, bad, bad, badRow}, "badScalarArgument", {"ncid", "numeric"}},
        {"defVarChunking", {1, bad, bad, badRow}, "badScalarArgument", {"varid", "numeric"}},
        {"defVarChunking", {1, 0, bad, badRow}, "badScalarArgument", {"storage", "numeric"}},
        {"defVarChunking", {1, 0, 1e10, badRow}, "argumentOutOfBounds", {}},
        {"inqVarChunking", {bad, bad}, "badScalarArgument", {"ncid", "numeric"}},
        {"inqVarChunking", {1, bad}, "badScalarArgument", {"varid", "numeric"}},
        {"defVarDeflate",
         {bad, bad, badFlag, badFlag, bad},
         "badScalarArgument",
         {"ncid", "numeric"}},
        {"defVarDeflate",
         {1, bad, badFlag, badFlag, bad},
         "badScalarArgument",
         {"varid", "numeric"}},
        {"defVarDeflate", {1, 0, badFlag, badFlag, bad}, "expectedLogicalType", {"shuffle flag"}},
        {"defVarDeflate", {1, 0, true, badFlag, bad}, "expectedLogicalType", {"deflate flag"}},
        {"defVarDeflate",
         {1, 0, true, true, bad},
         "badScalarArgument",
         {"deflate level", "numeric"}},
        {"defVarDeflate",
         {1, 0, true, true, std::numeric_limits<double>::quiet_NaN()},
         "badScalarArgument",
         {"deflate level", "numeric"}},
        {"defVarDeflate", {1, 0, true, true, 1e10}, "argumentOutOfBounds", {}},
        {"inqVarDeflate", {bad, bad}, "badScalarArgument", {"ncid", "numeric"}},
        {"inqVarDeflate", {1, bad}, "badScalarArgument", {"varid", "numeric"}},
        {"defVarFletcher32", {bad, bad, bad}, "badScalarArgument", {"ncid", "numeric"}},
        {"defVarFletcher32", {1, bad, bad}, "badScalarArgument", {"varid", "numeric"}},
        {"defVarFletcher32", {1, 0, bad}, "badScalarArgument", {"checksum setting", "numeric"}},
        {"inqVarFletcher32", {bad, bad}, "badScalarArgument", {"ncid", "numeric"}},
        {"inqVarFletcher32", {1, bad}, "badScalarArgument", {"varid", "numeric"}},
    };
    for (const auto& c : cases)
        EXPECT_THAT(attempt(c.operation, c.arguments), raises(c.error, c.details)) << c.operation;
}

} // namespace
