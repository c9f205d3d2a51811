// SPDX-License-Identifier: BSD-3-Clause
// Rows of dimension identifiers and of chunk sizes.
#include "definitions/dimension_rows.h"

#include "tests/support/module_test.h"

#include <limits>

using namespace Ovard::gridio;
using namespace testsupport;
using standalone::Value;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
const double nan_ = std::numeric_limits<double>::quiet_NaN();

class DimensionRows : public ModuleTest {
protected:
    static std::vector<int> ids(const Value& row) { return toDimIdVector(row.array(), "dimids"); }
    static std::vector<std::size_t> sizes(const Value& row)
    {
        return toChunkSizeVector(row.array(), "chunk dims");
    }
};

TEST_F(DimensionRows, AreReversed)
{
    EXPECT_THAT(ids(Value::row<double>({0, 1, 2})), ElementsAre(2, 1, 0));
    EXPECT_THAT(sizes(Value::row<double>({10, 20, 30})), ElementsAre(30U, 20U, 10U));
}

TEST_F(DimensionRows, AreReadInStorageOrderWhateverTheShape)
{
    EXPECT_THAT(ids(Value::column<double>({0, 1, 2, 3})), ElementsAre(3, 2, 1, 0));
    EXPECT_THAT(ids(Value::numeric<double>({2, 2}, {0, 1, 2, 3})), ElementsAre(3, 2, 1, 0));
}

TEST_F(DimensionRows, MayBeEmpty)
{
    EXPECT_THAT(ids(Value::empty()), IsEmpty());
    EXPECT_THAT(sizes(Value::empty(vxDOUBLE_CLASS, {0, 3})), IsEmpty());
}

TEST_F(DimensionRows, TruncateIdentifiersAndLetImpossibleOnesPassDeliberately)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    const Value row = Value::row<double>(
        {2.9, -0.5, -7.9, 2147483647.5, 2147483648.0, nan_, infinity, -infinity, 1e300});
    EXPECT_THAT(ids(row),
                ElementsAre(lowest, lowest, lowest, lowest, lowest, 2147483647, -7, 0, 2));
}

TEST_F(DimensionRows, TruncateChunkSizesAndLetImpossibleOnesPassDeliberately)
{
    const std::size_t topBit = std::size_t{1} << 63;
    const Value row = Value::row<double>({100.7, -1, -0.5, 9223372036854775808.0,
                                          13835058055282163712.0, 18446744073709551616.0, nan_, 0});
    EXPECT_THAT(sizes(row), ElementsAre(0U, topBit, topBit, 13835058055282163712U, topBit, 0U,
                                        std::numeric_limits<std::size_t>::max(), 100U));
}

TEST_F(DimensionRows, TakeNoClassButDouble)
{
    const Value others[] = {Value::row<std::int32_t>({0}),
                            Value::row<float>({0}),
                            Value::row<std::uint64_t>({0}),
                            true,
                            "0",
                            Value::empty(vxCHAR_CLASS),
                            Value::empty(vxINT32_CLASS, {1, 0}),
                            Value::cell({1, 1}, {0}),
                            Value::anythingElse()};
    for (const Value& other : others) {
        EXPECT_THAT(outcomeOf([&] { return ids(other); }), raises("badRowDatatype", {"dimids"}))
            << other;
        EXPECT_THAT(outcomeOf([&] { return sizes(other); }),
                    raises("badRowDatatype", {"chunk dims"}))
            << other;
    }
}

TEST_F(DimensionRows, HoldAtMost1024Elements)
{
    EXPECT_EQ(ids(Value::row(std::vector<double>(1024))).size(), 1024U);
    EXPECT_EQ(sizes(Value::row(std::vector<double>(1024))).size(), 1024U);

    const Value tooLong = Value::row(std::vector<double>(1025));
    EXPECT_THAT(outcomeOf([&] { return ids(tooLong); }),
                raises("rowLengthOutOfBounds", {"dimids", 1024L}));
    EXPECT_THAT(outcomeOf([&] { return sizes(tooLong); }),
                raises("rowLengthOutOfBounds", {"chunk dims", 1024L}));
}

// An array of that many elements which has no storage: neither class nor count needs any.
Value hugeArray(vxClassID classId, std::size_t count)
{
    const auto array = std::make_shared<vxArray>();
    array->classId = classId;
    array->dims = {1, count};
    array->count = count;
    return Value(array);
}

TEST_F(DimensionRows, AreOutOfBoundsWhenTheyOverflowAnInt)
{
    const Value atLimit = hugeArray(vxDOUBLE_CLASS, 2147483647);
    EXPECT_THAT(host.attempt("defVar", {0, "v", 6, atLimit}),
                raises("rowLengthOutOfBounds", {"dimids", 1024L}));
    const Value pastLimit = hugeArray(vxDOUBLE_CLASS, 2147483648);
    EXPECT_THAT(host.attempt("defVar", {0, "v", 6, pastLimit}), raises("argumentOutOfBounds"));
    EXPECT_THAT(host.attempt("defVarChunking", {0, 0, 0, pastLimit}),
                raises("argumentOutOfBounds"));
    EXPECT_THAT(host.attempt("defVar", {0, "v", 6, hugeArray(vxINT8_CLASS, 2147483648)}),
                raises("badRowDatatype", {"dimids"}));
}

} // namespace
