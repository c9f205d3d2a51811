// SPDX-License-Identifier: BSD-3-Clause
// Compares inquiries about real files with direct library calls. The folder of the files comes
// from the environment variable GRIDIO_DATA.
#include "tests/support/command_line_tools.h"
#include "tests/support/library_file.h"
#include "tests/support/module_test.h"

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace testsupport {
namespace {

using standalone::Value;

using Inquire = std::function<int(int* count, int* ids)>;

Value listOf(const Inquire& inquire)
{
    int count = 0;
    require(inquire(&count, nullptr));
    std::vector<int> ids(static_cast<std::size_t>(count));
    require(inquire(nullptr, ids.data()));
    if (ids.empty())
        return Value::empty(vxDOUBLE_CLASS, {0, 0});
    return Value::row<double>({ids.begin(), ids.end()});
}

class RealFiles : public ModuleTest {
protected:
    std::size_t groupsSeen = 0;

    // Compares a group and all groups below it, through the identifier that the module returned.
    void compareGroup(int id, const std::string& path)
    {
        SCOPED_TRACE(path);
        ++groupsSeen;
        int counts[4] = {};
        require(nc_inq(id, &counts[0], &counts[1], &counts[2], &counts[3]));
        EXPECT_EQ(host.call("inq", {id}),
                  (std::vector<Value>{counts[0], counts[1], counts[2], counts[3]}));
        EXPECT_EQ(host.call("inqVarIDs", {id}).at(0),
                  listOf([=](int* n, int* ids) { return nc_inq_varids(id, n, ids); }));
        EXPECT_EQ(host.call("inqUnlimDims", {id}).at(0),
                  listOf([=](int* n, int* ids) { return nc_inq_unlimdims(id, n, ids); }));
        for (const bool withParents : {false, true})
            EXPECT_EQ(host.call("inqDimIDs", {id, withParents}).at(0),
                      listOf([=](int* n, int* ids) {
                          return nc_inq_dimids(id, n, ids, withParents ? 1 : 0);
                      }));
        EXPECT_EQ(host.call("inqGrpNameFull", {id}).at(0), Value(path));

        const Value children = host.call("inqGrps", {id}).at(0);
        EXPECT_EQ(children, listOf([=](int* n, int* ids) { return nc_inq_grps(id, n, ids); }));
        for (const double child : children.elements<double>()) {
            const std::string name = host.call("inqGrpName", {child}).at(0).toText();
            EXPECT_EQ(host.call("inqNcid", {id, name}).at(0), Value(child));
            EXPECT_EQ(host.call("inqGrpParent", {child}).at(0), Value(id));
            compareGroup(static_cast<int>(child), (path == "/" ? "" : path) + "/" + name);
        }
    }
};

TEST_F(RealFiles, AreDescribedAsByTheLibrary)
{
    const char* data = std::getenv("GRIDIO_DATA");
    if (data == nullptr)
        GTEST_SKIP() << "GRIDIO_DATA names no folder of real files";
    const std::map<std::string, const char*> names = {
        {"classic", "FORMAT_CLASSIC"},
        {"64-bit offset", "FORMAT_64BIT"},
        {"netCDF-4", "FORMAT_NETCDF4"},
        {"netCDF-4 classic model", "FORMAT_NETCDF4_CLASSIC"},
    };
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(data)) {
        if (entry.path().extension() != ".nc")
            continue;
        SCOPED_TRACE(entry.path().string());
        ++files;
        const Value ncid = host.call("open", {entry.path().string(), "nowrite"}).at(0);
        compareGroup(static_cast<int>(ncid.toDouble()), "/");

        const standalone::Outcome format = host.attempt("inqFormat", {ncid});
        const std::string kind = ncdumpKind(entry.path().string());
        if (kind == "cdf5")
            EXPECT_THAT(format, raises("unknownNetCDFFormat", {5L}));
        else
            EXPECT_EQ(format.results.at(0), Value(names.at(kind)));
        host.call("close", {ncid});
    }
    EXPECT_GT(files, 0U);
    EXPECT_GE(groupsSeen, files);
}

} // namespace
} // namespace testsupport
