// SPDX-License-Identifier: BSD-3-Clause
// The table of element types.
#include "data/elements/element_types.h"

#include "gateway/operation_table.h"
#include "tests/support/element_samples.h"

#include "hosts/standalone/array.h"

#include <gtest/gtest.h>

#include <map>

namespace Ovard::gridio::operations {

HandlerFunction getAtt, putAtt, getVar, putVar, getVarSubset, putVarSubset;

} // namespace Ovard::gridio::operations

using namespace Ovard::gridio;

namespace {

struct Family {
    const TypedFamily& family;
    Handler handler;
    std::vector<const char*> forms;
    std::size_t names;
};

const Family families[] = {
    {attributeReads, operations::getAtt, {"getAtt"}, 12},
    {attributeWrites, operations::putAtt, {"putAtt"}, 11},
    {wholeReads, operations::getVar, {"getVar"}, 11},
    {wholeWrites, operations::putVar, {"putVar"}, 11},
    {subsetReads, operations::getVarSubset, {"getVar1", "getVara", "getVars"}, 33},
    {subsetWrites, operations::putVarSubset, {"putVar1", "putVara", "putVars"}, 33},
};

TEST(ElementTypes, AreThoseThatTheNamesOfTheOperationTableEndIn)
{
    for (const Family& f : families) {
        std::size_t names = 0;
        for (const OperationEntry& row : operationTable) {
            if (row.handler != f.handler)
                continue;
            const ElementType* element = findElementType(f.family, row.code);
            ASSERT_NE(element, nullptr) << row.name;
            const char* form = f.forms[names % f.forms.size()];
            EXPECT_EQ(row.name, testsupport::operationName(form, element->suffix));
            ++names;
        }
        EXPECT_EQ(names, f.names) << f.forms[0];
    }
}

TEST(ElementTypes, HaveNoRowOutsideTheirFamily)
{
    for (const Family& f : families) {
        EXPECT_EQ(findElementType(f.family, f.family.firstCode - 1), nullptr) << f.forms[0];
        EXPECT_EQ(findElementType(f.family, f.family.lastCode + 1), nullptr) << f.forms[0];
        EXPECT_EQ(findElementType(f.family, -1), nullptr) << f.forms[0];
    }
}

TEST(ElementTypes, GoFromUcharToTextWithoutUbyte)
{
    EXPECT_STREQ(findElementType(wholeReads, 36)->suffix, "Uchar");
    EXPECT_STREQ(findElementType(wholeReads, 37)->suffix, "Text");
    EXPECT_STREQ(findElementType(attributeReads, 25)->suffix, "Ubyte");
    EXPECT_STREQ(findElementType(attributeReads, 26)->suffix, "Text");
    EXPECT_STREQ(findElementType(attributeWrites, 87)->suffix, "Ubyte");
}

TEST(ElementTypes, HaveTheElementSizeOfTheirHostClassButText)
{
    for (const ElementType& element : elementTypes) {
        const std::size_t inHost = standalone::elementSize(element.hostClass);
        EXPECT_EQ(element.size, element.hostClass == vxCHAR_CLASS ? inHost / 2 : inHost)
            << element.suffix;
    }
}

TEST(ElementTypes, HaveTheHostClassOfTheirSuffix)
{
    const std::map<std::string, vxClassID> classes = {
        {"Double", vxDOUBLE_CLASS}, {"Float", vxSINGLE_CLASS},  {"Int64", vxINT64_CLASS},
        {"Uint64", vxUINT64_CLASS}, {"Int", vxINT32_CLASS},     {"Uint", vxUINT32_CLASS},
        {"Short", vxINT16_CLASS},   {"Ushort", vxUINT16_CLASS}, {"Schar", vxINT8_CLASS},
        {"Uchar", vxUINT8_CLASS},   {"Ubyte", vxUINT8_CLASS},   {"Text", vxCHAR_CLASS},
    };
    ASSERT_EQ(classes.size(), elementTypeCount);
    for (const ElementType& element : elementTypes)
        EXPECT_EQ(classes.at(element.suffix), element.hostClass) << element.suffix;
}

TEST(FindExternalType, KnowsTheElevenTypesThatHaveAnElement)
{
    const std::map<nc_type, vxClassID> classes = {
        {NC_BYTE, vxINT8_CLASS},   {NC_CHAR, vxCHAR_CLASS},     {NC_SHORT, vxINT16_CLASS},
        {NC_INT, vxINT32_CLASS},   {NC_FLOAT, vxSINGLE_CLASS},  {NC_DOUBLE, vxDOUBLE_CLASS},
        {NC_UBYTE, vxUINT8_CLASS}, {NC_USHORT, vxUINT16_CLASS}, {NC_UINT, vxUINT32_CLASS},
        {NC_INT64, vxINT64_CLASS}, {NC_UINT64, vxUINT64_CLASS},
    };
    for (const auto& [xtype, classId] : classes) {
        const ElementType* element = findExternalType(xtype);
        ASSERT_NE(element, nullptr) << xtype;
        EXPECT_EQ(element->externalType, xtype);
        EXPECT_EQ(element->hostClass, classId) << xtype;
    }
    for (const nc_type none : {NC_NAT, NC_STRING, NC_VLEN, NC_COMPOUND, 32, -1})
        EXPECT_EQ(findExternalType(none), nullptr) << none;
}

} // namespace
