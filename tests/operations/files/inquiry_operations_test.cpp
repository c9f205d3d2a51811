// SPDX-License-Identifier: BSD-3-Clause
#include "tests/support/command_line_tools.h"
#include "tests/support/library_file.h"
#include "tests/support/module_test.h"

#include <utility>

namespace testsupport {
namespace {

using standalone::Value;

// A file created by the library directly, opened through the module.
class Inquiry : public ModuleTest {
protected:
    int open(const std::string& cdl, const std::string& kind = "nc4")
    {
        ncgen(folder.file("x.nc"), cdl, kind);
        return openFile("x.nc");
    }
    int group(int ncid, const char* name)
    {
        int id = 0;
        require(nc_inq_ncid(ncid, name, &id));
        return id;
    }
};

Value row(const std::vector<double>& ids)
{
    return ids.empty() ? Value::empty(vxDOUBLE_CLASS, {0, 0}) : Value::row<double>(ids);
}

using Numbers = std::vector<Value>;

const char* const twoGroups = R"(netcdf x {
dimensions:
    a = 2 ; t = UNLIMITED ; b = 3 ;
variables:
    int v(t) ;
    double w(b, a) ;
// global attributes:
    :title = "x" ;
group: g {
  dimensions:
    c = 4 ; u = UNLIMITED ;
  variables:
    int z(c) ;
  group: empty {
  }
}
})";

TEST_F(Inquiry, InqCountsWhatAFileOrGroupHolds)
{
    const int ncid = open(twoGroups);
    EXPECT_EQ(host.call("inq", {ncid}), (Numbers{3, 2, 1, 1}));
    const int g = group(ncid, "g");
    EXPECT_EQ(host.call("inq", {g}), (Numbers{2, 1, 0, 4})); // "u", numbered through
    EXPECT_EQ(host.call("inq", {group(g, "empty")}), (Numbers{0, 0, 0, -1}));
}

TEST_F(Inquiry, InqGivesMinusOneWithoutAnUnlimitedDimension)
{
    for (const char* kind : {"nc3", "nc6", "nc5", "nc4", "nc7"}) {
        const int ncid = open("netcdf x { dimensions: a = 2 ; }", kind);
        EXPECT_EQ(host.call("inq", {ncid}), (Numbers{1, 0, 0, -1})) << kind;
        closeFile(ncid);
    }
}

TEST_F(Inquiry, InqFormatNamesTheFourFormats)
{
    const std::pair<const char*, const char*> formats[] = {
        {"nc3", "FORMAT_CLASSIC"},
        {"nc6", "FORMAT_64BIT"},
        {"nc4", "FORMAT_NETCDF4"},
        {"nc7", "FORMAT_NETCDF4_CLASSIC"},
    };
    for (const auto& [kind, name] : formats) {
        const int ncid = open("netcdf x { }", kind);
        EXPECT_EQ(host.call("inqFormat", {ncid}), Numbers{name});
        closeFile(ncid);
    }
}

TEST_F(Inquiry, InqFormatNamesTheFormatOfAGroupsFile)
{
    const int ncid = open(twoGroups);
    EXPECT_EQ(host.call("inqFormat", {group(ncid, "g")}), Numbers{"FORMAT_NETCDF4"});
}

TEST_F(Inquiry, InqFormatDeliberatelyHasNoNameForAnyOtherCode)
{
    const int ncid = open("netcdf x { }", "nc5");
    EXPECT_THAT(host.attempt("inqFormat", {ncid}), raises("unknownNetCDFFormat", {5}));
}

TEST_F(Inquiry, InqLibVersGivesTheLibrarysTextAsItIs)
{
    EXPECT_EQ(host.call("inqLibVers"), Numbers{nc_inq_libvers()});
    EXPECT_THAT(host.attempt("inqLibVers", {1}), raises("wrongNumberOfInputs"));
}

TEST_F(Inquiry, ListsTheUnlimitedDimensionsOfAFileOrGroup)
{
    const int ncid = open(R"(netcdf x {
dimensions: s = UNLIMITED ; a = 2 ; t = UNLIMITED ;
group: g { dimensions: u = UNLIMITED ; } })");
    EXPECT_EQ(host.call("inqUnlimDims", {ncid}), Numbers{row({0, 2})});
    EXPECT_EQ(host.call("inqUnlimDims", {group(ncid, "g")}), Numbers{row({3})});
}

