// SPDX-License-Identifier: BSD-3-Clause
#include "tests/support/module_test.h"

#include <netcdf.h>

#include <cstdint>
#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace testsupport {
namespace {

using standalone::Value;
using testing::ElementsAre;

class Parameter : public ModuleTest {
protected:
    Value parameter(const Value& name) { return host.call("parameter", {name}).at(0); }
};
using GetConstantNames = ModuleTest;

TEST_F(Parameter, GivesANumberAsADoubleScalar)
{
    const std::pair<const char*, double> constants[] = {
        {"nc_nowrite", 0},        {"NOCLOBBER", 4},
        {"NC_64BIT_OFFSET", 512}, {"NC_FORMAT_NETCDF4_CLASSIC", 4},
        {"NC_FILL", 0},           {"NC_NOFILL", 256},
        {"NC_UNLIMITED", 0},      {"NC_EBADCHUNK", -127},
        {"NC_MAX_ATTRS", 8192},   {"NC_LONG", 4},
    };
    for (const auto& [name, value] : constants)
        EXPECT_EQ(parameter(name), Value::number(value)) << name;
}

TEST_F(Parameter, IgnoresTheCaseAndAMissingPrefix)
{
    for (const char* name : {"NC_GLOBAL", "nc_global", "Nc_Global", "GLOBAL", "global", "gLOBAL"})
        EXPECT_EQ(parameter(name), Value::number(-1)) << name;
}

TEST_F(Parameter, FindsNc2ErrByItsOwnTextAndWithAFurtherPrefix)
{
    for (const char* name : {"NC2_ERR", "nc2_err", "NC_NC2_ERR", "nc_nc2_err"})
        EXPECT_EQ(parameter(name), Value::number(-1)) << name;
    EXPECT_THAT(host.attempt("parameter", {"2_ERR"}),
                raises("unrecognizedCharParameter", {"2_ERR"}));
}

TEST_F(Parameter, GivesAFillValueInTheClassOfItsType)
{
    const std::pair<const char*, Value> fillValues[] = {
        {"NC_FILL_BYTE", Value::scalar<std::int8_t>(-127)},
        {"NC_FILL_CHAR", Value::text({1, 1}, std::u16string(1, u'\0'))},
        {"NC_FILL_SHORT", Value::scalar<std::int16_t>(-32767)},
        {"NC_FILL_INT", Value::scalar<std::int32_t>(-2147483647)},
        {"NC_FILL_FLOAT", Value::scalar<float>(9969209968386869046778552952102584320.0F)},
        {"NC_FILL_DOUBLE", Value::scalar<double>(9969209968386869046778552952102584320.0)},
        {"NC_FILL_UBYTE", Value::scalar<std::uint8_t>(255)},
        {"NC_FILL_USHORT", Value::scalar<std::uint16_t>(65535)},
        {"NC_FILL_UINT", Value::scalar<std::uint32_t>(4294967295)},
        {"NC_FILL_INT64", Value::scalar<std::int64_t>(-9223372036854775806)},
        {"NC_FILL_UINT64", Value::scalar<std::uint64_t>(18446744073709551614U)},
    };
    for (const auto& [name, value] : fillValues) {
        EXPECT_EQ(parameter(name), value) << name;
        EXPECT_EQ(parameter(std::string(name).substr(3)), value) << name;
    }
}

template <class To, class From> To bitsOf(From value)
{
    To bits{};
    static_assert(sizeof bits == sizeof value);
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

TEST_F(Parameter, GivesTheFloatingFillValuesToTheLastBit)
{
    EXPECT_EQ(bitsOf<std::uint32_t>(parameter("FILL_FLOAT").elements<float>().at(0)), 0x7CF00000U);
    EXPECT_EQ(bitsOf<std::uint64_t>(parameter("FILL_DOUBLE").toDouble()), 0x479E000000000000U);
}

TEST_F(Parameter, ReportsAnUnknownNameInUpperCaseWithoutThePrefix)
{
    const std::pair<const char*, const char*> unknown[] = {
        {"foo", "FOO"},
        {"nc_foo", "FOO"},
        {"NC_", "NC_"},
        {"nc_", "NC_"},
        {"", ""},
        {"NC", "NC"},
        {"NC_NC_", "NC_"},
        {"NC_NC_GLOBAL", "NC_GLOBAL"},
        {" NC_GLOBAL", " NC_GLOBAL"},
        {"GLOBAL ", "GLOBAL "},
        {"NC_G", "G"},
        {"NC_GLOBALS", "GLOBALS"},
    };
    for (const auto& [name, reported] : unknown)
        EXPECT_THAT(host.attempt("parameter", {name}),
                    raises("unrecognizedCharParameter", {reported}))
            << name;
}

TEST_F(Parameter, DeliberatelyDoesNotKnowEveryStatusThatErrorsName)
{
    EXPECT_THAT(host.attempt("parameter", {"NC_EDAP"}),
                raises("unrecognizedCharParameter", {"EDAP"}));
    EXPECT_THAT(host.attempt("parameter", {"NC_ENOTBUILT"}),
                raises("unrecognizedCharParameter", {"ENOTBUILT"}));
}

TEST_F(Parameter, TakesTextOnly)
{
    for (const Value& name : {Value(1), Value::empty(), Value(true), Value::cell({1, 1}, {"FILL"})})
        EXPECT_THAT(host.attempt("parameter", {name}), raises("argumentWasNotChar", {"parameter"}));
    EXPECT_THAT(host.attempt("parameter"), raises("wrongNumberOfInputs"));
    EXPECT_THAT(host.attempt("parameter", {"FILL", "FILL"}), raises("wrongNumberOfInputs"));
}

TEST_F(GetConstantNames, GivesAColumnOf114NamesWithTheirPrefix)
{
    const Value list = host.call("getConstantNames").at(0);
    EXPECT_EQ(list.classId(), vxCELL_CLASS);
    EXPECT_THAT(list.dims(), ElementsAre(114, 1));

    std::vector<std::string> names;
    for (const Value& name : list.cells()) {
        EXPECT_EQ(name, Value(name.toText())) << "no char row";
        names.push_back(name.toText());
    }
    EXPECT_EQ(names.front(), "NC_BYTE");
    EXPECT_EQ(names[42], "NC2_ERR");
    EXPECT_EQ(names.back(), "NC_FLETCHER32");
    EXPECT_THAT(names, testing::Contains("NC_EATTMETA"));
    const auto attribute = std::find(names.begin(), names.end(), "NC_EATTMETA");
    EXPECT_EQ(*(attribute + 1), "NC_EDIMMETA");
}

TEST_F(GetConstantNames, ListsOnlyNamesThatParameterKnows)
{
    std::set<std::string> notDouble;
    for (const Value& name : host.call("getConstantNames").at(0).cells()) {
        const Value value = host.call("parameter", {name}).at(0);
        EXPECT_THAT(value.dims(), ElementsAre(1, 1)) << name;
        if (value.classId() != vxDOUBLE_CLASS)
            notDouble.insert(name.toText());
    }
    EXPECT_EQ(notDouble.size(), 10U); // the typed fill values but NC_FILL_DOUBLE
}

TEST_F(Parameter, AgreesWithTheLibrarysHeader)
{
    const std::pair<const char*, double> constants[] = {
        {"NC_GLOBAL", NC_GLOBAL},         {"NC_UNLIMITED", NC_UNLIMITED},
        {"NC_NETCDF4", NC_NETCDF4},       {"NC_CLASSIC_MODEL", NC_CLASSIC_MODEL},
        {"NC_SHARE", NC_SHARE},           {"NC_NOFILL", NC_NOFILL},
        {"NC_CHUNKED", NC_CHUNKED},       {"NC_CONTIGUOUS", NC_CONTIGUOUS},
        {"NC_FLETCHER32", NC_FLETCHER32}, {"NC_BYTE", NC_BYTE},
        {"NC_UINT64", NC_UINT64},         {"NC_MAX_NAME", NC_MAX_NAME},
    };
    for (const auto& [name, value] : constants)
        EXPECT_EQ(parameter(name), Value::number(value)) << name;
}

} // namespace
} // namespace testsupport
