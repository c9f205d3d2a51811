// SPDX-License-Identifier: BSD-3-Clause
// "getVarDouble" ... "putVarText": whole variables.
#include "tests/operations/operation_test.h"
#include "tests/support/command_line_tools.h"
#include "tests/support/element_samples.h"
#include "tests/support/file_formats.h"
#include "tests/support/library_file.h"
#include "tests/support/library_leak.h"

using namespace testsupport;
using Ovard::gridio::ElementType;
using Ovard::gridio::elementTypes;
using testing::HasSubstr;

namespace {

class WholeAccess : public OperationTest {
protected:
    // A variable v(y, x), 2 by 3, of that type, in data mode.
    int createGrid(nc_type xtype, int mode = NC_NETCDF4)
    {
        const int ncid = createFile("w.nc", mode);
        number("defDim", {ncid, "x", 3});
        number("defDim", {ncid, "y", 2});
        number("defVar", {ncid, "v", xtype, row({0, 1})});
        host.call("endDef", {ncid});
        return ncid;
    }
};

TEST_F(WholeAccess, WritesEveryTypeBitByBitInEveryFormatThatHoldsIt)
{
    for (const FileFormat& format : fileFormats) {
        for (const ElementType& element : elementTypes) {
            if (!servesVariables(element) || !format.holds(element.externalType))
                continue;
            const int ncid = createGrid(element.externalType, format.mode);
            const Bytes bytes = sampleBytes(element, 6);
            EXPECT_TRUE(host.call(std::string("putVar") + element.suffix,
                                  {ncid, 0, valueOfBytes(element.hostClass, {3, 2}, bytes)})
                            .empty());
            closeFile(ncid);

            const LibraryFile file = LibraryFile::open(folder.file("w.nc"));
            Bytes stored(bytes.size(), '?');
            require(nc_get_var(file.ncid(), 0, stored.data()));
            EXPECT_EQ(stored, bytes) << format.name << ' ' << element.suffix;
        }
    }
}

TEST_F(WholeAccess, ReadsEveryTypeBitByBitInEveryFormatThatHoldsIt)
{
    for (const FileFormat& format : fileFormats) {
        for (const ElementType& element : elementTypes) {
            if (!servesVariables(element) || !format.holds(element.externalType))
                continue;
            const int ncid = createGrid(element.externalType, format.mode);
            const Bytes bytes = sampleBytes(element, 6);
            require(nc_put_var(ncid, 0, bytes.data()));
            EXPECT_EQ(got(std::string("getVar") + element.suffix, {ncid, 0}),
                      valueOfBytes(element.hostClass, {3, 2}, bytes))
                << format.name << ' ' << element.suffix;
            closeFile(ncid);
        }
    }
}

TEST_F(WholeAccess, LeavesConversionToTheLibraryInEveryFormat)
{
    for (const FileFormat& format : fileFormats) {
        for (const ElementType& element : elementTypes) {
            if (!servesVariables(element) || element.hostClass == vxCHAR_CLASS)
                continue;
            const int ncid = createGrid(NC_SHORT, format.mode);
            const Value values = valueOfBytes(element.hostClass, {3, 2}, countingBytes(element, 6));
            host.call(std::string("putVar") + element.suffix, {ncid, 0, values});
            short stored[6] = {};
            require(nc_get_var_short(ncid, 0, stored));
            EXPECT_THAT(stored, testing::ElementsAre(0, 1, 2, 3, 4, 5)) << element.suffix;
            EXPECT_EQ(got(std::string("getVar") + element.suffix, {ncid, 0}), values)
                << format.name;
            closeFile(ncid);
        }
    }
}

TEST_F(WholeAccess, ReversesTheDimensionsAndMovesNoValue)
{
    for (const char* kind : {"nc3", "nc6", "nc5", "nc4", "nc7"}) {
        ncgen(folder.file("w.nc"),
              "netcdf w { dimensions: t = 2 ; y = 3 ; x = 4 ; n = 5 ; variables: int s ; int l(n) ;"
              " int p(y, x) ; int c(t, y, x) ; data: s = 42 ; l = 1, 2, 3, 4, 5 ;"
              " p = 0, 1, 2, 3, 10, 11, 12, 13, 20, 21, 22, 23 ;"
              " c = 0, 1, 2, 3, 10, 11, 12, 13, 20, 21, 22, 23,"
              " 100, 101, 102, 103, 110, 111, 112, 113, 120, 121, 122, 123 ; }",
              kind);
        const int ncid = openFile("w.nc");
        EXPECT_EQ(got("getVarDouble", {ncid, 0}), Value(42)) << kind;
        EXPECT_EQ(got("getVarDouble", {ncid, 1}), Value::column<double>({1, 2, 3, 4, 5})) << kind;
        EXPECT_EQ(
            got("getVarInt", {ncid, 2}),
            Value::numeric<std::int32_t>({4, 3}, {0, 1, 2, 3, 10, 11, 12, 13, 20, 21, 22, 23}))
            << kind;
        const Value cube = got("getVarShort", {ncid, 3});
        EXPECT_EQ(cube.dims(), (standalone::Dims{4, 3, 2})) << kind;
        EXPECT_EQ(cube.elements<std::int16_t>()[12 + 2 * 4 + 3], 123) << kind;
        closeFile(ncid);
    }
}

TEST_F(WholeAccess, ComparesCountsAndNeverShapes)
{
    const double values[] = {0, 1, 2, 3, 4, 5};
    const std::vector<double> list(values, values + 6);
    for (const standalone::Dims& dims :
         {standalone::Dims{1, 6}, {6, 1}, {3, 2}, {2, 3}, {1, 1, 6}}) {
        const int ncid = createGrid(NC_DOUBLE);
        host.call("putVarDouble", {ncid, 0, Value::numeric(dims, list)});
        closeFile(ncid);
        EXPECT_THAT(ncdump(folder.file("w.nc")), HasSubstr("v =\n  0, 1, 2,\n  3, 4, 5 ;"));
    }
    const int ncid = createGrid(NC_DOUBLE);
    for (const std::size_t count : {1U, 5U, 7U})
        EXPECT_THAT(attempt("putVarDouble", {ncid, 0, Value::row(std::vector<double>(count))}),
                    raises("dataSizeMismatch"))
            << count;
}

TEST_F(WholeAccess, WritesAScalar)
{
    const int ncid = createFile("w.nc");
    number("defVar", {ncid, "s", NC_INT, row({})});
    host.call("putVarInt", {ncid, 0, Value::scalar<std::int32_t>(-9)});
    EXPECT_THAT(attempt("putVarInt", {ncid, 0, Value::row<std::int32_t>({1, 2})}),
                raises("dataSizeMismatch"));
    closeFile(ncid);
    EXPECT_THAT(ncdump(folder.file("w.nc")), HasSubstr("s = -9 ;"));
}

TEST_F(WholeAccess, RefusesNoDataBeforeAnyLibraryCall)
{
    for (const ElementType& element : elementTypes) {
        if (!servesVariables(element))
            continue;
        const std::string operation = std::string("putVar") + element.suffix;
        EXPECT_THAT(attempt(operation, {-7, 0, Value::empty()}), raises("emptyVariableData"));
        EXPECT_THAT(attempt(operation, {-7, "bad", Value::empty()}),
                    raises("badScalarArgument", {"varid", "numeric"}));
        EXPECT_THAT(attempt(operation, {-7, 0, 1}), failsWith(operation, NC_EBADID));
    }
}

TEST_F(WholeAccess, FlattensAVariableWithoutRecordsToZeroByZeroDeliberately)
{
    for (const FileFormat& format : fileFormats) {
        const int ncid = createFile("w.nc", format.mode);
        number("defDim", {ncid, "t", 0});
        number("defDim", {ncid, "x", 3});
        number("defVar", {ncid, "n", NC_SHORT, row({1, 0})});
        number("defVar", {ncid, "c", NC_CHAR, row({1, 0})});
        host.call("endDef", {ncid});
        for (const ElementType& element : elementTypes) {
            if (!servesVariables(element))
                continue;
            const bool isText = element.hostClass == vxCHAR_CLASS;
            const std::string operation = std::string("getVar") + element.suffix;
            const Outcome outcome = attempt(operation, {ncid, isText ? 1 : 0});
            ASSERT_THAT(outcome, succeeds()) << format.name;
            EXPECT_EQ(outcome.results.at(0), Value::empty(element.hostClass, {0, 0}))
                << format.name << ' ' << element.suffix;
        }
        closeFile(ncid);
    }
}

TEST_F(WholeAccess, NeverGrowsAVariable)
{
    const int ncid = createFile("w.nc");
    number("defVar", {ncid, "v", NC_DOUBLE, number("defDim", {ncid, "t", 0})});
    host.call("endDef", {ncid});
    EXPECT_THAT(attempt("putVarDouble", {ncid, 0, 1}), raises("dataSizeMismatch"));
    EXPECT_THAT(attempt("putVarDouble", {ncid, 0, Value::empty()}), raises("emptyVariableData"));
    host.call("putVaraDouble", {ncid, 0, 0, 2, row({1, 2})});
    EXPECT_THAT(attempt("putVarDouble", {ncid, 0, row({1, 2, 3})}), raises("dataSizeMismatch"));
    EXPECT_THAT(attempt("putVarDouble", {ncid, 0, row({3, 4})}), succeeds());
}

TEST_F(WholeAccess, WidensBytesBySignExtensionDeliberately)
{
    ncgen(folder.file("w.nc"),
          "netcdf w { dimensions: n = 3 ; variables: char v(n) ; "
          "data: v = \"A\\351\\200\" ; }",
          "nc3");
    const int ncid = openFile("w.nc");
    EXPECT_EQ(got("getVarText", {ncid, 0}).toUtf16(), u"A\uFFE9\uFF80");
}

TEST_F(WholeAccess, WritesTextAsTheLowBytesOfItsUnits)
{
    const int ncid = createGrid(NC_CHAR);
    host.call("putVarText", {ncid, 0, Value::text(u"\u0141b\u00E9\uFFE9\u4200 ")});
    char stored[6] = {};
    require(nc_get_var_text(ncid, 0, stored));
    EXPECT_EQ(std::string(stored, 6), std::string("Ab\xE9\xE9\0 ", 6));
}

TEST_F(WholeAccess, ReadsTheBytesOfTextWithoutAnEncoding)
{
    ncgen(folder.file("w.nc"), "netcdf w { dimensions: y = 2 ; x = 3 ; variables: char v(y, x) ; "
                               "data: v = \"abc\", \"d\\000f\" ; }");
    const int ncid = openFile("w.nc");
    EXPECT_EQ(got("getVarText", {ncid, 0}), Value::text({3, 2}, std::u16string(u"abcd\0f", 6)));
}

TEST_F(WholeAccess, TakesAnyClassAsItsRawStorageDeliberately)
{
    const int ncid = createGrid(NC_SHORT);
    const Value doubles = Value::row<double>({1, 2, 3, 4, 5, 6});
    host.call("putVarShort", {ncid, 0, doubles}); // the first quarter, reinterpreted
    short stored[6] = {};
    require(nc_get_var_short(ncid, 0, stored));
    EXPECT_EQ(Bytes(reinterpret_cast<const char*>(stored), 12),
              bytesOfValue(doubles).substr(0, 12));
    host.call("putVarShort", {ncid, 0, "abcdef"});
    require(nc_get_var_short(ncid, 0, stored));
    EXPECT_THAT(stored, testing::ElementsAre('a', 'b', 'c', 'd', 'e', 'f'));
}

TEST_F(WholeAccess, RefusesDataThatHoldFewerBytesThanAreRead)
{
    for (const ElementType& element : elementTypes) {
        if (!servesVariables(element))
            continue;
        const bool isText = element.hostClass == vxCHAR_CLASS;
        const int ncid = createGrid(isText ? NC_CHAR : NC_SHORT);
        const std::string operation = std::string("putVar") + element.suffix;
        const Outcome outcome =
            attempt(operation, {ncid, 0, Value::row<std::int8_t>({1, 2, 3, 4, 5, 6})});
        if (element.size == 1 && !isText)
            EXPECT_THAT(outcome, succeeds()) << operation;
        else
            EXPECT_THAT(outcome, raises("dataSizeMismatch")) << operation;
        EXPECT_THAT(attempt(operation, {ncid, 0, Value::cell({1, 6}, Values(6, Value(1)))}),
                    raises("dataSizeMismatch"))
            << operation;
        EXPECT_THAT(attempt(operation, {ncid, 0, Value::anythingElse({2, 3})}),
                    raises("dataSizeMismatch"))
            << operation;
        closeFile(ncid);
    }
}

TEST_F(WholeAccess, ReportsBadIdentifiersWithTheStatusOfTheReadItself)
{
    const int ncid = createGrid(NC_DOUBLE);
    for (const ElementType& element : elementTypes) {
        if (!servesVariables(element))
            continue;
        const std::string read = std::string("getVar") + element.suffix;
        EXPECT_THAT(attempt(read, {-7, 0}), failsWith(read, NC_EBADID));
        EXPECT_THAT(attempt(read, {ncid, 1}), failsWith(read, NC_ENOTVAR));
        double ignored[6];
        const int status = nc_get_var_double(ncid, NC_GLOBAL, ignored);
        ASSERT_EQ(status, NC_ENOTVAR);
        EXPECT_THAT(attempt(read, {ncid, NC_GLOBAL}), failsWith(read, NC_ENOTVAR));
        const std::string write = std::string("putVar") + element.suffix;
        EXPECT_THAT(attempt(write, {ncid, 1, 1}), failsWith(write, NC_ENOTVAR));
        EXPECT_THAT(attempt(write, {ncid, NC_GLOBAL, 1}), failsWith(write, NC_ENOTVAR));
    }
}

TEST_F(WholeAccess, ReportsWhatTheLibraryRefuses)
{
    const int ncid = createGrid(NC_DOUBLE, 0);
    host.call("putVarDouble", {ncid, 0, row({1, 2, 3, 4, 5, 1e300})});
    EXPECT_THAT(attempt("getVarInt", {ncid, 0}), failsWith("getVarInt", NC_ERANGE));
    EXPECT_THAT(attempt("getVarText", {ncid, 0}), failsWith("getVarText", NC_ECHAR));
    EXPECT_THAT(attempt("putVarText", {ncid, 0, "abcdef"}), failsWith("putVarText", NC_ECHAR));
    host.call("redef", {ncid});
    EXPECT_THAT(attempt("getVarDouble", {ncid, 0}), failsWith("getVarDouble", NC_EINDEFINE));
    EXPECT_THAT(attempt("putVarDouble", {ncid, 0, row({1, 2, 3, 4, 5, 6})}),
                failsWith("putVarDouble", NC_EINDEFINE));
}

TEST_F(WholeAccess, LeavesStringsAndOtherTypesToTheLibrary)
{
    ncgen(folder.file("w.nc"), "netcdf w { types: byte enum e { no = 0, yes = 1 } ; variables: "
                               "string s ; e f ; data: s = \"hello\" ; f = yes ; }");
    const int ncid = openFile("w.nc");
    {
        const LeakOfTheLibrary
            leak; // it reads the strings before it finds that they are not numbers
        EXPECT_THAT(attempt("getVarDouble", {ncid, 0}), failsWith("getVarDouble", NC_EBADTYPE));
    }
    EXPECT_THAT(attempt("getVarText", {ncid, 0}), failsWith("getVarText", NC_ECHAR));
    EXPECT_THAT(attempt("getVarInt", {ncid, 1}), failsWith("getVarInt", NC_EBADTYPE));
}

TEST_F(WholeAccess, ReadsLeftToRight)
{
    for (const ElementType& element : elementTypes) {
        if (!servesVariables(element))
            continue;
        const std::string read = std::string("getVar") + element.suffix;
        EXPECT_THAT(attempt(read, {"bad", "bad"}),
                    raises("badScalarArgument", {"ncid", "numeric"}));
        EXPECT_THAT(attempt(read, {1, "bad"}), raises("badScalarArgument", {"varid", "numeric"}));
        EXPECT_THAT(attempt(read, {1, 1e10}), raises("argumentOutOfBounds"));
        const std::string write = std::string("putVar") + element.suffix;
        EXPECT_THAT(attempt(write, {"bad", "bad", Value::empty()}),
                    raises("badScalarArgument", {"ncid", "numeric"}));
        EXPECT_THAT(attempt(write, {1, "bad", Value::empty()}),
                    raises("badScalarArgument", {"varid", "numeric"}));
    }
}

TEST_F(WholeAccess, SetsEveryElementOfItsResult)
{
    host.fillUninitialised(0xAB);
    for (const ElementType& element : elementTypes) {
        if (!servesVariables(element))
            continue;
        const int ncid = createGrid(element.externalType);
        require(nc_put_var(ncid, 0, Bytes(6 * element.size, '\0').data()));
        EXPECT_EQ(bytesOfValue(got(std::string("getVar") + element.suffix, {ncid, 0})),
                  Bytes(6 * element.size, '\0'))
            << element.suffix;
        closeFile(ncid);
    }
}

} // namespace
