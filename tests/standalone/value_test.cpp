// SPDX-License-Identifier: BSD-3-Clause
// Values and calls as tests of the module write and read them.
#include "tests/standalone/stand_in_module.h"

#include "error_identifiers.h"

#include <cmath>
#include <sstream>

namespace {

using standalone::Dims;
using standalone::Value;

TEST(Value, IsMadeOfWhatAScriptWouldWrite)
{
    EXPECT_EQ(Value(3), Value::number(3));
    EXPECT_EQ(Value(2.5), Value::number(2.5));
    EXPECT_EQ(Value(true), Value::logical(true));
    EXPECT_EQ(Value("temp"), Value::text(u"temp"));
    EXPECT_EQ(Value(std::string("temp")), Value::text("temp"));
    EXPECT_EQ(Value("").dims(), (Dims{0, 0}));
}

TEST(Value, GivesItsElementsBack)
{
    EXPECT_EQ(Value::row<float>({1, 2}).elements<float>(), (std::vector<float>{1, 2}));
    EXPECT_EQ(Value::row<float>({1, 2}).dims(), (Dims{1, 2}));
    EXPECT_EQ(Value::column<float>({1, 2}).dims(), (Dims{2, 1}));
    EXPECT_EQ(Value::scalar<std::int64_t>(-5).elements<std::int64_t>(),
              std::vector<std::int64_t>{-5});
    EXPECT_TRUE(Value::empty(vxINT8_CLASS, {0, 4}).elements<std::int8_t>().empty());
    EXPECT_EQ(Value(2.5).toDouble(), 2.5);
    EXPECT_TRUE(Value(true).toLogical());
    EXPECT_TRUE(Value::logicalBytes({1, 1}, {2}).toLogical());
    EXPECT_EQ(Value("h\xC3\xB6he").toUtf16(), u"h\u00F6he");
    EXPECT_EQ(Value("h\xC3\xB6he").toText(), "h\xC3\xB6he");
    EXPECT_EQ(Value::cell({2, 1}, {1, "x"}).cells(), (std::vector<Value>{1, "x"}));
}

TEST(Value, RefusesToBeReadAsAnotherClass)
{
    EXPECT_THROW(static_cast<void>(Value(1).elements<float>()), std::logic_error);
    EXPECT_THROW(static_cast<void>(Value("1").toDouble()), std::logic_error);
    EXPECT_THROW(static_cast<void>(Value::row<double>({1, 2}).toDouble()), std::logic_error);
    EXPECT_THROW(static_cast<void>(Value(1).toLogical()), std::logic_error);
    EXPECT_THROW(static_cast<void>(Value(1).toText()), std::logic_error);
    EXPECT_THROW(static_cast<void>(Value(1).cells()), std::logic_error);
}

TEST(Value, RefusesDimensionsThatDoNotHoldItsElements)
{
    EXPECT_THROW(Value::numeric<double>({2, 2}, {1, 2, 3}), std::invalid_argument);
    EXPECT_THROW(Value::empty(vxDOUBLE_CLASS, {1, 1}), std::invalid_argument);
    EXPECT_THROW(Value::cell({2, 1}, {1}), std::invalid_argument);
    EXPECT_THROW(Value::complex<double>({1, 1}, {1}, {1, 2}), std::invalid_argument);
    EXPECT_THROW(Value{standalone::ArrayOwner{}}, std::invalid_argument);
}

TEST(Value, EqualsOneOfTheSameClassShapeAndBits)
{
    EXPECT_EQ(Value(std::nan("")), Value(std::nan("")));
    EXPECT_NE(Value(0.0), Value(-0.0));
    EXPECT_NE(Value(1), Value::scalar<float>(1));
    EXPECT_NE(Value::row<double>({1, 2}), Value::column<double>({1, 2}));
    EXPECT_NE(Value::complex<double>({1, 1}, {1}, {0}), Value(1));
    EXPECT_EQ(Value::empty(vxDOUBLE_CLASS, {0, 3}), Value::empty(vxDOUBLE_CLASS, {0, 3}));
    EXPECT_NE(Value::empty(vxDOUBLE_CLASS, {0, 3}), Value::empty());
    EXPECT_NE(Value::cell({1, 1}, {1}), Value::cell({1, 1}, {2}));
    EXPECT_EQ(Value::structure({{"a", 1}}), Value::structure({{"a", 1}}));
    EXPECT_NE(Value::structure({{"a", 1}}), Value::structure({{"a", 2}}));
    EXPECT_NE(Value::structure({{"a", 1}}), Value::structure({{"b", 1}}));
    EXPECT_NE(Value::structures({1, 2}, {"a"}), Value::structures({1, 2}, {"b"}));
}

TEST(Value, DescribesItself)
{
    const struct {
        Value value;
        const char* text;
    } cases[] = {
        {2.5, "double 1x1 [2.5]"},
        {Value::row<std::int8_t>({-1, 65}), "int8 1x2 [-1 65]"},
        {Value::numeric<std::uint64_t>({1, 1, 1}, {UINT64_MAX}),
         "uint64 1x1x1 [18446744073709551615]"},
        {"temp", "char 1x4 'temp'"},
        {true, "logical 1x1 true"},
        {Value::empty(), "double 0x0"},
        {Value::cell({1, 2}, {1, Value::empty()}), "cell 1x2 {double 1x1 [1]; double 0x0}"},
        {Value::empty(vxCELL_CLASS), "cell 0x0"},
        {Value::structure({{"a", 1}, {"b", "x"}}),
         "struct 1x1 {a: double 1x1 [1]; b: char 1x1 'x'}"},
        {Value::structures({1, 2}, {"a"}), "struct 1x2"},
        {Value::anythingElse(), "something 1x1"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.value.describe(), c.text);
    EXPECT_EQ(Value::row(std::vector<float>(21)).describe(),
              "single 1x21 [0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 ...]");
}

class Calls : public HostContract {};

TEST_F(Calls, PassTheOperationBeforeItsArguments)
{
    std::vector<std::string> names;
    moduleDoes([&](const Call& call) {
        ASSERT_EQ(call.nrhs, 2);
        names.push_back(vxGetClassID(call.arguments[1]) == vxDOUBLE_CLASS ? "number" : "other");
        char* text = vxArrayToString(call.arguments[0]);
        names.push_back(text);
        vxFree(text);
    });
    host.call("close", {65536});
    host.attempt("abort", {"x"});
    EXPECT_EQ(names, (std::vector<std::string>{"number", "close", "other", "abort"}));
}

TEST_F(Calls, GiveResultsOrThrowWhatWasRaised)
{
    moduleDoes([](const Call& call) {
        if (call.nrhs > 1)
            vxErrMsgId(Ovard::gridio::netcdf::argumentWasNotChar("file"));
        call.results[0] = vxCreateDoubleScalar(1);
        call.results[1] = vxCreateString("x");
    });
    EXPECT_EQ(host.call("inq"), (std::vector<Value>{1, "x"}));
    try {
        host.call("open", {1});
        FAIL() << "nothing was thrown";
    } catch (const standalone::RaisedError& error) {
        EXPECT_EQ(error.raised().name(), "argumentWasNotChar");
        EXPECT_EQ(error.what(), error.raised().message);
    }
}

TEST_F(Calls, PrintTheirOutcome)
{
    const auto printed = [](const standalone::Outcome& outcome) {
        std::ostringstream out;
        out << outcome;
        return out.str();
    };
    moduleDoes([](const Call& call) {
        if (call.nrhs > 1)
            vxErrMsgId(Ovard::gridio::netcdf::countNotEqualToData(4, 3));
        call.results[0] = vxCreateDoubleScalar(1);
        call.results[1] = vxCreateString("x");
    });
    EXPECT_EQ(printed(host.attempt("a")), "{double 1x1 [1], char 1x1 'x'}");
    const std::string error = printed(host.attempt("a", {1}));
    EXPECT_EQ(error.substr(0, error.find(')') + 1),
              "Ovard:gridio:netcdf:countNotEqualToData(4, 3)");
}

} // namespace
