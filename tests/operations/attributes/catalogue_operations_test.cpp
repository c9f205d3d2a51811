// SPDX-License-Identifier: BSD-3-Clause
// Finding, describing, renaming, deleting and copying attributes.
#include "tests/operations/operation_test.h"
#include "tests/support/command_line_tools.h"
#include "tests/support/file_formats.h"
#include "tests/support/library_file.h"

using namespace testsupport;
using testing::HasSubstr;
using testing::Not;

namespace {

class AttributeCatalogue : public OperationTest {
protected:
    // A file with a variable v (identifier 0) that has the attributes units, valid_range and pad,
    // and with the global attribute title; in define mode.
    int createFileWithAttributes(const std::string& name = "a.nc", int mode = NC_NETCDF4)
    {
        const int ncid = createFile(name, mode);
        number("defVar", {ncid, "v", NC_INT, row({})});
        const short range[] = {-5, 5};
        require(nc_put_att_text(ncid, 0, "units", 2, "km"));
        require(nc_put_att_short(ncid, 0, "valid_range", NC_SHORT, 2, range));
        require(nc_put_att_text(ncid, 0, "pad", 4, "ab\0\0"));
        require(nc_put_att_text(ncid, NC_GLOBAL, "title", 4, "test"));
        return ncid;
    }
};

TEST_F(AttributeCatalogue, DescribesAnAttributeByItsTypeAndCount)
{
    for (const FileFormat& format : fileFormats) {
        const int ncid = createFileWithAttributes("a.nc", format.mode);
        EXPECT_EQ(host.call("inqAtt", {ncid, 0, "units"}), (Values{NC_CHAR, 2})) << format.name;
        EXPECT_EQ(host.call("inqAtt", {ncid, 0, "valid_range"}), (Values{NC_SHORT, 2}));
        EXPECT_EQ(host.call("inqAtt", {ncid, NC_GLOBAL, "title"}), (Values{NC_CHAR, 4}));
        closeFile(ncid);
    }
}

TEST_F(AttributeCatalogue, CountsTrailingNuls)
{
    const int ncid = createFileWithAttributes();
    EXPECT_EQ(host.call("inqAtt", {ncid, 0, "pad"}), (Values{NC_CHAR, 4}));
}

TEST_F(AttributeCatalogue, NumbersAttributesFromZero)
{
    const int ncid = createFileWithAttributes();
    EXPECT_EQ(number("inqAttID", {ncid, 0, "units"}), 0);
    EXPECT_EQ(number("inqAttID", {ncid, 0, "pad"}), 2);
    EXPECT_EQ(got("inqAttName", {ncid, 0, 1}), Value("valid_range"));
    EXPECT_EQ(got("inqAttName", {ncid, NC_GLOBAL, 0.9}), Value("title"));
}

TEST_F(AttributeCatalogue, RenamesAndDeletes)
{
    const int ncid = createFileWithAttributes();
    EXPECT_TRUE(host.call("renameAtt", {ncid, 0, "units", "unités"}).empty());
    EXPECT_TRUE(host.call("delAtt", {ncid, 0, "pad"}).empty());
    EXPECT_TRUE(host.call("delAtt", {ncid, NC_GLOBAL, "title"}).empty());
    closeFile(ncid);
    const std::string header = ncdump(folder.file("a.nc"), "-h");
    EXPECT_THAT(header, HasSubstr("v:unités = \"km\" ;"));
    EXPECT_THAT(header, Not(HasSubstr("pad")));
    EXPECT_THAT(header, Not(HasSubstr("title")));
}

TEST_F(AttributeCatalogue, DeletesAGlobalAttribute)
{
    for (const FileFormat& format : fileFormats) {
        const int ncid = createFileWithAttributes("a.nc", format.mode);
        EXPECT_TRUE(host.call("delAtt", {ncid, NC_GLOBAL, "title"}).empty());
        EXPECT_EQ(nc_inq_att(ncid, NC_GLOBAL, "title", nullptr, nullptr), NC_ENOTATT);
        closeFile(ncid);
    }
}

TEST_F(AttributeCatalogue, NamesNoAttributePastTheLast)
{
    const int ncid = createFileWithAttributes();
    EXPECT_EQ(got("inqAttName", {ncid, 0, 2}), Value("pad"));
    const Outcome outcome = attempt("inqAttName", {ncid, 0, 3});
    EXPECT_THAT(outcome, failsWith("inqAttName", NC_ENOTATT));
    EXPECT_THAT(outcome.results, testing::IsEmpty());
}

TEST_F(AttributeCatalogue, ReportsBothNamesOfARenamingUnderTheSameText)
{
    const auto refusal = raises("argumentWasNotChar", {"attribute"});
    EXPECT_THAT(attempt("renameAtt", {1, 0, 5, "new"}), refusal);
    EXPECT_THAT(attempt("renameAtt", {1, 0, "old", 5}), refusal);
}

TEST_F(AttributeCatalogue, CopiesBetweenVariablesAndFilesOfDifferentFormats)
{
    const int from = createFileWithAttributes();
    const int to = createFile("b.nc", 0);
    EXPECT_TRUE(host.call("copyAtt", {from, 0, "valid_range", to, NC_GLOBAL}).empty());
    EXPECT_TRUE(host.call("copyAtt", {from, NC_GLOBAL, "title", from, 0}).empty());
    closeFile(from);
    closeFile(to);
    EXPECT_THAT(ncdump(folder.file("a.nc"), "-h"), HasSubstr("v:title = \"test\" ;"));
    EXPECT_THAT(ncdump(folder.file("b.nc"), "-h"), HasSubstr(":valid_range = -5s, 5s ;"));
}

TEST_F(AttributeCatalogue, HandsACopyOntoItselfToTheLibrary)
{
    const int ncid = createFileWithAttributes();
    const int status = nc_copy_att(ncid, 0, "units", ncid, 0);
    EXPECT_EQ(attempt("copyAtt", {ncid, 0, "units", ncid, 0}).succeeded(), status == NC_NOERR);
    EXPECT_EQ(host.call("inqAtt", {ncid, 0, "units"}), (Values{NC_CHAR, 2}));
}

TEST_F(AttributeCatalogue, LeavesTheJudgementToTheLibrary)
{
    const int ncid = createFileWithAttributes();
    EXPECT_THAT(attempt("inqAtt", {ncid, 0, "none"}), failsWith("inqAtt", NC_ENOTATT));
    EXPECT_THAT(attempt("inqAtt", {ncid, 7, "units"}), failsWith("inqAtt", NC_ENOTVAR));
    EXPECT_THAT(attempt("inqAttID", {ncid, 0, "none"}), failsWith("inqAttID", NC_ENOTATT));
    EXPECT_THAT(attempt("inqAttName", {ncid, 0, -1}), failsWith("inqAttName", NC_ENOTATT));
    EXPECT_THAT(attempt("renameAtt", {ncid, 0, "none", "some"}),
                failsWith("renameAtt", NC_ENOTATT));
    EXPECT_THAT(attempt("renameAtt", {ncid, 0, "units", "pad"}),
                failsWith("renameAtt", NC_ENAMEINUSE));
    EXPECT_THAT(attempt("delAtt", {ncid, 0, "none"}), failsWith("delAtt", NC_ENOTATT));
    EXPECT_THAT(attempt("copyAtt", {ncid, 0, "none", ncid, NC_GLOBAL}),
                failsWith("copyAtt", NC_ENOTATT));
    for (const char* operation : {"inqAtt", "inqAttID", "delAtt"})
        EXPECT_THAT(attempt(operation, {-7, 0, "units"}), failsWith(operation, NC_EBADID));
    EXPECT_THAT(attempt("copyAtt", {ncid, 0, "units", -7, 0}), failsWith("copyAtt", NC_EBADID));
}

TEST_F(AttributeCatalogue, ReadsLeftToRight)
{
    const Value bad = "bad";
    const Value badName = 5;
    struct {
        const char* operation;
        Values arguments;
        const char* error;
        std::vector<standalone::Argument> details;
    } const cases[] = {
        {"inqAtt", {bad, bad, badName}, "badScalarArgument", {"ncid", "numeric"}},
        {"inqAtt", {1, bad, badName}, "badScalarArgument", {"varid", "numeric"}},
        {"inqAtt", {1, 0, badName}, "argumentWasNotChar", {"attribute"}},
        {"inqAttID", {bad, bad, badName}, "badScalarArgument", {"ncid", "numeric"}},
        {"inqAttID", {1, bad, badName}, "badScalarArgument", {"varid", "numeric"}},
        {"inqAttID", {1, 0, badName}, "argumentWasNotChar", {"attribute"}},
        {"inqAttName", {bad, bad, bad}, "badScalarArgument", {"ncid", "numeric"}},
        {"inqAttName", {1, bad, bad}, "badScalarArgument", {"varid", "numeric"}},
        {"inqAttName", {1, 0, bad}, "badScalarArgument", {"attid", "numeric"}},
        {"inqAttName", {1, 0, 1e10}, "argumentOutOfBounds", {}},
        {"renameAtt", {bad, bad, badName, badName}, "badScalarArgument", {"ncid", "numeric"}},
        {"renameAtt", {1, bad, badName, badName}, "badScalarArgument", {"varid", "numeric"}},
        {"renameAtt", {1, 0, badName, badName}, "argumentWasNotChar", {"attribute"}},
        {"renameAtt", {1, 0, "a", badName}, "argumentWasNotChar", {"attribute"}},
        {"delAtt", {bad, bad, badName}, "badScalarArgument", {"ncid", "numeric"}},
        {"delAtt", {1, bad, badName}, "badScalarArgument", {"varid", "numeric"}},
        {"delAtt", {1, 0, badName}, "argumentWasNotChar", {"attribute"}},
        {"copyAtt", {bad, bad, badName, bad, bad}, "badScalarArgument", {"ncid", "numeric"}},
        {"copyAtt", {1, bad, badName, bad, bad}, "badScalarArgument", {"varid", "numeric"}},
        {"copyAtt", {1, 0, badName, bad, bad}, "argumentWasNotChar", {"attribute"}},
        {"copyAtt", {1, 0, "a", bad, bad}, "badScalarArgument", {"ncid", "numeric"}},
        {"copyAtt", {1, 0, "a", 1, bad}, "badScalarArgument", {"varid", "numeric"}},
    };
    for (const auto& c : cases)
        EXPECT_THAT(attempt(c.operation, c.arguments), raises(c.error, c.details)) << c.operation;
}

} // namespace
