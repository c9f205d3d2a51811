// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/operation_forms.h"

#include "gateway/operation_table.h"

#include <gtest/gtest.h>

#include <iterator>
#include <set>

namespace {

using namespace hosts::messages;

TEST(OperationForms, AreThoseOfTheOperationTable)
{
    std::set<std::string> names;
    for (const auto& entry : Ovard::gridio::operationTable) {
        const bool isFirstRow = names.insert(entry.name).second;
        const OperationForm* form = findOperationForm(entry.name);
        ASSERT_NE(form, nullptr) << entry.name;
        EXPECT_TRUE(!isFirstRow || form->parameterCount == entry.nargs) << entry.name;
    }
    EXPECT_EQ(names.size(), static_cast<std::size_t>(endOperationForms() - beginOperationForms()));
}

TEST(OperationForms, HaveAClassOfDataForEveryWriteAndNoOtherOperation)
{
    const auto isWrite = [](std::string_view name) { return name.substr(0, 3) == "put"; };
    for (const auto* form = beginOperationForms(); form != endOperationForms(); ++form) {
        EXPECT_EQ(isWrite(form->name), form->dataClass != vxUNKNOWN_CLASS) << form->name;
        EXPECT_TRUE(!isWrite(form->name) ||
                    form->parameters[form->parameterCount - 1].kind == ParameterKind::data);
    }
    EXPECT_EQ(findOperationForm("putVar1UInt64")->dataClass, vxUINT64_CLASS);
    EXPECT_EQ(findOperationForm("putAttUbyte")->dataClass, vxUINT8_CLASS);
    EXPECT_EQ(findOperationForm("putVarsText")->dataClass, vxCHAR_CLASS);
}

TEST(FindOperationForm, KnowsExactNamesOnly)
{
    for (const char* name : {"", "Open", "opens", "nc_open"})
        EXPECT_EQ(findOperationForm(name), nullptr) << name;
}

TEST(CallText, IsTheCallAsAScriptWritesIt)
{
    EXPECT_EQ(callText(*findOperationForm("defVar")),
              "varid = gridio (\"defVar\", ncid, name, xtype, dimids)");
    EXPECT_EQ(callText(*findOperationForm("inqDim")),
              "[name, dim_length] = gridio (\"inqDim\", ncid, dimid)");
    EXPECT_EQ(callText(*findOperationForm("close")), "gridio (\"close\", ncid)");
    EXPECT_EQ(callText(*findOperationForm("inqLibVers")), "version = gridio (\"inqLibVers\")");
}

} // namespace
