// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/operation_forms.h"

#include <algorithm>

namespace hosts::messages {

const OperationForm* findOperationForm(std::string_view name, OperationTable table)
{
    const OperationForm* end = endOperationForms();
    const OperationForm* found =
        std::find_if(beginOperationForms(), end, [=](const OperationForm& form) {
            return form.table == table && form.name == name;
        });
    return found == end ? nullptr : found;
}

std::string callText(const OperationForm& form)
{
    std::string text(form.results);
    if (!text.empty())
        text += " = ";
    text.append(form.table == OperationTable::any ? "gridio_any (\"" : "gridio (\"")
        .append(form.name)
        .append("\"");
    for (std::size_t i = 0; i < form.parameterCount; ++i)
        text.append(", ").append(form.parameters[i].name);
    return text + ")";
}

} // namespace hosts::messages
