// SPDX-License-Identifier: BSD-3-Clause
// Attributes of every type and length under the names that decoding looks for.
#include "tests/operations/datasets/dataset_test.h"
#include "tests/support/library_file.h"

#include <algorithm>

using standalone::Value;
using testsupport::require;

namespace {

constexpr const char* names[] = {"missing_value", "valid_range",  "valid_min", "valid_max",
                                 "_Unsigned",     "scale_factor", "add_offset"};
constexpr nc_type storedTypes[] = {NC_BYTE, NC_INT64, NC_FLOAT};
constexpr std::size_t lengths[] = {0, 1, 2, 300};

class HostileAttributes : public testsupport::DatasetTest {
protected:
    // All atomic types, and one of each that users define.
    static std::vector<nc_type> defineTypes(int ncid)
    {
        std::vector<nc_type> types;
        for (nc_type xtype = NC_BYTE; xtype <= NC_STRING; ++xtype)
            types.push_back(xtype);
        nc_type made = NC_NAT;
        const signed char one = 1;
        require(nc_def_enum(ncid, NC_BYTE, "sky", &made));
        require(nc_insert_enum(ncid, made, "cloudy", &one));
        types.push_back(made);
        require(nc_def_opaque(ncid, 8, "blob", &made));
        types.push_back(made);
        require(nc_def_compound(ncid, 8, "one", &made));
        require(nc_insert_compound(ncid, made, "d", 0, NC_DOUBLE));
        types.push_back(made);
        require(nc_def_vlen(ncid, "list", NC_INT, &made));
        types.push_back(made);
        return types;
    }

    // Bytes of a pattern that is a NaN, a huge number or some other in each type.
    static void putAttribute(int ncid, int varid, const char* name, nc_type xtype,
                             std::size_t length, unsigned char pattern)
    {
        std::size_t size = 0;
        require(nc_inq_type(ncid, xtype, nullptr, &size));
        std::vector<unsigned char> bytes(length * size + 1, pattern);
        if (xtype == NC_STRING) {
            std::vector<const char*> texts(length + 1, "0.5");
            require(nc_put_att_string(ncid, varid, name, length, texts.data()));
            return;
        }
        int kind = 0;
        if (xtype > NC_MAX_ATOMIC_TYPE)
            require(nc_inq_user_type(ncid, xtype, nullptr, nullptr, nullptr, nullptr, &kind));
        if (kind == NC_VLEN) // none of them holds anything
            std::fill(bytes.begin(), bytes.end(), static_cast<unsigned char>(0));
        require(nc_put_att(ncid, varid, name, xtype, length, bytes.data()));
    }

    int makeVariables(unsigned char pattern)
    {
        auto file = testsupport::LibraryFile::create(folder.file("hostile.nc"));
        const std::vector<nc_type> types = defineTypes(file.ncid());
        int dimid = 0;
        require(nc_def_dim(file.ncid(), "x", 2, &dimid));
        int count = 0;
        for (const nc_type stored : storedTypes)
            for (const char* name : names)
                for (const nc_type xtype : types)
                    for (const std::size_t length : lengths) {
                        int varid = 0;
                        require(nc_def_var(file.ncid(), ("v" + std::to_string(count++)).c_str(),
                                           stored, 1, &dimid, &varid));
                        putAttribute(file.ncid(), varid, name, xtype, length, pattern);
                    }
        file.close();
        return count;
    }
};

} // namespace

TEST_F(HostileAttributes, AreTakenOrPassedOverWithAWarning)
{
    for (const int pattern : {0x00, 0x01, 0x7F, 0xFF}) {
        const int count = makeVariables(static_cast<unsigned char>(pattern));
        const int ncid = openFile("hostile.nc");
        EXPECT_EQ(result("describe", {ncid}).field("variables").field("name").numel(),
                  static_cast<std::size_t>(count));
        for (int varid = 0; varid < count; ++varid) {
            SCOPED_TRACE(varid);
            const Value said = result("decoding", {ncid, varid, 63});
            const bool isTaken = said.field("isPacked").toLogical() ||
                                 said.field("hasMissing").toLogical() ||
                                 said.field("storedClass").toText()[0] == 'u';
            EXPECT_FALSE(isTaken && said.field("warnings").numel() > 0);
            EXPECT_EQ(result("read", {ncid, varid, 0, 2, 1, 31}).numel(), 2u);
            EXPECT_EQ(result("reduce", {"mean", ncid, varid, 0, 2, 1, 31, true, Value::empty(),
                                        Value::empty()})
                          .numel(),
                      1u);
        }
        closeFile(ncid);
    }
}
