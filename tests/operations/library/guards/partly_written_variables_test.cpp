// SPDX-License-Identifier: BSD-3-Clause
// Variables that are shorter than their unlimited dimensions. The random programs found that the
// library's bulk reads return wrong values for them.
#include "tests/operations/operation_test.h"
#include "tests/support/library_file.h"

#include <array>

using namespace testsupport;

namespace {

class UnwrittenElements : public OperationTest {
protected:
    void SetUp() override { host.fillUninitialised(0x55); }

    // v has the values 1, 2, ... in its first written[0] by written[1] elements; w, of the same
    // dimensions, determines both lengths, where 0 means unlimited. The fill value of v is -1. In a
    // group whose dimensions are those of the file.
    int makeFile(const std::array<std::size_t, 2>& lengths,
                 const std::array<std::size_t, 2>& written)
    {
        const int file = createFile("unwritten.nc");
        int dimids[2] = {};
        require(nc_def_dim(file, "t", lengths[0], &dimids[0]));
        require(nc_def_dim(file, "x", lengths[1], &dimids[1]));
        int ncid = 0;
        require(nc_def_grp(file, "g", &ncid));
        int v = 0;
        int w = 0;
        require(nc_def_var(ncid, "v", NC_INT, 2, dimids, &v));
        require(nc_def_var(ncid, "w", NC_INT, 2, dimids, &w));
        const int fill = -1;
        require(nc_def_var_fill(ncid, v, NC_FILL, &fill));
        std::vector<int> values(written[0] * written[1]);
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = static_cast<int>(i) + 1;
        const std::size_t first[] = {0, 0};
        require(nc_put_vara_int(ncid, v, first, written.data(), values.data()));
        const std::size_t last[] = {full[0] - 1, full[1] - 1};
        require(nc_put_var1_int(ncid, w, last, values.data()));
        return ncid;
    }

    // The element as the library reads it alone.
    static double element(int ncid, std::size_t t, std::size_t x)
    {
        const std::size_t index[] = {t, x};
        double value = 0;
        require(nc_get_var1_double(ncid, 0, index, &value));
        return value;
    }

