// SPDX-License-Identifier: BSD-3-Clause
#include "tests/support/command_line_tools.h"
#include "tests/support/library_file.h"
#include "tests/support/module_test.h"

namespace testsupport {
namespace {

using standalone::Value;

using Groups = ModuleTest;

TEST_F(Groups, DefGrpMakesGroupsWithinGroups)
{
    const int ncid = createFile("x.nc");
    const Value outer = host.call("defGrp", {ncid, "outer"}).at(0);
    const Value inner = host.call("defGrp", {outer, "inner"}).at(0);
    host.call("defDim", {inner, "x", 2});
    closeFile(ncid);
    EXPECT_EQ(ncdump(folder.file("x.nc")), "netcdf test {\n\ngroup: outer {\n\n  group: inner {\n"
                                           "    dimensions:\n    \tx = 2 ;\n"
                                           "    } // group inner\n  } // group outer\n}\n");
}

TEST_F(Groups, EndWithTheFileThatIsClosed)
{
    const int ncid = createFile("x.nc");
    const Value outer = host.call("defGrp", {ncid, "outer"}).at(0);
    const Value inner = host.call("defGrp", {outer, "inner"}).at(0);
    closeFile(ncid);
    for (const Value& group : {outer, inner})
        EXPECT_THAT(host.attempt("inqGrpName", {group}),
                    raises("libraryFailure", {"inqGrpName", "NC_EBADID", "Not a valid ID"}));
}

TEST_F(Groups, AreFoundByNameAndListedInTheLibrarysOrder)
{
    ncgen(folder.file("x.nc"), "netcdf x { group: b { group: n { } } group: a { } group: c { } }");
    const int ncid = openFile("x.nc");
    const Value list = host.call("inqGrps", {ncid}).at(0);
    std::vector<int> expected(3);
    require(nc_inq_grps(ncid, nullptr, expected.data()));
    EXPECT_EQ(list, Value::row<double>({expected.begin(), expected.end()}));

    std::vector<std::string> names;
    for (const double id : list.elements<double>()) {
        const Value name = host.call("inqGrpName", {id}).at(0);
        names.push_back(name.toText());
        EXPECT_EQ(host.call("inqNcid", {ncid, name}).at(0), Value::number(id));
    }
    EXPECT_THAT(names, testing::ElementsAre("b", "a", "c"));
}

TEST_F(Groups, ReturnAZeroByZeroListWithoutChildren)
{
    const int ncid = createFile("x.nc");
    const Value group = host.call("defGrp", {ncid, "g"}).at(0);
    EXPECT_EQ(host.call("inqGrps", {group}).at(0), Value::empty(vxDOUBLE_CLASS, {0, 0}));
    EXPECT_EQ(host.call("inqGrps", {ncid}).at(0), Value::row<double>({group.toDouble()}));
}

TEST_F(Groups, KnowTheirNameAndTheirPath)
{
    const int ncid = createFile("x.nc");
    const Value outer = host.call("defGrp", {ncid, "outer"}).at(0);
    const Value inner = host.call("defGrp", {outer, "inn\xC3\xA9r"}).at(0);
    EXPECT_EQ(host.call("inqGrpName", {ncid}).at(0), Value("/"));
    EXPECT_EQ(host.call("inqGrpNameFull", {ncid}).at(0), Value("/"));
    EXPECT_EQ(host.call("inqGrpName", {inner}).at(0), Value("inn\xC3\xA9r"));
    EXPECT_EQ(host.call("inqGrpNameFull", {inner}).at(0), Value("/outer/inn\xC3\xA9r"));
}

TEST_F(Groups, HaveNamesAndPathsOfAnyLength)
{
    const int ncid = createFile("x.nc");
    Value group = ncid;
    std::string path;
    for (const char letter : {'a', 'b', 'c'}) {
        const std::string name(NC_MAX_NAME, letter);
        group = host.call("defGrp", {group, name}).at(0);
        path += "/" + name;
        EXPECT_EQ(host.call("inqGrpName", {group}).at(0), Value(name));
        EXPECT_EQ(host.call("inqGrpNameFull", {group}).at(0), Value(path));
    }
    EXPECT_THAT(host.attempt("defGrp", {ncid, std::string(NC_MAX_NAME + 1, 'x')}),
                raises("libraryFailure", {"defGrp", "NC_EMAXNAME", "NC_MAX_NAME exceeded"}));
}

TEST_F(Groups, KnowTheirParentAndTheRootReportsThatItHasNone)
{
    const int ncid = createFile("x.nc");
    const Value outer = host.call("defGrp", {ncid, "outer"}).at(0);
    const Value inner = host.call("defGrp", {outer, "inner"}).at(0);
    EXPECT_EQ(host.call("inqGrpParent", {inner}).at(0), outer);
    EXPECT_EQ(host.call("inqGrpParent", {outer}).at(0), Value::number(ncid));
    const auto outcome = host.attempt("inqGrpParent", {ncid});
    EXPECT_THAT(outcome,
                raises("libraryFailure", {"inqGrpParent", "NC_ENOGRP", "No group found."}));
    EXPECT_TRUE(outcome.results.empty());
}

TEST_F(Groups, TakeTextOnlyForTheirName)
{
    const int ncid = createFile("x.nc");
    for (const char* operation : {"inqNcid", "defGrp"})
        for (const Value& name : {Value(5), Value::empty(), Value::cell({1, 1}, {"g"})})
            EXPECT_THAT(host.attempt(operation, {ncid, name}),
                        raises("argumentWasNotChar", {"group name"}));
}

TEST_F(Groups, ReportTheLibrarysFailures)
{
    const int ncid = createFile("x.nc");
    host.call("defGrp", {ncid, "g"});
    EXPECT_THAT(host.attempt("defGrp", {ncid, "g"}).raised->arguments.at(1),
                standalone::Argument("NC_ENAMEINUSE"));
    EXPECT_THAT(host.attempt("defGrp", {ncid, "a/b"}).raised->arguments.at(1),
                standalone::Argument("NC_EBADNAME"));
    EXPECT_THAT(host.attempt("inqNcid", {ncid, "G"}),
                raises("libraryFailure", {"inqNcid", "NC_ENOGRP", "No group found."}));
    for (const char* name : {"inqGrps", "inqGrpName", "inqGrpNameFull", "inqGrpParent"})
        EXPECT_THAT(host.attempt(name, {-1}),
                    raises("libraryFailure", {name, "NC_EBADID", "Not a valid ID"}));
}

TEST_F(Groups, AreOnlyTheRootInAClassicFile)
{
    const int ncid = createFile("x.nc", "clobber");
    EXPECT_EQ(host.call("inqGrps", {ncid}).at(0), Value::empty(vxDOUBLE_CLASS, {0, 0}));
    EXPECT_EQ(host.call("inqGrpName", {ncid}).at(0), Value("/"));
    EXPECT_THAT(host.attempt("defGrp", {ncid, "g"}).raised->arguments.at(1),
                standalone::Argument("NC_ENOTNC4"));
}

} // namespace
} // namespace testsupport
