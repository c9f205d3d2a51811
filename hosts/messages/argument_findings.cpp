// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/argument_findings.h"

#include "hosts/messages/findings.h"
#include "hosts/messages/index_advice.h"
#include "hosts/messages/subjects.h"
#include "hosts/messages/visible_text.h"

#include <algorithm>
#include <iterator>

namespace hosts::messages {

namespace {

const vxArray* dataOf(const FailedCall& call)
{
    for (const char* name : {"values", "value", "text"})
        if (const vxArray* data = call.argument(name))
            return data;
    return nullptr;
}

double sizeOf(const Variable& variable)
{
    double size = 1;
    for (const Dimension& dimension : variable.dimensions)
        size *= static_cast<double>(dimension.length);
    return size;
}

std::string findSizeOfVariable(const FailedCall& call)
{
    const std::optional<Variable> variable = variableOfCall(call);
    return variable && !call.has("COUNT") && !call.has("START")
               ? "The variable has " + numberText(sizeOf(*variable)) + " values now."
               : "";
}

std::string findUnfitData(const FailedCall& call)
{
    const vxArray* data = dataOf(call);
    const OperationForm* form = call.form();
    if (data == nullptr || form == nullptr)
        return "";
    const std::optional<Variable> variable = variableOfCall(call);
    const auto given = static_cast<double>(vxGetNumberOfElements(data));
    if (variable && !call.has("START") && !call.has("xtype") && sizeOf(*variable) != given) {
        const auto unlimited =
            std::find_if(variable->dimensions.begin(), variable->dimensions.end(),
                         [](const Dimension& d) { return d.isUnlimited; });
        return "The variable has " + numberText(sizeOf(*variable)) + " values" +
               (unlimited == variable->dimensions.end()
                    ? ""
                    : ", now that its unlimited dimension " + inQuotes(unlimited->name) +
                          " has the length " + std::to_string(unlimited->length)) +
               ", and " + numberText(given) + (given == 1 ? " was given." : " were given.");
    }
    if (vxGetClassID(data) == form->dataClass)
        return "";
    return inQuotes(call.operation()) + " takes values of class " + className(form->dataClass) +
           ", and they are of class " + className(vxGetClassID(data)) + ".";
}

std::string findUnfitNumber(const Parameter& parameter, double value)
{
    constexpr double twoTo31 = 2147483648.0;
    constexpr double twoTo64 = 18446744073709551616.0;
    const std::string start =
        "The argument " + inQuotes(parameter.errorName) + " is " + numberText(value);
    if (parameter.kind == ParameterKind::integer && !(value > -twoTo31 - 1 && value < twoTo31))
        return start + ", which is no 32-bit integer.";
    if (parameter.kind == ParameterKind::size && !(value > -1 && value < twoTo64))
        return start + ": it must be 0 or more" + (value < 0 ? "." : ", and less than 2^64.");
    return "";
}

std::string findArgumentOutOfBounds(const FailedCall& call)
{
    const OperationForm* form = call.form();
    for (std::size_t i = 0; form != nullptr && i < form->parameterCount; ++i) {
        const Parameter& parameter = form->parameters[i];
        const std::optional<double> value = call.number(parameter.name);
        const std::string found = parameter.kind == ParameterKind::index ? findIndexOutOfRange(call)
                                  : value ? findUnfitNumber(parameter, *value)
                                          : "";
        if (!found.empty())
            return found;
    }
    const std::optional<Variable> variable = variableOfCall(call);
    const std::optional<double> fill = call.number("value");
    if (!variable || !fill || !call.has("no_fill"))
        return "";
    return "The fill value " + numberText(*fill) + " does not fit the variable " +
           inQuotes(variable->name) + ", which is of type " + typeName(-1, variable->type) +
           describeRange(variable->type) + ".";
}

std::string findUnfitFillType(const FailedCall& call)
{
    const std::optional<Variable> variable = variableOfCall(call);
    return variable ? "The variable " + inQuotes(variable->name) + " is of " +
                          describeType(call.identifier("ncid").value_or(-1), variable->type) + "."
                    : "";
}

std::string findFillValueCall(const FailedCall& call)
{
    const std::optional<double> value = call.number("values");
    return "The call is gridio (\"defVarFill\", ncid, varid, false, " +
           (value ? numberText(*value) : std::string("VALUE")) + ").";
}

std::string findNothing(const FailedCall&) { return ""; }

struct Finder {
    std::string_view identifier;
    std::string (*find)(const FailedCall& call);
};

// The errors of calls that concern an open file.
constexpr Finder finders[] = {
    {"Ovard:gridio:validate:argumentOutOfBounds", findArgumentOutOfBounds},
    {"Ovard:gridio:netcdf:emptyVariableData", findSizeOfVariable},
    {"Ovard:gridio:netcdf:dataSizeMismatch", findUnfitData},
    {"Ovard:gridio:netcdf:countNotEqualToData", findNothing},
    {"Ovard:gridio:netcdf:argumentIsEmpty", findNothing},
    {"Ovard:gridio:netcdf:indexArgumentNotFinite", findIndexNotFinite},
    {"Ovard:gridio:netcdf:badIndexArgumentLength", findNothing},
    {"Ovard:gridio:netcdf:invalidChunkParameter", findNothing},
    {"Ovard:gridio:netcdf:unhandledFillDatatype", findUnfitFillType},
    {"Ovard:gridio:netcdf:postCreationFillValueDefinition", findFillValueCall},
    {"Ovard:gridio:netcdf:unknownNetCDFFormat", findNothing},
    {"Ovard:gridio:netcdf:unrecognizedChunkingCode", findNothing},
    {"Ovard:gridio:netcdf:attemptedChunkingInquiryOnNetcdf3File", findNothing},
    {"Ovard:gridio:netcdf:attemptedChecksumInquiryOnNetcdf3File", findNothing},
};

} // namespace

std::string argumentFinding(std::string_view identifier, const FailedCall& call)
{
    const auto* row =
        std::find_if(std::begin(finders), std::end(finders), [identifier](const Finder& finder) {
            return finder.identifier == identifier;
        });
    if (row == std::end(finders))
        return "";
    std::string lines = row->find(call);
    const std::optional<int> ncid = call.identifier("ncid");
    const std::string subject = ncid ? subjectLine(*ncid, call.identifier("varid")) : "";
    if (!subject.empty())
        lines += (lines.empty() ? "" : "\n") + subject;
    return lines;
}

} // namespace hosts::messages