TEST_F(Inquiry, ListsVariablesInTheLibrarysOrder)
{
    const int ncid = open(twoGroups);
    EXPECT_EQ(host.call("inqVarIDs", {ncid}), Numbers{row({0, 1})});
    EXPECT_EQ(host.call("inqVarIDs", {group(ncid, "g")}), Numbers{row({0})});
}

TEST_F(Inquiry, ListsDimensionsWithThoseOfTheParentsOnlyWhenAsked)
{
    const int ncid = open(twoGroups);
    const int g = group(ncid, "g");
    EXPECT_EQ(host.call("inqDimIDs", {ncid, false}), Numbers{row({0, 1, 2})});
    EXPECT_EQ(host.call("inqDimIDs", {ncid, true}), Numbers{row({0, 1, 2})});
    EXPECT_EQ(host.call("inqDimIDs", {g, false}), Numbers{row({3, 4})});
    for (const int id : {g, group(g, "empty")}) {
        int count = 0;
        require(nc_inq_dimids(id, &count, nullptr, 1));
        std::vector<int> ids(static_cast<std::size_t>(count));
        require(nc_inq_dimids(id, nullptr, ids.data(), 1));
        EXPECT_EQ(count, 5);
        EXPECT_EQ(host.call("inqDimIDs", {id, true}),
                  Numbers{row(std::vector<double>(ids.begin(), ids.end()))});
    }
    EXPECT_EQ(host.call("inqDimIDs", {group(g, "empty"), false}), Numbers{row({})});
}

TEST_F(Inquiry, GivesAnEmptyListAsZeroByZeroAndNotOneByZero)
{
    const int ncid = open("netcdf x { }");
    const Value none = Value::empty(vxDOUBLE_CLASS, {0, 0});
    EXPECT_EQ(host.call("inqVarIDs", {ncid}), Numbers{none});
    EXPECT_EQ(host.call("inqUnlimDims", {ncid}), Numbers{none});
    EXPECT_EQ(host.call("inqDimIDs", {ncid, true}), Numbers{none});
    EXPECT_EQ(host.call("inqGrps", {ncid}), Numbers{none});
}

TEST_F(Inquiry, GivesOneIdentifierAsAScalarAndFiveAsARow)
{
    const int one = open("netcdf x { dimensions: a = 1 ; }");
    EXPECT_EQ(host.call("inqDimIDs", {one, false}), Numbers{row({0})});
    closeFile(one);
    const int five = open("netcdf x { dimensions: a = 1 ; b = 2 ; c = 3 ; d = 4 ; e = 5 ; }");
    EXPECT_EQ(host.call("inqDimIDs", {five, false}), Numbers{row({0, 1, 2, 3, 4})});
}

TEST_F(Inquiry, DoesNotTakeTheNumbersZeroAndOneForTheFlag)
{
    const int ncid = open("netcdf x { }");
    for (const double flag : {0.0, 1.0})
        EXPECT_THAT(host.attempt("inqDimIDs", {ncid, flag}),
                    raises("expectedLogicalType", {"include_parents flag"}));
}

TEST_F(Inquiry, LeavesNoElementOfAListUnset)
{
    host.fillUninitialised(0xA5);
    const int ncid = open(twoGroups);
    EXPECT_EQ(host.call("inqDimIDs", {ncid, false}), Numbers{row({0, 1, 2})});
}

TEST_F(Inquiry, ReportsABadIdentifierUnderTheOperationsName)
{
    for (const char* name : {"inq", "inqFormat", "inqUnlimDims", "inqVarIDs"})
        EXPECT_THAT(host.attempt(name, {-1}),
                    raises("libraryFailure", {name, "NC_EBADID", "Not a valid ID"}));
    EXPECT_THAT(host.attempt("inqDimIDs", {-1, true}),
                raises("libraryFailure", {"inqDimIDs", "NC_EBADID", "Not a valid ID"}));
}

} // namespace
} // namespace testsupport
