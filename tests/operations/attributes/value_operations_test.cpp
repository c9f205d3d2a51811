// SPDX-License-Identifier: BSD-3-Clause
// Reading and writing the values of attributes.
#include "tests/operations/operation_test.h"
#include "tests/support/command_line_tools.h"
#include "tests/support/element_samples.h"
#include "tests/support/file_formats.h"
#include "tests/support/library_calls.h"
#include "tests/support/library_file.h"

using namespace testsupport;
using Ovard::gridio::ElementType;
using Ovard::gridio::elementTypes;
using testing::HasSubstr;

namespace {

class AttributeValues : public OperationTest {
protected:
    // Writes with the operation of an element type.
    void put(const ElementType& element, int ncid, int varid, const std::string& name,
             nc_type xtype, const Value& value)
    {
        const std::string operation = std::string("putAtt") + element.suffix;
        if (element.hostClass == vxCHAR_CLASS)
            host.call(operation, {ncid, varid, name, value});
        else
            host.call(operation, {ncid, varid, name, xtype, value});
    }
    static Bytes storedBytes(int ncid, int varid, const std::string& name, std::size_t size)
    {
        std::size_t length = 0;
        require(nc_inq_attlen(ncid, varid, name.c_str(), &length));
        Bytes bytes(length * size, '?');
        require(nc_get_att(ncid, varid, name.c_str(), bytes.data()));
        return bytes;
    }
    int createWithVariable(int mode = NC_NETCDF4)
    {
        const int ncid = createFile("a.nc", mode);
        number("defVar", {ncid, "v", NC_DOUBLE, row({})});
        return ncid;
    }
};

TEST_F(AttributeValues, StoreEveryTypeBitByBitInEveryFormatThatHasIt)
{
    for (const FileFormat& format : fileFormats) {
        for (const ElementType& element : elementTypes) {
            if (!format.holds(element.externalType))
                continue;
            const int ncid = createWithVariable(format.mode);
            for (const int varid : {NC_GLOBAL, 0}) {
                for (const std::size_t count : {std::size_t{1}, std::size_t{12}}) {
                    const Bytes bytes = sampleBytes(element, count);
                    put(element, ncid, varid, "a", element.externalType,
                        valueOfBytes(element.hostClass, {1, count}, bytes));
                    nc_type xtype = NC_NAT;
                    require(nc_inq_atttype(ncid, varid, "a", &xtype));
                    EXPECT_EQ(xtype, element.externalType) << format.name << ' ' << element.suffix;
                    EXPECT_EQ(storedBytes(ncid, varid, "a", element.size), bytes)
                        << format.name << ' ' << element.suffix;
                }
            }
            closeFile(ncid);
        }
    }
}

TEST_F(AttributeValues, ReadEveryTypeBitByBitAsARow)
{
    for (const FileFormat& format : fileFormats) {
        for (const ElementType& element : elementTypes) {
            if (!format.holds(element.externalType) || element.hostClass == vxCHAR_CLASS)
                continue;
            const int ncid = createWithVariable(format.mode);
            const Bytes bytes = sampleBytes(element, 12);
            require(nc_put_att(ncid, 0, "a", element.externalType, 12, bytes.data()));
            EXPECT_EQ(got(std::string("getAtt") + element.suffix, {ncid, 0, "a"}),
                      valueOfBytes(element.hostClass, {1, 12}, bytes))
                << format.name << ' ' << element.suffix;
            closeFile(ncid);
        }
    }
}

TEST_F(AttributeValues, AreConvertedByTheLibraryToTheTypeOfTheOperation)
{
    ncgen(folder.file("a.nc"), "netcdf a { :n = 0b, 1b, 100b ; }");
    const int ncid = openFile("a.nc");
    for (const ElementType& element : elementTypes) {
        const Outcome outcome = attempt(std::string("getAtt") + element.suffix, {ncid, -1, "n"});
        if (element.hostClass == vxCHAR_CLASS) {
            EXPECT_THAT(outcome, failsWith("getAttText", NC_ECHAR));
        } else {
            Bytes expected(3 * element.size, '?');
            require(libraryGetAtt(element.suffix, ncid, NC_GLOBAL, "n", expected.data()));
            ASSERT_THAT(outcome, succeeds()) << element.suffix;
            EXPECT_EQ(outcome.results.at(0), valueOfBytes(element.hostClass, {1, 3}, expected));
        }
    }
}

TEST_F(AttributeValues, AreConvertedByTheLibraryToTheRequestedType)
{
    const int ncid = createWithVariable(0);
    host.call("putAttDouble", {ncid, 0, "d", NC_SHORT, row({1.9, -2})});
    host.call("putAttUint64", {ncid, 0, "u", NC_INT, Value::scalar<std::uint64_t>(7)});
    host.call("putAttSchar", {ncid, 0, "b", NC_DOUBLE, Value::row<std::int8_t>({-1, 1})});
    EXPECT_THAT(attempt("putAttInt", {ncid, 0, "c", NC_CHAR, Value::row<std::int32_t>({65})}),
                failsWith("putAttInt", NC_ECHAR));
    EXPECT_THAT(attempt("putAttInt", {ncid, 0, "r", NC_BYTE, Value::row<std::int32_t>({300})}),
                failsWith("putAttInt", NC_ERANGE));
    EXPECT_THAT(attempt("putAttInt", {ncid, 0, "u8", NC_UBYTE, Value::row<std::int32_t>({3})}),
                failsWith("putAttInt", NC_EBADTYPE));
    closeFile(ncid);
    const std::string header = ncdump(folder.file("a.nc"), "-h");
    EXPECT_THAT(header, HasSubstr("v:d = 1s, -2s ;"));
    EXPECT_THAT(header, HasSubstr("v:u = 7 ;"));
    EXPECT_THAT(header, HasSubstr("v:b = -1., 1. ;"));
}

TEST_F(AttributeValues, KeepTheStorageOrderWhateverTheShape)
{
    const int ncid = createWithVariable();
    host.call("putAttDouble",
              {ncid, 0, "m", NC_DOUBLE, Value::numeric<double>({2, 2}, {1, 2, 3, 4})});
    EXPECT_EQ(got("getAttDouble", {ncid, 0, "m"}), row({1, 2, 3, 4}));
}

TEST_F(AttributeValues, MayBeEmptyDeliberatelyAndReadAsZeroByZero)
{
    for (const FileFormat& format : fileFormats) {
        for (const ElementType& element : elementTypes) {
            if (!format.holds(element.externalType))
                continue;
            const int ncid = createWithVariable(format.mode);
            put(element, ncid, 0, "none", element.externalType,
                Value::empty(element.hostClass, {1, 0}));
            std::size_t length = 99;
            require(nc_inq_attlen(ncid, 0, "none", &length));
            EXPECT_EQ(length, 0U) << format.name << ' ' << element.suffix;
            const Value read = got(std::string("getAtt") + element.suffix, {ncid, 0, "none"});
            EXPECT_EQ(read.classId(), element.hostClass) << format.name << ' ' << element.suffix;
            EXPECT_TRUE(read.isEmpty()) << read;
            if (element.hostClass != vxCHAR_CLASS) {
                EXPECT_EQ(read.dims(), (standalone::Dims{0, 0})) << element.suffix;
            }
            closeFile(ncid);
        }
    }
}

TEST_F(AttributeValues, EndTextAtTheFirstNulDeliberately)
{
    struct {
        std::string stored, read;
    } const cases[] = {
        {std::string("abc\0\0", 5), "abc"},
        {std::string("a\0b", 3), "a"},
        {std::string("\0ab", 3), ""},
        {"plain", "plain"},
        {"Grüße", "Grüße"},
    };
    for (const FileFormat& format : fileFormats) {
        const int ncid = createWithVariable(format.mode);
        for (const auto& c : cases) {
            require(nc_put_att_text(ncid, 0, "t", c.stored.size(), c.stored.data()));
            const Value read = got("getAttText", {ncid, 0, "t"});
            EXPECT_EQ(read.classId(), vxCHAR_CLASS);
            EXPECT_EQ(read.toText(), c.read) << format.name;
            if (!c.read.empty()) {
                EXPECT_EQ(read, Value(c.read)) << format.name;
            }
        }
        closeFile(ncid);
    }
}

TEST_F(AttributeValues, StoreTheLowBytesOfTextUnits)
{
    const int ncid = createWithVariable();
    host.call("putAttText", {ncid, 0, "t", Value::text(u"\u0141")});
    EXPECT_EQ(storedBytes(ncid, 0, "t", 1), "A");
    host.call("putAttText", {ncid, 0, "t", Value::text({2, 2}, std::u16string(u"a\0é\uFF80", 4))});
    EXPECT_EQ(storedBytes(ncid, 0, "t", 1), Bytes("a\0\xE9\x80", 4));
}

TEST_F(AttributeValues, WriteTextFromAnyClassAsItsRawUnits)
{
    const int ncid = createWithVariable();
    host.call("putAttText", {ncid, 0, "t", Value::row<std::uint16_t>({65, 0x142})});
    EXPECT_EQ(storedBytes(ncid, 0, "t", 1), "AB");
    EXPECT_THAT(attempt("putAttText", {ncid, 0, "t", Value::row<std::int8_t>({65, 66})}),
                raises("dataSizeMismatch"));
}

TEST_F(AttributeValues, AreWrittenFromAnyClassAsItsRawStorageDeliberately)
{
    const int ncid = createWithVariable();
    host.call("putAttInt", {ncid, 0, "raw", NC_INT, Value::row<float>({1.0F, -2.0F})});
    EXPECT_EQ(got("getAttInt", {ncid, 0, "raw"}),
              Value::row<std::int32_t>({0x3F800000, std::int32_t(0xC0000000)}));
    host.call("putAttShort", {ncid, 0, "raw", NC_SHORT, row({1, 2})}); // the first quarter
    EXPECT_EQ(got("getAttShort", {ncid, 0, "raw"}), Value::row<std::int16_t>({0, 0}));
}

TEST_F(AttributeValues, RefuseFewerBytesThanTheLibraryReads)
{
    const int ncid = createWithVariable();
    const Value bytes = Value::row<std::int8_t>({1, 2, 3});
    for (const ElementType& element : elementTypes) {
        if (element.putAtt == nullptr)
            continue;
        const Outcome outcome = attempt(std::string("putAtt") + element.suffix,
                                        {ncid, 0, "a", element.externalType, bytes});
        if (element.size == 1)
            EXPECT_THAT(outcome, succeeds()) << element.suffix;
        else
            EXPECT_THAT(outcome, raises("dataSizeMismatch")) << element.suffix;
    }
    EXPECT_THAT(attempt("putAttSchar", {ncid, 0, "a", NC_BYTE, Value::cell({1, 1}, {1})}),
                raises("dataSizeMismatch"));
    EXPECT_THAT(attempt("putAttText", {ncid, 0, "a", Value::anythingElse()}),
                raises("dataSizeMismatch"));
}

TEST_F(AttributeValues, TakeACellWithoutElementsForEmpty)
{
    const int ncid = createWithVariable();
    host.call("putAttInt", {ncid, 0, "none", NC_INT, Value::cell({0, 0}, {})});
    EXPECT_EQ(storedBytes(ncid, 0, "none", 4), "");
}

TEST_F(AttributeValues, RefuseFillValueForVariablesOfFormatCode3Only)
{
    for (const FileFormat& format : fileFormats) {
        for (const ElementType& element : elementTypes) {
            if (element.putAtt == nullptr)
                continue;
            const int ncid = createWithVariable(format.mode); // its v is a double
            const std::string operation = std::string("putAtt") + element.suffix;
            const Value zero = valueOfBytes(element.hostClass, {1, 1}, Bytes(element.size, '\0'));
            const Outcome outcome = attempt(operation, {ncid, 0, "_FillValue", NC_DOUBLE, zero});
            if (format.formatCode == NC_FORMAT_NETCDF4)
                EXPECT_THAT(outcome, raises("postCreationFillValueDefinition")) << operation;
            else
                EXPECT_THAT(outcome, succeeds()) << format.name << ' ' << operation;
            EXPECT_THAT(attempt(operation, {ncid, NC_GLOBAL, "_FillValue", NC_DOUBLE, zero}),
                        succeeds())
                << format.name << ' ' << operation;
            EXPECT_THAT(attempt(operation, {ncid, 0, "_fillvalue", NC_DOUBLE, zero}), succeeds());
            closeFile(ncid);
        }
    }
}

TEST_F(AttributeValues, RefuseFillValueByNameEvenForAMissingVariable)
{
    const int ncid = createWithVariable();
    EXPECT_THAT(attempt("putAttDouble", {ncid, 99, "_FillValue", NC_DOUBLE, 1}),
                raises("postCreationFillValueDefinition"));
    EXPECT_THAT(attempt("putAttDouble", {-7, 0, "_FillValue", NC_DOUBLE, 1}),
                failsWith("putAttDouble", NC_EBADID));
    // Before the storage of the values is checked.
    EXPECT_THAT(attempt("putAttDouble", {ncid, 0, "_FillValue", NC_DOUBLE, true}),
                raises("postCreationFillValueDefinition"));
}

TEST_F(AttributeValues, PassFillValueToTheLibraryAsText)
{
    const int ncid = createFile("a.nc");
    number("defVar", {ncid, "c", NC_CHAR, row({})});
    host.call("putAttText", {ncid, 0, "_FillValue", "x"});
    char fill = 0;
    require(nc_inq_var_fill(ncid, 0, nullptr, &fill));
    EXPECT_EQ(fill, 'x');
}

TEST_F(AttributeValues, DoNotConvertBetweenTextAndNumbers)
{
    const int ncid = createWithVariable();
    require(nc_put_att_text(ncid, 0, "t", 3, "abc"));
    const double number = 1;
    require(nc_put_att_double(ncid, 0, "n", NC_DOUBLE, 1, &number));
    for (const ElementType& element : elementTypes) {
        const std::string operation = std::string("getAtt") + element.suffix;
        const char* other = element.hostClass == vxCHAR_CLASS ? "n" : "t";
        EXPECT_THAT(attempt(operation, {ncid, 0, other}), failsWith(operation, NC_ECHAR));
    }
}

TEST_F(AttributeValues, OutOfTheRangeOfTheOperationFail)
{
    const int ncid = createWithVariable();
    host.call("putAttDouble", {ncid, 0, "big", NC_DOUBLE, 1e300});
    EXPECT_THAT(attempt("getAttShort", {ncid, 0, "big"}), failsWith("getAttShort", NC_ERANGE));
    host.call("putAttSchar", {ncid, 0, "minus", NC_BYTE, Value::scalar<std::int8_t>(-1)});
    EXPECT_THAT(attempt("getAttUint", {ncid, 0, "minus"}), failsWith("getAttUint", NC_ERANGE));
}

TEST_F(AttributeValues, ReportTheLibrarysStatusForAMissingAttribute)
{
    const int ncid = createWithVariable();
    for (const ElementType& element : elementTypes) {
        const std::string operation = std::string("getAtt") + element.suffix;
        EXPECT_THAT(attempt(operation, {ncid, 0, "none"}), failsWith(operation, NC_ENOTATT));
        EXPECT_THAT(attempt(operation, {ncid, 9, "none"}), failsWith(operation, NC_ENOTVAR));
        EXPECT_THAT(attempt(operation, {-7, 0, "none"}), failsWith(operation, NC_EBADID));
    }
}

TEST_F(AttributeValues, AreReadLeftToRight)
{
    const Value bad = "bad";
    const Value badName = 5;
    for (const ElementType& element : elementTypes) {
        const std::string read = std::string("getAtt") + element.suffix;
        EXPECT_THAT(attempt(read, {bad, bad, badName}),
                    raises("badScalarArgument", {"ncid", "numeric"}));
        EXPECT_THAT(attempt(read, {1, bad, badName}),
                    raises("badScalarArgument", {"varid", "numeric"}));
        EXPECT_THAT(attempt(read, {1, 0, badName}), raises("argumentWasNotChar", {"attribute"}));
        if (element.putAtt == nullptr)
            continue;
        const std::string write = std::string("putAtt") + element.suffix;
        EXPECT_THAT(attempt(write, {bad, bad, badName, bad, bad}),
                    raises("badScalarArgument", {"ncid", "numeric"}));
        EXPECT_THAT(attempt(write, {1, bad, badName, bad, bad}),
                    raises("badScalarArgument", {"varid", "numeric"}));
        EXPECT_THAT(attempt(write, {1, 0, badName, bad, bad}),
                    raises("argumentWasNotChar", {"attribute"}));
        EXPECT_THAT(attempt(write, {1, 0, "a", bad, bad}),
                    raises("badScalarArgument", {"xtype", "numeric"}));
        EXPECT_THAT(attempt(write, {1, 0, "a", 1e10, bad}), raises("argumentOutOfBounds"));
    }
    EXPECT_THAT(attempt("putAttText", {bad, bad, badName, bad}),
                raises("badScalarArgument", {"ncid", "numeric"}));
    EXPECT_THAT(attempt("putAttText", {1, bad, badName, bad}),
                raises("badScalarArgument", {"varid", "numeric"}));
    EXPECT_THAT(attempt("putAttText", {1, 0, badName, bad}),
                raises("argumentWasNotChar", {"attribute"}));
}

} // namespace
