// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/operation_forms.h"

#include "gateway/any_operation_table.h"
#include "gateway/operation_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

using namespace hosts::messages;

template <std::size_t count>
void expectFormsOf(const Ovard::gridio::OperationEntry (&rows)[count], OperationTable table)
{
    std::set<std::string> names;
    for (const auto& entry : rows) {
        const bool isFirstRow = names.insert(entry.name).second;
        const OperationForm* form = findOperationForm(entry.name, table);
        ASSERT_NE(form, nullptr) << entry.name;
        EXPECT_TRUE(!isFirstRow || form->parameterCount == entry.nargs) << entry.name;
    }
    EXPECT_EQ(names.size(), static_cast<std::size_t>(std::count_if(
                                beginOperationForms(), endOperationForms(),
                                [table](const auto& form) { return form.table == table; })));
}

TEST(OperationForms, AreThoseOfTheOperationTables)
{
    expectFormsOf(Ovard::gridio::operationTable, OperationTable::first);
    expectFormsOf(Ovard::gridio::anyOperationTable, OperationTable::any);
}

// Only the first table takes the bytes of values as they are.
TEST(OperationForms, HaveAClassOfDataForEveryWriteOfTheFirstTableOnly)
{
    for (const auto* form = beginOperationForms(); form != endOperationForms(); ++form) {
        const bool takesBytes =
            form->table == OperationTable::first && form->name.substr(0, 3) == "put";
        EXPECT_EQ(takesBytes, form->dataClass != vxUNKNOWN_CLASS) << form->name;
        EXPECT_TRUE(!takesBytes ||
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
