// SPDX-License-Identifier: BSD-3-Clause
// "defVarFill" and "inqVarFill".
#include "tests/operations/operation_test.h"
#include "tests/support/command_line_tools.h"
#include "tests/support/element_samples.h"
#include "tests/support/file_formats.h"
#include "tests/support/library_file.h"

#include <limits>

using namespace testsupport;
using Ovard::gridio::ElementType;
using Ovard::gridio::findExternalType;
using testing::HasSubstr;

namespace {

const double nan_ = std::numeric_limits<double>::quiet_NaN();

class FillValues : public OperationTest {
protected:
    // A file, in define mode, with one variable v of that type.
    int createWith(nc_type xtype, int mode = NC_NETCDF4)
    {
        const int ncid = createFile("f.nc", mode);
        number("defVar", {ncid, "v", xtype, row({})});
        return ncid;
    }
    // The library's inquiry of the variable: the flag, and one element into value.
    static int libraryNoFill(int ncid, void* value)
    {
        int noFill = -1;
        require(nc_inq_var_fill(ncid, 0, &noFill, value));
        return noFill;
    }
};

TEST_F(FillValues, AreStoredAndReadBackInTheVariablesClass)
{
    for (nc_type xtype = NC_BYTE; xtype <= NC_UINT64; ++xtype) {
        const ElementType& element = *findExternalType(xtype);
        const Bytes all = sampleBytes(element, 12);
        for (std::size_t i = 0; i < 12; ++i) {
            const Bytes one = all.substr(i * element.size, element.size);
            const int ncid = createWith(xtype);
            // Text is exempt here: its narrow encoding is not the file's bytes.
            if (xtype == NC_CHAR)
                require(nc_def_var_fill(ncid, 0, 0, one.data()));
            else
                host.call("defVarFill",
                          {ncid, 0, false, valueOfBytes(element.hostClass, {1, 1}, one)});

            Bytes stored(element.size, '?');
            EXPECT_EQ(libraryNoFill(ncid, stored.data()), 0);
            EXPECT_EQ(stored, one) << "type " << xtype << ", sample " << i;
            const Values inquired = host.call("inqVarFill", {ncid, 0});
            ASSERT_EQ(inquired.size(), 2U);
            EXPECT_EQ(inquired[0], Value(false));
            EXPECT_EQ(bytesOfValue(inquired[1]), one) << inquired[1];
            EXPECT_EQ(inquired[1].classId(), element.hostClass) << xtype;
            EXPECT_EQ(inquired[1].dims(), (standalone::Dims{1, 1})) << xtype;
            closeFile(ncid);
        }
    }
}

TEST_F(FillValues, AreTheLibrarysDefaultUntilTheyAreSetInEveryFormat)
{
    for (const FileFormat& format : fileFormats) {
        for (nc_type xtype = NC_BYTE; xtype <= NC_UINT64; ++xtype) {
            if (!format.holds(xtype))
                continue;
            const int ncid = createWith(xtype, format.mode);
            const ElementType& element = *findExternalType(xtype);
            Bytes expected(element.size, '?');
            const int noFill = libraryNoFill(ncid, expected.data());
            const Values inquired = host.call("inqVarFill", {ncid, 0});
            EXPECT_EQ(inquired.at(0), Value(noFill != 0)) << format.name << ' ' << xtype;
            EXPECT_EQ(bytesOfValue(inquired.at(1)), expected) << format.name << ' ' << xtype;
            closeFile(ncid);
        }
    }
    const int ncid = createWith(NC_INT);
    EXPECT_EQ(host.call("inqVarFill", {ncid, 0}),
              (Values{false, Value::scalar<std::int32_t>(-2147483647)}));
}

TEST_F(FillValues, ShowInUnwrittenElements)
{
    const int ncid = createFile("f.nc");
    number("defVar", {ncid, "v", NC_SHORT, number("defDim", {ncid, "x", 3})});
    host.call("defVarFill", {ncid, 0, false, -999});
    host.call("endDef", {ncid});
    host.call("putVar1Short", {ncid, 0, 1, Value::scalar<std::int16_t>(7)});
    EXPECT_EQ(got("getVarShort", {ncid, 0}), Value::column<std::int16_t>({-999, 7, -999}));
    closeFile(ncid);
    EXPECT_THAT(ncdump(folder.file("f.nc")), HasSubstr("v:_FillValue = -999s ;"));
}

TEST_F(FillValues, IgnoreTheValueWhenSwitchedOff)
{
    const Value values[] = {Value::empty(), "text", Value::cell({0, 0}, {}), Value::anythingElse(),
                            nan_};
    for (const Value& value : values) {
        const int ncid = createWith(NC_INT);
        EXPECT_TRUE(host.call("defVarFill", {ncid, 0, true, value}).empty()) << value;
        EXPECT_EQ(libraryNoFill(ncid, nullptr), 1) << value;
        EXPECT_EQ(host.call("inqVarFill", {ncid, 0}).at(0), Value(true)) << value;
        closeFile(ncid);
    }
}

TEST_F(FillValues, IgnoreTheTypeWhenSwitchedOff)
{
    const int ncid = createFile("f.nc");
    nc_type enumType = NC_NAT;
    require(nc_def_enum(ncid, NC_BYTE, "flag", &enumType));
    number("defVar", {ncid, "e", enumType, row({})});
    EXPECT_THAT(attempt("defVarFill", {ncid, 0, true, 0}), succeeds());
    number("defVar", {ncid, "s", NC_STRING, row({})});
    EXPECT_THAT(attempt("defVarFill", {ncid, 1, true, 0}), failsWith("defVarFill", NC_EINVAL));
}

TEST_F(FillValues, MayBeNanOrInfiniteForFloatingVariables)
{
    for (const nc_type xtype : {NC_FLOAT, NC_DOUBLE}) {
        for (const double special : {nan_, std::numeric_limits<double>::infinity()}) {
            if (xtype == NC_FLOAT && special == special)
                continue; // infinity is out of the range of a float, see below
            const int ncid = createWith(xtype);
            host.call("defVarFill", {ncid, 0, false, special});
            const Value stored = host.call("inqVarFill", {ncid, 0}).at(1);
            const double value =
                xtype == NC_FLOAT ? stored.elements<float>()[0] : stored.elements<double>()[0];
            EXPECT_EQ(value == value, special == special) << stored;
            closeFile(ncid);
        }
    }
    const int ncid = createWith(NC_FLOAT);
    host.call("defVarFill",
              {ncid, 0, false, Value::scalar(std::numeric_limits<float>::infinity())});
    EXPECT_EQ(host.call("inqVarFill", {ncid, 0}).at(1),
              Value::scalar(std::numeric_limits<float>::infinity()));
}

TEST_F(FillValues, AreConvertedFromAnyNumericClassWithARangeCheck)
{
    struct {
        nc_type xtype;
        Value value;
        bool fits;
    } const cases[] = {
        {NC_SHORT, Value::scalar<std::uint64_t>(32767), true},
        {NC_SHORT, 40000, false},
        {NC_SHORT, -32768.9, true},
        {NC_BYTE, 300, false},
        {NC_BYTE, Value::scalar<std::uint8_t>(128), false},
        {NC_UBYTE, -0.9, true},
        {NC_UBYTE, -1, false},
        {NC_UBYTE, Value::scalar<std::int8_t>(-1), false},
        {NC_INT, nan_, false},
        {NC_INT, Value::scalar(std::numeric_limits<float>::infinity()), false},
        {NC_UINT64, Value::scalar<std::int64_t>(-1), false},
        {NC_UINT64, Value::scalar(std::numeric_limits<std::uint64_t>::max()), true},
        {NC_INT64, Value::scalar(std::uint64_t{1} << 63), false},
        {NC_FLOAT, 1e39, false},
        {NC_FLOAT, std::numeric_limits<double>::infinity(), false},
    };
    for (const auto& c : cases) {
        const int ncid = createWith(c.xtype);
        const Outcome outcome = attempt("defVarFill", {ncid, 0, false, c.value});
        if (c.fits)
            EXPECT_THAT(outcome, succeeds()) << c.xtype << ": " << c.value;
        else
            EXPECT_THAT(outcome, raises("argumentOutOfBounds")) << c.xtype << ": " << c.value;
        closeFile(ncid);
    }
}

TEST_F(FillValues, MustBeANumericScalarForNumbers)
{
    for (nc_type xtype = NC_BYTE; xtype <= NC_UINT64; ++xtype) {
        if (xtype == NC_CHAR)
            continue;
        const int ncid = createWith(xtype);
        for (const Value& bad : {Value("x"), Value(true), row({}), row({1, 2})})
            EXPECT_THAT(attempt("defVarFill", {ncid, 0, false, bad}),
                        raises("badScalarArgument", {"FILLVALUE", "numeric"}))
                << xtype << ": " << bad;
        closeFile(ncid);
    }
}

TEST_F(FillValues, MustBeOneCharacterForText)
{
    const int ncid = createWith(NC_CHAR);
    for (const Value& bad : {Value("ab"), Value(120), Value::empty(vxCHAR_CLASS), Value(true)})
        EXPECT_THAT(attempt("defVarFill", {ncid, 0, false, bad}),
                    raises("badScalarArgument", {"FILLVALUE", "char"}))
            << bad;
    host.call("defVarFill", {ncid, 0, false, "x"});
    char stored = 0;
    libraryNoFill(ncid, &stored);
    EXPECT_EQ(stored, 'x');
}

TEST_F(FillValues, AreTheFirstByteOfTheNarrowCharacterForText)
{
    const int ncid = createWith(NC_CHAR);
    host.call("defVarFill", {ncid, 0, false, "é"}); // C3 A9 in UTF-8
    char stored = 0;
    libraryNoFill(ncid, &stored);
    EXPECT_EQ(stored, '\xC3');
}

TEST_F(FillValues, MayBeTheNulCharacter)
{
    const int ncid = createWith(NC_CHAR);
    host.call("defVarFill", {ncid, 0, false, Value::text({1, 1}, std::u16string(1, u'\0'))});
    char stored = 'x';
    libraryNoFill(ncid, &stored);
    EXPECT_EQ(stored, '\0');
}

TEST_F(FillValues, AreNotSignExtendedForTextDeliberately)
{
    const int ncid = createWith(NC_CHAR);
    const char byte = '\xE9';
    require(nc_def_var_fill(ncid, 0, 0, &byte));
    EXPECT_EQ(host.call("inqVarFill", {ncid, 0}).at(1).toUtf16(), u"\u00E9");
    host.call("endDef", {ncid});
    EXPECT_EQ(got("getVarText", {ncid, 0}).toUtf16(), u"\uFFE9");
}

TEST_F(FillValues, AreUnhandledForTypesWithoutAnElementType)
{
    const int ncid = createWith(NC_STRING);
    // The value is not checked before the type.
    EXPECT_THAT(attempt("defVarFill", {ncid, 0, false, Value::cell({0, 0}, {})}),
                raises("unhandledFillDatatype", {static_cast<long>(NC_STRING)}));
    EXPECT_THAT(attempt("inqVarFill", {ncid, 0}),
                raises("unhandledFillDatatype", {static_cast<long>(NC_STRING)}));

    const int other = createFile("enum.nc");
    nc_type enumType = NC_NAT;
    require(nc_def_enum(other, NC_BYTE, "flag", &enumType));
    number("defVar", {other, "e", enumType, row({})});
    EXPECT_THAT(attempt("defVarFill", {other, 0, false, 1}),
                raises("unhandledFillDatatype", {static_cast<long>(enumType)}));
    EXPECT_THAT(attempt("inqVarFill", {other, 0}),
                raises("unhandledFillDatatype", {static_cast<long>(enumType)}));
}

TEST_F(FillValues, ReportTheLibrarysStatusForAMissingVariable)
{
    const int ncid = createWith(NC_INT);
    const int global = nc_inq_vartype(ncid, NC_GLOBAL, nullptr);
    ASSERT_EQ(global, NC_ENOTVAR);
    EXPECT_THAT(attempt("inqVarFill", {ncid, NC_GLOBAL}), failsWith("inqVarFill", NC_ENOTVAR));
    EXPECT_THAT(attempt("inqVarFill", {ncid, 5}), failsWith("inqVarFill", NC_ENOTVAR));
    EXPECT_THAT(attempt("defVarFill", {ncid, 5, false, "bad"}),
                failsWith("defVarFill", NC_ENOTVAR));
    EXPECT_THAT(attempt("defVarFill", {ncid, 5, true, 0}), failsWith("defVarFill", NC_ENOTVAR));
    EXPECT_THAT(attempt("defVarFill", {-7, 0, false, 0}), failsWith("defVarFill", NC_EBADID));
    EXPECT_THAT(attempt("inqVarFill", {-7, 0}), failsWith("inqVarFill", NC_EBADID));
}

TEST_F(FillValues, AreSetBeforeDataAreWritten)
{
    const int ncid = createWith(NC_INT);
    host.call("endDef", {ncid});
    host.call("putVarInt", {ncid, 0, Value::scalar<std::int32_t>(1)});
    host.call("redef", {ncid});
    const int status = nc_def_var_fill(ncid, 0, 1, nullptr);
    ASSERT_EQ(status, NC_ELATEDEF);
    EXPECT_THAT(attempt("defVarFill", {ncid, 0, false, 5}), failsWith("defVarFill", NC_ELATEDEF));
}

TEST_F(FillValues, AreDefinedUnderCapitalNamesDeliberately)
{
    const Value bad = "bad";
    const Value badFlag = 0;
    struct {
        const char* operation;
        Values arguments;
        const char* error;
        std::vector<standalone::Argument> details;
    } const cases[] = {
        {"defVarFill", {bad, bad, badFlag, bad}, "badScalarArgument", {"NCID", "numeric"}},
        {"defVarFill", {1, bad, badFlag, bad}, "badScalarArgument", {"VARID", "numeric"}},
        {"defVarFill", {1, 1e10, badFlag, bad}, "argumentOutOfBounds", {}},
        {"defVarFill", {1, nan_, badFlag, bad}, "badScalarArgument", {"VARID", "numeric"}},
        {"defVarFill", {1, 0, badFlag, bad}, "expectedLogicalType", {"FILL FLAG"}},
        {"inqVarFill", {bad, bad}, "badScalarArgument", {"ncid", "numeric"}},
        {"inqVarFill", {1, bad}, "badScalarArgument", {"varid", "numeric"}},
    };
    for (const auto& c : cases)
        EXPECT_THAT(attempt(c.operation, c.arguments), raises(c.error, c.details)) << c.operation;
}

} // namespace