    static constexpr std::size_t full[2] = {5, 4};
};

struct Written {
    std::array<std::size_t, 2> lengths;
    std::array<std::size_t, 2> written;
};

const Written files[] = {
    {{0, 4}, {3, 4}}, {{5, 0}, {5, 2}}, {{0, 0}, {3, 2}}, {{0, 0}, {1, 1}}, {{0, 0}, {5, 4}},
};

TEST_F(UnwrittenElements, AreFillValuesAndLeaveOthersInPlace)
{
    for (const Written& file : files) {
        const int ncid = makeFile(file.lengths, file.written);
        for (const std::size_t step : {1U, 2U, 3U}) {
            for (std::size_t from = 0; from < 3; ++from) {
                const std::size_t rows = (full[0] - from - 1) / step + 1;
                const std::size_t columns = (full[1] - from - 1) / step + 1;
                std::vector<double> expected;
                for (std::size_t t = 0; t < rows; ++t)
                    for (std::size_t x = 0; x < columns; ++x)
                        expected.push_back(element(ncid, from + t * step, from + x * step));
                const auto d = [](std::size_t n) { return static_cast<double>(n); };
                EXPECT_EQ(
                    got("getVarsDouble", {ncid, 0, row({d(from), d(from)}),
                                          row({d(columns), d(rows)}), row({d(step), d(step)})}),
                    Value::numeric<double>({columns, rows}, expected))
                    << "written " << file.written[0] << " by " << file.written[1] << ", from "
                    << from << " by " << step;
            }
        }
        EXPECT_EQ(got("getVarInt", {ncid, 0}),
                  got("getVaraInt", {ncid, 0, row({0, 0}), row({4, 5})}));
        EXPECT_EQ(got("getVarInt", {ncid, 0}).elements<std::int32_t>()[4],
                  static_cast<std::int32_t>(element(ncid, 1, 0)));
        closeFile(ncid & ~0xFFFF);
    }
}

TEST_F(UnwrittenElements, AreOnlyTheUnwrittenOnesOfRecordsWithAStride)
{
    const int ncid = createFile("records.nc");
    int t = 0;
    int varid = 0;
    require(nc_def_dim(ncid, "t", NC_UNLIMITED, &t));
    require(nc_def_var(ncid, "v", NC_CHAR, 1, &t, &varid));
    require(nc_def_var(ncid, "w", NC_CHAR, 1, &t, &varid));
    const std::size_t first[] = {0};
    const std::size_t four[] = {4};
    const std::size_t last[] = {6};
    require(nc_put_vara_text(ncid, 0, first, four, "abcd"));
    require(nc_put_var1_text(ncid, 1, last, "z"));
    EXPECT_EQ(got("getVarsText", {ncid, 0, 0, 3, 3}).toUtf16(), std::u16string(u"ad\0", 3));
    EXPECT_EQ(got("getVarsText", {ncid, 0, 1, 3, 2}).toUtf16(), std::u16string(u"bd\0", 3));
    closeFile(ncid);
}

// The block begins past the end of what was written along a dimension of which it takes one index.
TEST_F(UnwrittenElements, AreFillValuesBesideTheWrittenPart)
{
    const int ncid = id("create", {folder.file("beside.nc"), "netcdf4"});
    const double u = number("defDim", {ncid, "u", 0});
    const double t = number("defDim", {ncid, "t", 0});
    const double w = number("defVar", {ncid, "w", NC_INT, row({u, t})});
    const double v = number("defVar", {ncid, "v", NC_DOUBLE, row({u, t})});
    const auto twenty = Value::row(std::vector<std::int32_t>(20, 1));
    host.call("putVaraInt", {ncid, w, row({0, 0}), row({4, 5}), twenty});
    host.call("putVaraDouble", {ncid, v, row({0, 0}), row({1, 2}), row({11, 12})});
    constexpr double fill = NC_FILL_DOUBLE;
    EXPECT_EQ(got("getVaraDouble", {ncid, v, row({1, 0}), row({1, 5})}),
              Value::numeric<double>({1, 5}, std::vector<double>(5, fill)));
    EXPECT_EQ(got("getVaraDouble", {ncid, v, row({0, 0}), row({2, 3})}),
              Value::numeric<double>({2, 3}, {11, fill, 12, fill, fill, fill}));
    EXPECT_EQ(got("getVarsDouble", {ncid, v, row({0, 1}), row({1, 2}), row({3, 2})}),
              Value::numeric<double>({1, 2}, {12, fill}));
    closeFile(ncid);
}

TEST_F(UnwrittenElements, DoNotHideThatAnElementIsOutOfRange)
{
    const int ncid = makeFile({0, 0}, {3, 2});
    EXPECT_THAT(attempt("getVarUchar", {ncid, 0}), failsWith("getVarUchar", NC_ERANGE));
    EXPECT_THAT(attempt("getVaraInt", {ncid, 0, row({0, 0}), row({5, 5})}),
                failsWith("getVaraInt", NC_EEDGE));
    closeFile(ncid & ~0xFFFF);
}

// Only the library's report that there is no fill value shows that the last element may be
// unwritten.
TEST_F(UnwrittenElements, LeaveOthersInPlaceWithoutFillValues)
{
    const int ncid = createFile("unfilled.nc");
    int dimids[2] = {};
    require(nc_def_dim(ncid, "t", NC_UNLIMITED, &dimids[0]));
    require(nc_def_dim(ncid, "x", NC_UNLIMITED, &dimids[1]));
    int varid = 0;
    require(nc_def_var(ncid, "v", NC_INT, 2, dimids, &varid));
    require(nc_def_var(ncid, "w", NC_INT, 2, dimids, &varid));
    require(nc_def_var_fill(ncid, 0, NC_NOFILL, nullptr));
    const std::size_t first[] = {0, 0};
    const std::size_t count[] = {2, 2};
    const int values[] = {1, 2, 3, 4};
    require(nc_put_vara_int(ncid, 0, first, count, values));
    const std::size_t last[] = {2, 2};
    require(nc_put_var1_int(ncid, 1, last, values));
    constexpr auto fill = NC_FILL_INT;
    EXPECT_EQ(got("getVarInt", {ncid, 0}),
              Value::numeric<std::int32_t>({3, 3}, {1, 2, fill, 3, 4, fill, fill, fill, fill}));
    closeFile(ncid);
}

// The last element of such a variable may be larger than any that it is compared with.
TEST_F(UnwrittenElements, FailAsUsualForTypesThatTheHostDoesNotHave)
{
    const int ncid = createFile("types.nc");
    int dimids[2] = {};
    require(nc_def_dim(ncid, "t", NC_UNLIMITED, &dimids[0]));
    require(nc_def_dim(ncid, "x", NC_UNLIMITED, &dimids[1]));
    nc_type opaque = NC_NAT;
    require(nc_def_opaque(ncid, 4096, "large", &opaque));
    int varid = 0;
    // Not strings: the library leaks those that it reads and cannot convert.
    require(nc_def_var(ncid, "o", opaque, 2, dimids, &varid));
    require(nc_def_var(ncid, "w", NC_INT, 2, dimids, &varid));
    const std::size_t last[] = {2, 2};
    const int value = 1;
    require(nc_put_var1_int(ncid, varid, last, &value));
    EXPECT_THAT(attempt("getVarDouble", {ncid, 0}), failsWith("getVarDouble", NC_EBADTYPE));
    EXPECT_THAT(attempt("getVarsUchar", {ncid, 0, row({0, 0}), row({2, 2}), row({2, 2})}),
                failsWith("getVarsUchar", NC_EBADTYPE));
    EXPECT_THAT(attempt("getVarText", {ncid, 0}), failsWith("getVarText", NC_ECHAR));
    closeFile(ncid);
}

} // namespace
