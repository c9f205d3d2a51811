// SPDX-License-Identifier: BSD-3-Clause
// "getVar1Double" ... "putVarsText": single values, blocks and strided blocks.
#include "tests/operations/operation_test.h"
#include "tests/support/command_line_tools.h"
#include "tests/support/element_samples.h"
#include "tests/support/file_formats.h"
#include "tests/support/library_file.h"

#include <limits>

using namespace testsupport;
using Ovard::gridio::ElementType;
using Ovard::gridio::elementTypes;
using testing::HasSubstr;

namespace {

constexpr std::size_t ySize = 4;
constexpr std::size_t xSize = 6;

class SubsetAccess : public OperationTest {
protected:
    // A variable v(y, x), 4 by 6, of that type, in data mode.
    int createGrid(nc_type xtype, int mode = NC_NETCDF4)
    {
        const int ncid = createFile("s.nc", mode);
        number("defDim", {ncid, "x", xSize});
        number("defDim", {ncid, "y", ySize});
        number("defVar", {ncid, "v", xtype, row({0, 1})});
        host.call("endDef", {ncid});
        return ncid;
    }
    // The same, filled with 0, 1, ... 23 in the order of the file.
    int createCountingGrid(nc_type xtype = NC_INT, int mode = NC_NETCDF4)
    {
        const int ncid = createGrid(xtype, mode);
        const ElementType& element = *Ovard::gridio::findExternalType(xtype);
        require(nc_put_var(ncid, 0, countingBytes(element, ySize * xSize).data()));
        return ncid;
    }
    static bool isInTable(const ElementType& element) // "Ubyte" is for attributes alone
    {
        return std::string(element.suffix) != "Ubyte";
    }
    // Elements of bytes at these places, in this order.
    static Bytes picked(const Bytes& bytes, std::size_t size,
                        const std::vector<std::size_t>& places)
    {
        Bytes result;
        for (const std::size_t place : places)
            result += bytes.substr(place * size, size);
        return result;
    }
};

// What each form is given, and the places in the file, in the order of the host's elements.
struct Subset {
    const char* readForm;
    const char* writeForm;
    std::vector<std::vector<double>> vectors; // START, COUNT, STRIDE
    standalone::Dims shape;
    std::vector<std::size_t> places;
};

const Subset subsets[] = {
    {"getVar1", "putVar1", {{2, 1}}, {1, 1}, {8}},
    {"getVara", "putVara", {{1, 2}, {3, 2}}, {3, 2}, {13, 14, 15, 19, 20, 21}},
    {"getVars", "putVars", {{0, 1}, {3, 2}, {2, 2}}, {3, 2}, {6, 8, 10, 18, 20, 22}},
};

std::vector<standalone::Value> argumentsOf(const Subset& subset, int ncid)
{
    std::vector<standalone::Value> arguments = {ncid, 0};
    for (const std::vector<double>& vector : subset.vectors)
        arguments.push_back(standalone::Value::row(vector));
    return arguments;
}

TEST_F(SubsetAccess, ReadsEveryTypeInEveryFormAndFormat)
{
    for (const FileFormat& format : fileFormats) {
        for (const ElementType& element : elementTypes) {
            if (!isInTable(element) || !format.holds(element.externalType))
                continue;
            const int ncid = createGrid(element.externalType, format.mode);
            const Bytes bytes = sampleBytes(element, ySize * xSize);
            require(nc_put_var(ncid, 0, bytes.data()));
            for (const Subset& subset : subsets) {
                const std::string operation = operationName(subset.readForm, element.suffix);
                EXPECT_EQ(got(operation, argumentsOf(subset, ncid)),
                          valueOfBytes(element.hostClass, subset.shape,
                                       picked(bytes, element.size, subset.places)))
                    << format.name << ' ' << operation;
            }
            closeFile(ncid);
        }
    }
}

TEST_F(SubsetAccess, WritesEveryTypeInEveryFormAndFormat)
{
    for (const FileFormat& format : fileFormats) {
        for (const ElementType& element : elementTypes) {
            if (!isInTable(element) || !format.holds(element.externalType))
                continue;
            for (const Subset& subset : subsets) {
                const int ncid = createGrid(element.externalType, format.mode);
                Bytes expected(ySize * xSize * element.size, '\5');
                require(nc_put_var(ncid, 0, expected.data()));
                const Bytes written = sampleBytes(element, subset.places.size());
                Values arguments = argumentsOf(subset, ncid);
                arguments.push_back(valueOfBytes(element.hostClass, subset.shape, written));
                const std::string operation = operationName(subset.writeForm, element.suffix);
                EXPECT_TRUE(host.call(operation, arguments).empty());
                closeFile(ncid);

                for (std::size_t i = 0; i < subset.places.size(); ++i)
                    expected.replace(subset.places[i] * element.size, element.size, written,
                                     i * element.size, element.size);
                const LibraryFile file = LibraryFile::open(folder.file("s.nc"));
                Bytes stored(expected.size(), '?');
                require(nc_get_var(file.ncid(), 0, stored.data()));
                EXPECT_EQ(stored, expected) << format.name << ' ' << operation;
            }
        }
    }
}

TEST_F(SubsetAccess, HasTwoWritesWithACapitalIDeliberately)
{
    const int ncid = createGrid(NC_UINT64);
    const Value wide = Value::scalar<std::uint64_t>(7);
    const Value narrow = Value::scalar<std::uint32_t>(8);
    EXPECT_THAT(attempt("putVar1UInt64", {ncid, 0, row({0, 0}), wide}), succeeds());
    EXPECT_THAT(attempt("putVar1UInt", {ncid, 0, row({1, 0}), narrow}), succeeds());
    EXPECT_THAT(attempt("putVar1Uint64", {ncid, 0, row({0, 0}), wide}),
                raises("unrecognizedOperation", {"putVar1Uint64"}));
    EXPECT_THAT(attempt("putVar1Uint", {ncid, 0, row({0, 0}), narrow}),
                raises("unrecognizedOperation", {"putVar1Uint"}));
    EXPECT_THAT(attempt("putVaraUInt64", {ncid, 0, row({0, 0}), row({1, 1}), wide}),
                raises("unrecognizedOperation", {"putVaraUInt64"}));
    EXPECT_THAT(attempt("getVar1UInt", {ncid, 0, row({0, 0})}),
                raises("unrecognizedOperation", {"getVar1UInt"}));
    EXPECT_EQ(got("getVaraUint64", {ncid, 0, row({0, 0}), row({2, 1})}),
              Value::column<std::uint64_t>({7, 8}));
}

TEST_F(SubsetAccess, CountsFromZeroInTheHostsOrder)
{
    ncgen(folder.file("s.nc"), "netcdf s { dimensions: y = 2 ; x = 3 ; variables: int v(y, x) ; "
                               "data: v = 0, 1, 2, 10, 11, 12 ; }");
    const int ncid = openFile("s.nc");
    EXPECT_EQ(got("getVar1Double", {ncid, 0, row({2, 1})}), Value(12));
    EXPECT_EQ(got("getVaraInt", {ncid, 0, row({0, 0}), row({3, 2})}), got("getVarInt", {ncid, 0}));
    EXPECT_EQ(got("getVaraInt", {ncid, 0, row({1, 0}), row({2, 2})}),
              Value::numeric<std::int32_t>({2, 2}, {1, 2, 11, 12}));
}

TEST_F(SubsetAccess, OfOneDimensionGivesAColumn)
{
    ncgen(folder.file("s.nc"),
          "netcdf s { dimensions: n = 8 ; variables: short v(n) ; "
          "data: v = 0, 10, 20, 30, 40, 50, 60, 70 ; }",
          "nc3");
    const int ncid = openFile("s.nc");
    EXPECT_EQ(got("getVarsShort", {ncid, 0, 1, 2, 3}), Value::column<std::int16_t>({10, 40}));
    EXPECT_EQ(got("getVaraShort", {ncid, 0, 6, 2}), Value::column<std::int16_t>({60, 70}));
    EXPECT_EQ(got("getVar1Short", {ncid, 0, 7}), Value::scalar<std::int16_t>(70));
}

TEST_F(SubsetAccess, KeepsTheCountInTheCallersOrder)
{
    const int ncid = createCountingGrid();
    const Value part = got("getVaraInt", {ncid, 0, row({0, 0}), row({4, 3})});
    EXPECT_EQ(part.dims(), (standalone::Dims{4, 3}));
    EXPECT_EQ(part.elements<std::int32_t>()[5], 7);
}

TEST_F(SubsetAccess, TruncatesIndices)
{
    const int ncid = createCountingGrid();
    EXPECT_EQ(got("getVarsDouble", {ncid, 0, row({1.9, -0.5}), row({2.7, 1.1}), row({2.9, 1})}),
              Value::column<double>({1, 3}));
}

TEST_F(SubsetAccess, OfAScalarVariableIsRefused)
{
    const int ncid = createFile("s.nc");
    number("defVar", {ncid, "lonely", NC_INT, row({})});
    EXPECT_THAT(attempt("getVar1Int", {ncid, 0, row({})}), raises("argumentIsEmpty", {"START"}));
    EXPECT_THAT(attempt("getVar1Int", {ncid, 0, 0}),
                raises("badIndexArgumentLength", {"START", "lonely", 0L, 1L}));
    EXPECT_THAT(attempt("getVaraInt", {ncid, 0, row({0, 0, 0}), 1}),
                raises("badIndexArgumentLength", {"START", "lonely", 0L, 3L}));
    const Value one = Value::scalar<std::int32_t>(1);
    EXPECT_THAT(attempt("putVar1Int", {ncid, 0, row({}), one}),
                raises("argumentIsEmpty", {"START"}));
    EXPECT_THAT(attempt("putVar1Int", {ncid, 0, row({0, 0}), one}),
                raises("badIndexArgumentLength", {"START", "lonely", 0L, 2L}));
}

TEST_F(SubsetAccess, ReportsTheRequiredLengthTwiceWhenReadingDeliberately)
{
    const int ncid = createCountingGrid();
    const Value two = row({1, 1});
    const Value three = row({1, 1, 1});
    EXPECT_THAT(attempt("getVaraDouble", {ncid, 0, three, two}),
                raises("badIndexArgumentLength", {"START", "v", 2L, 3L}));
    EXPECT_THAT(attempt("getVaraDouble", {ncid, 0, two, three}),
                raises("badIndexArgumentLength", {"COUNT", "v", 2L, 2L}));
    EXPECT_THAT(attempt("getVarsDouble", {ncid, 0, two, 1, three}),
                raises("badIndexArgumentLength", {"COUNT", "v", 2L, 2L}));
    EXPECT_THAT(attempt("getVarsDouble", {ncid, 0, two, two, three}),
                raises("badIndexArgumentLength", {"STRIDE", "v", 2L, 2L}));
    EXPECT_THAT(attempt("getVarsDouble", {ncid, 0, two, two, 1}),
                raises("badIndexArgumentLength", {"STRIDE", "v", 2L, 2L}));
}

TEST_F(SubsetAccess, ReportsTheLengthGivenWhenWriting)
{
    const int ncid = createCountingGrid();
    const Value two = row({1, 1});
    const Value three = row({1, 1, 1});
    EXPECT_THAT(attempt("putVaraDouble", {ncid, 0, three, two, 1}),
                raises("badIndexArgumentLength", {"START", "v", 2L, 3L}));
    EXPECT_THAT(attempt("putVaraDouble", {ncid, 0, two, three, 1}),
                raises("badIndexArgumentLength", {"COUNT", "v", 2L, 3L}));
    EXPECT_THAT(attempt("putVarsDouble", {ncid, 0, two, 1, three, 1}),
                raises("badIndexArgumentLength", {"COUNT", "v", 2L, 1L}));
    EXPECT_THAT(attempt("putVarsDouble", {ncid, 0, two, two, three, 1}),
                raises("badIndexArgumentLength", {"STRIDE", "v", 2L, 3L}));
    EXPECT_THAT(attempt("putVarsDouble", {ncid, 0, two, two, 1, 1}),
                raises("badIndexArgumentLength", {"STRIDE", "v", 2L, 1L}));
}

TEST_F(SubsetAccess, ComparesTheProductOfCountWithTheNumberOfValues)
{
    const int ncid = createGrid(NC_DOUBLE);
    const Value origin = row({0, 0});
    EXPECT_THAT(attempt("putVaraDouble", {ncid, 0, origin, row({2, 2}), row({1, 2, 3})}),
                raises("countNotEqualToData", {4L, 3L}));
    EXPECT_THAT(attempt("putVarsDouble", {ncid, 0, origin, row({1, 1}), row({1, 1}), row({1, 2})}),
                raises("countNotEqualToData", {1L, 2L}));
    EXPECT_THAT(attempt("putVar1Double", {ncid, 0, origin, row({1, 2})}),
                raises("countNotEqualToData", {1L, 2L}));
    EXPECT_THAT(attempt("putVaraDouble", {ncid, 0, origin, row({0, 2}), 1}),
                raises("countNotEqualToData", {0L, 1L}));
    EXPECT_THAT(attempt("putVaraDouble", {ncid, 0, origin, row({2, 2}),
                                          Value::numeric<double>({1, 1, 4}, {1, 2, 3, 4})}),
                succeeds());
}

TEST_F(SubsetAccess, OfACountWhoseProductOverflowsIsOutOfBounds)
{
    for (const ElementType& element : elementTypes) {
        if (!isInTable(element))
            continue;
        const bool isText = element.hostClass == vxCHAR_CLASS;
        const int ncid = createGrid(isText ? NC_CHAR : NC_INT);
        const Value origin = row({0, 0});
        const Value huge = row({0x1p32, 0x1p32});
        const Value data = valueOfBytes(element.hostClass, {1, 1}, Bytes(element.size, '\1'));
        EXPECT_THAT(attempt(operationName("getVara", element.suffix), {ncid, 0, origin, huge}),
                    raises("argumentOutOfBounds"))
            << element.suffix;
        EXPECT_THAT(
            attempt(operationName("putVara", element.suffix), {ncid, 0, origin, huge, data}),
            raises("argumentOutOfBounds"))
            << element.suffix;
        closeFile(ncid);
    }
}

TEST_F(SubsetAccess, OfMoreThanMemoryHoldsIsTheHostsOutOfMemoryAndNoCrash)
{
    const int ncid = createCountingGrid();
    for (const double count : {0x1p60, 0x1p61, 0x1p62, 0x1p63}) // bytes that overflow, and not
        EXPECT_THAT(attempt("getVaraDouble", {ncid, 0, row({0, 0}), row({count, 1})}),
                    raises("outOfMemory"))
            << count;
    const int text = createGrid(NC_CHAR, 0);
    EXPECT_THAT(attempt("getVaraText", {text, 0, row({0, 0}), row({0x1p62, 1})}),
                raises("outOfMemory"));
}

TEST_F(SubsetAccess, OfACountOfZeroHasTheShapeOfTheCount)
{
    for (const FileFormat& format : fileFormats) {
        const int ncid = createCountingGrid(NC_INT, format.mode);
        const Outcome outcome = attempt("getVaraInt", {ncid, 0, row({0, 0}), row({3, 0})});
        ASSERT_THAT(outcome, succeeds()) << format.name;
        EXPECT_EQ(outcome.results.at(0), Value::empty(vxINT32_CLASS, {3, 0})) << format.name;
        closeFile(ncid);
    }
}

TEST_F(SubsetAccess, OfAVariableWithoutRecordsIsNotFlattenedButCheckedDeliberately)
{
    for (const FileFormat& format : fileFormats) {
        const int ncid = createFile("s.nc", format.mode);
        number("defDim", {ncid, "t", 0});
        number("defVar", {ncid, "v", NC_INT, 0});
        host.call("endDef", {ncid});
        const Outcome none = attempt("getVaraInt", {ncid, 0, 0, 0});
        ASSERT_THAT(none, succeeds()) << format.name;
        EXPECT_EQ(none.results.at(0), Value::empty(vxINT32_CLASS, {0, 1})) << format.name;
        EXPECT_THAT(attempt("getVar1Int", {ncid, 0, 0}), failsWith("getVar1Int", NC_EINVALCOORDS))
            << format.name;
        EXPECT_THAT(attempt("getVar1Int", {ncid, 0, 1}), failsWith("getVar1Int", NC_EINVALCOORDS))
            << format.name;
        closeFile(ncid);
    }
}

TEST_F(SubsetAccess, AppendsRecords)
{
    for (const FileFormat& format : fileFormats) {
        const int ncid = createFile("s.nc", format.mode);
        number("defDim", {ncid, "x", 2});
        number("defDim", {ncid, "t", 0});
        number("defVar", {ncid, "v", NC_INT, row({0, 1})});
        host.call("endDef", {ncid});
        for (int t = 0; t < 3; ++t)
            host.call("putVaraInt", {ncid, 0, row({0, double(t)}), row({2, 1}),
                                     Value::row<std::int32_t>({t, -t})});
        host.call("putVar1Int", {ncid, 0, row({1, 4}), Value::scalar<std::int32_t>(9)});
        closeFile(ncid);
        if (format.formatCode == NC_FORMAT_CDF5) { // whose data this ncdump prints as well
            EXPECT_EQ(ncdumpKind(folder.file("s.nc")), "cdf5");
        }
        const std::string dump = ncdump(folder.file("s.nc"));
        EXPECT_THAT(dump, HasSubstr("t = UNLIMITED ; // (5 currently)")) << format.name;
        EXPECT_THAT(dump, HasSubstr("v =\n  0, 0,\n  1, -1,\n  2, -2,\n  _, _,\n  _, 9 ;"))
            << format.name;
    }
}

TEST_F(SubsetAccess, WritesOneCharacter)
{
    const int ncid = createFile("s.nc");
    number("defVar", {ncid, "v", NC_CHAR, number("defDim", {ncid, "n", 8})});
    host.call("putVaraText", {ncid, 0, 0, 8, "abcdefgh"});
    host.call("putVar1Text", {ncid, 0, 5, "A"});
    host.call("putVar1Text", {ncid, 0, 6, Value::text(u"\u0142")});
    closeFile(ncid);
    EXPECT_THAT(ncdump(folder.file("s.nc")), HasSubstr("v = \"abcdeABh\" ;"));
}

TEST_F(SubsetAccess, WidensBytesBySignExtensionDeliberately)
{
    const int ncid = createGrid(NC_CHAR);
    require(nc_put_var_text(ncid, 0, std::string(ySize * xSize, '\xE9').data()));
    EXPECT_EQ(got("getVar1Text", {ncid, 0, row({0, 0})}).toUtf16(), u"\uFFE9");
    EXPECT_EQ(got("getVaraText", {ncid, 0, row({0, 0}), row({2, 1})}).toUtf16(), u"\uFFE9\uFFE9");
}

TEST_F(SubsetAccess, TakesAnyClassAsItsRawStorageButNoneThatIsTooShort)
{
    const int ncid = createGrid(NC_INT);
    const Value start = row({0, 0});
    const Value count = row({2, 1});
    host.call("putVaraInt", {ncid, 0, start, count, Value::row<float>({1.0F, 2.0F})});
    EXPECT_EQ(got("getVaraInt", {ncid, 0, start, count}),
              Value::column<std::int32_t>({0x3F800000, 0x40000000}));
    for (const Value& tooShort :
         {Value::row<std::int16_t>({1, 2}), Value("ab"), Value::cell({1, 2}, {1, 2})})
        EXPECT_THAT(attempt("putVaraInt", {ncid, 0, start, count, tooShort}),
                    raises("dataSizeMismatch"))
            << tooShort;
}

TEST_F(SubsetAccess, LooksAtTheStorageAfterEveryOtherCheck)
{
    const int ncid = createGrid(NC_DOUBLE);
    const Value bytes = Value::row<std::int8_t>({1, 2, 3, 4}); // too short for doubles
    const Value origin = row({0, 0});
    EXPECT_THAT(attempt("putVaraDouble", {ncid, 0, origin, row({2, 2}), bytes}),
                raises("dataSizeMismatch"));
    EXPECT_THAT(attempt("putVaraDouble", {ncid, 0, origin, row({2, 1}), bytes}),
                raises("countNotEqualToData", {2L, 4L}));
    EXPECT_THAT(attempt("putVaraDouble", {ncid, 0, 0, row({2, 2}), bytes}),
                raises("badIndexArgumentLength", {"START", "v", 2L, 1L}));
    EXPECT_THAT(attempt("putVaraDouble", {ncid, 3, origin, row({2, 2}), bytes}),
                failsWith("putVaraDouble", NC_ENOTVAR));
    // And before the library would have refused the place.
    EXPECT_THAT(attempt("putVaraDouble", {ncid, 0, row({99, 99}), row({2, 2}), bytes}),
                raises("dataSizeMismatch"));
}

TEST_F(SubsetAccess, LeavesTheRangeToTheLibrary)
{
    for (const FileFormat& format : fileFormats) {
        const int ncid = createCountingGrid(NC_INT, format.mode);
        const Value origin = row({0, 0});
        EXPECT_THAT(attempt("getVar1Int", {ncid, 0, row({6, 0})}),
                    failsWith("getVar1Int", NC_EINVALCOORDS))
            << format.name;
        EXPECT_THAT(attempt("getVaraInt", {ncid, 0, row({3, 0}), row({4, 1})}),
                    failsWith("getVaraInt", NC_EEDGE))
            << format.name;
        for (const double stride : {0.0, -1.0})
            EXPECT_THAT(attempt("getVarsInt", {ncid, 0, origin, row({2, 2}), row({stride, 1})}),
                        failsWith("getVarsInt", NC_ESTRIDE))
                << format.name << ' ' << stride;
        EXPECT_THAT(attempt("putVar1Int", {ncid, 0, row({6, 0}), Value::scalar<std::int32_t>(1)}),
                    failsWith("putVar1Int", NC_EINVALCOORDS))
            << format.name;
        EXPECT_THAT(attempt("getVar1Int", {ncid, 0, Value::row<std::uint64_t>({~0ULL, 0})}),
                    failsWith("getVar1Int", NC_EINVALCOORDS))
            << format.name;
        closeFile(ncid);
    }
}

TEST_F(SubsetAccess, OfMissingVariablesFailsWithTheStatusOfTheLibrary)
{
    const int ncid = createCountingGrid();
    EXPECT_THAT(attempt("getVar1Int", {-7, 0, 0}), failsWith("getVar1Int", NC_EBADID));
    EXPECT_THAT(attempt("getVar1Int", {ncid, 5, 0}), failsWith("getVar1Int", NC_ENOTVAR));
    EXPECT_THAT(attempt("getVar1Int", {ncid, NC_GLOBAL, 0}), failsWith("getVar1Int", NC_ENOTVAR));
    EXPECT_THAT(attempt("putVar1Int", {ncid, 5, 0, Value::scalar<std::int32_t>(1)}),
                failsWith("putVar1Int", NC_ENOTVAR));
}

TEST_F(SubsetAccess, ReadsLeftToRightAndAsksTheFileLast)
{
    const Value bad = "bad";
    const Value none = Value::empty();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const ElementType& element : elementTypes) {
        if (!isInTable(element))
            continue;
        struct {
            Values arguments; // ncid, varid, START, COUNT, STRIDE
            const char* error;
            std::vector<standalone::Argument> details;
        } const cases[] = {
            {{bad, bad, bad, none, nan}, "badScalarArgument", {"ncid", "numeric"}},
            {{-7, bad, bad, none, nan}, "badScalarArgument", {"varid", "numeric"}},
            {{-7, 0, bad, none, nan}, "argumentHasBadDatatype", {"START"}},
            {{-7, 0, -1, none, nan}, "argumentOutOfBounds", {}},
            {{-7, 0, 0, none, nan}, "argumentIsEmpty", {"COUNT"}},
            {{-7, 0, 0, 1, nan}, "indexArgumentNotFinite", {}},
            {{-7, 0, 0, 1, bad}, "argumentHasBadDatatype", {"STRIDE"}},
        };
        for (const auto& c : cases) {
            EXPECT_THAT(attempt(operationName("getVars", element.suffix), c.arguments),
                        raises(c.error, c.details));
            Values write = c.arguments;
            write.push_back(none); // empty data are reported later than bad vectors
            EXPECT_THAT(attempt(operationName("putVars", element.suffix), write),
                        raises(c.error, c.details));
        }
        // Empty data are reported before the file is asked.
        EXPECT_THAT(attempt(operationName("putVars", element.suffix), {-7, 0, 0, 1, 1, none}),
                    raises("emptyVariableData"));
        EXPECT_THAT(attempt(operationName("putVara", element.suffix), {-7, 0, 0, 1, none}),
                    raises("emptyVariableData"));
        EXPECT_THAT(attempt(operationName("putVar1", element.suffix), {-7, 0, 0, none}),
                    raises("emptyVariableData"));
    }
}

TEST_F(SubsetAccess, SetsEveryElementOfItsResult)
{
    host.fillUninitialised(0xAB);
    const int ncid = createCountingGrid();
    EXPECT_EQ(got("getVarsInt", {ncid, 0, row({1, 1}), row({2, 2}), row({3, 2})}),
              Value::numeric<std::int32_t>({2, 2}, {7, 10, 19, 22}));
}

} // namespace
