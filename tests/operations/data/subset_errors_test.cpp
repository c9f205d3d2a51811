// SPDX-License-Identifier: BSD-3-Clause
// Errors of the subset operations, and their order.
#include "tests/operations/data/subset_grid.h"
#include "tests/support/file_formats.h"

#include <limits>

using namespace testsupport;
using Ovard::gridio::ElementType;
using Ovard::gridio::elementTypes;

namespace {

using SubsetErrors = SubsetGrid;

TEST_F(SubsetErrors, RefuseAScalarVariable)
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

TEST_F(SubsetErrors, ReportsTheRequiredLengthTwiceWhenReadingDeliberately)
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

// The vectors that a form has no argument for are as long as START.
TEST_F(SubsetErrors, ReportsNoLengthOfAVectorThatTheFormDoesNotTake)
{
    const int ncid = createCountingGrid();
    const Value one = row({1});
    const Value three = row({1, 1, 1});
    for (const Value& start : {one, three}) {
        const long given = static_cast<long>(start.numel());
        const auto refusal = raises("badIndexArgumentLength", {"START", "v", 2L, given});
        EXPECT_THAT(attempt("getVar1Double", {ncid, 0, start}), refusal);
        EXPECT_THAT(attempt("putVar1Double", {ncid, 0, start, 1}), refusal);
        EXPECT_THAT(attempt("getVaraDouble", {ncid, 0, start, start}), refusal);
        EXPECT_THAT(attempt("putVaraDouble", {ncid, 0, start, start, 1}), refusal);
    }
    const Value two = row({1, 1});
    EXPECT_THAT(attempt("getVar1Double", {ncid, 0, two}), succeeds());
    EXPECT_THAT(attempt("putVar1Double", {ncid, 0, two, 1}), succeeds());
    EXPECT_THAT(attempt("getVaraDouble", {ncid, 0, two, two}), succeeds());
    EXPECT_THAT(attempt("putVaraDouble", {ncid, 0, two, two, 1}), succeeds());
}

TEST_F(SubsetErrors, ReportsTheLengthGivenWhenWriting)
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

TEST_F(SubsetErrors, ComparesTheProductOfCountWithTheNumberOfValues)
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

TEST_F(SubsetErrors, ReportACountWhoseProductOverflows)
{
    for (const ElementType& element : elementTypes) {
        if (!servesVariables(element))
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

TEST_F(SubsetErrors, RaiseTheHostsOutOfMemoryBeyondMemory)
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

TEST_F(SubsetErrors, TakesAnyClassAsItsRawStorageButNoneThatIsTooShort)
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

TEST_F(SubsetErrors, LooksAtTheStorageAfterEveryOtherCheck)
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
    // And before the library would have refused the position.
    EXPECT_THAT(attempt("putVaraDouble", {ncid, 0, row({99, 99}), row({2, 2}), bytes}),
                raises("dataSizeMismatch"));
}

TEST_F(SubsetErrors, LeavesTheRangeToTheLibrary)
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

TEST_F(SubsetErrors, ReportTheLibrarysStatusForAMissingVariable)
{
    const int ncid = createCountingGrid();
    EXPECT_THAT(attempt("getVar1Int", {-7, 0, 0}), failsWith("getVar1Int", NC_EBADID));
    EXPECT_THAT(attempt("getVar1Int", {ncid, 5, 0}), failsWith("getVar1Int", NC_ENOTVAR));
    EXPECT_THAT(attempt("getVar1Int", {ncid, NC_GLOBAL, 0}), failsWith("getVar1Int", NC_ENOTVAR));
    EXPECT_THAT(attempt("putVar1Int", {ncid, 5, 0, Value::scalar<std::int32_t>(1)}),
                failsWith("putVar1Int", NC_ENOTVAR));
}

TEST_F(SubsetErrors, ReadsLeftToRightAndAsksTheFileLast)
{
    const Value bad = "bad";
    const Value none = Value::empty();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const ElementType& element : elementTypes) {
        if (!servesVariables(element))
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
        // Empty data are reported before the file is inquired.
        EXPECT_THAT(attempt(operationName("putVars", element.suffix), {-7, 0, 0, 1, 1, none}),
                    raises("emptyVariableData"));
        EXPECT_THAT(attempt(operationName("putVara", element.suffix), {-7, 0, 0, 1, none}),
                    raises("emptyVariableData"));
        EXPECT_THAT(attempt(operationName("putVar1", element.suffix), {-7, 0, 0, none}),
                    raises("emptyVariableData"));
    }
}

} // namespace
