// SPDX-License-Identifier: BSD-3-Clause
// UTF-16 inside, the narrow encoding outside.
#include "tests/standalone/stand_in_module.h"

#include "hosts/standalone/text.h"

#include "vx/text.h"

namespace {

using standalone::Value;

class Text : public HostContract {
protected:
    const fnd::filesystem::codecvt_ustring_to_narrow_string narrow{};
};

bool isSurrogate(unsigned unit) { return unit >= 0xD800 && unit <= 0xDFFF; }

TEST_F(Text, IsTheUnitsOfACharArrayInStorageOrder)
{
    EXPECT_EQ(vxGetText(Value::text({2, 3}, u"adbecf").array()), u"adbecf");
    EXPECT_EQ(vxGetText(Value::text({1, 2, 2}, u"abcd").array()), u"abcd");
    EXPECT_EQ(vxGetText(Value::text("").array()), u"");
    EXPECT_EQ(vxGetText(Value::empty(vxCHAR_CLASS, {0, 7}).array()), u"");
}

TEST_F(Text, KeepsUnitsThatAreNoCharacters)
{
    const std::u16string units = {u'\0', 0xD800, 0xDC00, 0xDC00, 0xFF80, 0xFFFF, u'\0'};
    EXPECT_EQ(vxGetText(Value::text(units).array()), units);
}

TEST_F(Text, HasANarrowFormOfEveryUnit)
{
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const std::u16string one(1, static_cast<char16_t>(unit));
        const std::u16string expected = isSurrogate(unit) ? std::u16string(u"\uFFFD") : one;
        ASSERT_EQ(standalone::toUtf16(narrow(one)), expected) << std::hex << unit;
    }
}

TEST_F(Text, HasANarrowFormOfSurrogatePairs)
{
    EXPECT_EQ(narrow(u"\U0001F600"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(narrow(u"\U00010000"), "\xF0\x90\x80\x80");
    EXPECT_EQ(narrow(u"\U0010FFFF"), "\xF4\x8F\xBF\xBF");
    EXPECT_EQ(standalone::toUtf16("a\xF0\x9F\x98\x80z"), u"a\U0001F600z");
}

TEST_F(Text, ReplacesLoneSurrogates)
{
    const std::string mark = "\xEF\xBF\xBD";
    const struct {
        std::u16string units;
        std::string narrow;
    } cases[] = {
        {{0xD800}, mark},
        {{0xDC00}, mark},
        {{u'a', 0xD800, u'b'}, "a" + mark + "b"},
        {{0xDC00, 0xD800}, mark + mark},
        {{0xD800, 0xD800, 0xDC00}, mark + "\xF0\x90\x80\x80"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(narrow(c.units), c.narrow);
}

TEST_F(Text, ReplacesMalformedCharactersOfAString)
{
    const char* malformed[] = {"\x80",         "\xC3",         "\xE2\x82",         "\xC0\xAF",
                               "\xED\xA0\x80", "\xF8\x88\x80", "\xF4\x90\x80\x80", "\xFF"};
    for (const char* text : malformed) {
        const Value value = created([&] { return vxCreateString(text); });
        EXPECT_EQ(value.toUtf16(), std::u16string(std::string_view(text).size(), u'\uFFFD'))
            << value;
    }
    EXPECT_EQ(created([] { return vxCreateString("a\xC3z"); }).toUtf16(), u"a\uFFFDz");
}

} // namespace
