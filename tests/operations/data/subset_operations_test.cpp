// SPDX-License-Identifier: BSD-3-Clause
// "getVar1Double" ... "putVarsText": single values, blocks and strided blocks.
#include "tests/operations/data/subset_grid.h"
#include "tests/support/command_line_tools.h"
#include "tests/support/file_formats.h"
#include "tests/support/library_file.h"

using namespace testsupport;
using Ovard::gridio::ElementType;
using Ovard::gridio::elementTypes;
using testing::HasSubstr;

namespace {

using SubsetAccess = SubsetGrid;

// The elements of bytes at these positions, in this order.
Bytes picked(const Bytes& bytes, std::size_t size, const std::vector<std::size_t>& places)
{
    Bytes result;
    for (const std::size_t place : places)
        result += bytes.substr(place * size, size);
    return result;
}

// The arguments of each form, and the positions in the file, in the order of the host's elements.
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
            if (!servesVariables(element) || !format.holds(element.externalType))
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
            if (!servesVariables(element) || !format.holds(element.externalType))
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

TEST_F(SubsetAccess, ReturnsAColumnForOneDimension)
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

TEST_F(SubsetAccess, ReturnsTheShapeOfACountWithZero)
{
    for (const FileFormat& format : fileFormats) {
        const int ncid = createCountingGrid(NC_INT, format.mode);
        const Outcome outcome = attempt("getVaraInt", {ncid, 0, row({0, 0}), row({3, 0})});
        ASSERT_THAT(outcome, succeeds()) << format.name;
        EXPECT_EQ(outcome.results.at(0), Value::empty(vxINT32_CLASS, {3, 0})) << format.name;
        closeFile(ncid);
    }
}

TEST_F(SubsetAccess, ChecksAndDoesNotFlattenAVariableWithoutRecordsDeliberately)
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

TEST_F(SubsetAccess, SetsEveryElementOfItsResult)
{
    host.fillUninitialised(0xAB);
    const int ncid = createCountingGrid();
    EXPECT_EQ(got("getVarsInt", {ncid, 0, row({1, 1}), row({2, 2}), row({3, 2})}),
              Value::numeric<std::int32_t>({2, 2}, {7, 10, 19, 22}));
}

} // namespace
