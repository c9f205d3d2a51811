// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/call_messages.h"

#include "hosts/messages/constant_names.h"
#include "hosts/messages/index_advice.h"
#include "hosts/messages/mode_words.h"
#include "hosts/messages/near_names.h"
#include "hosts/messages/subjects.h"
#include "hosts/messages/visible_text.h"

#include <cmath>

namespace hosts::messages {

namespace {

using Texts = std::vector<std::string>;
using Places = std::optional<Texts>; // nullopt if the text does not apply

// The argument that the error names; if several have that name, the first that is wrong.
template <class IsWrong>
const vxArray* namedArgument(const FailedCall& call, const Texts& errorArguments,
                             const IsWrong& isWrong)
{
    const OperationForm* form = call.form();
    for (std::size_t i = 0; form != nullptr && i < form->parameterCount; ++i) {
        const vxArray* array = call.argument(form->parameters[i].name);
        if (form->parameters[i].errorName == errorArguments.at(0) && isWrong(array))
            return array;
    }
    return nullptr;
}

auto isNotOf(vxClassID classId)
{
    return [classId](const vxArray* array) { return vxGetClassID(array) != classId; };
}

Places nameAndValue(const Texts& errorArguments, const vxArray* array)
{
    if (array == nullptr)
        return std::nullopt;
    return Texts{inQuotes(errorArguments.at(0)), describeValue(array)};
}

bool isNoFiniteNumber(const vxArray* array)
{
    const std::vector<double> numbers = numbersOf(array);
    return numbers.size() != 1 || !std::isfinite(numbers.front());
}

bool isNoCharacter(const vxArray* array)
{
    return vxGetClassID(array) != vxCHAR_CLASS || vxGetNumberOfElements(array) != 1;
}

// How a script gets the number that an argument needs.
std::string sourceOf(const std::string& parameter, bool isGivenText)
{
    struct Source {
        const char* parameter;
        const char* advice;
    };
    constexpr Source sources[] = {
        {"ncid", "The number of a file is what gridio(\"open\", FILE, MODE) returned."},
        {"NCID", "The number of a file is what gridio(\"open\", FILE, MODE) returned."},
        {"varid", "The number of a variable is gridio(\"inqVarID\", ncid, NAME)."},
        {"VARID", "The number of a variable is gridio(\"inqVarID\", ncid, NAME)."},
        {"dimid", "The number of a dimension is gridio(\"inqDimID\", ncid, NAME)."},
        {"xtype", "The number of a type is that of a constant, such as gridio(\"parameter\", "
                  "\"NC_DOUBLE\")."},
    };
    for (const Source& source : sources)
        if (isGivenText && parameter == source.parameter)
            return source.advice;
    return "Files, groups, dimensions and variables are given by the number that \"open\", "
           "\"inqVarID\" or the like returned, and types by that of a constant, such as "
           "gridio(\"parameter\", \"NC_DOUBLE\").";
}

Places noArguments(const Texts&, const FailedCall& call)
{
    return call.argumentCount() == 0 ? Places(Texts()) : std::nullopt;
}

Places operationIsNoText(const Texts&, const FailedCall& call)
{
    const vxArray* operation = call.operationArgument();
    if (operation == nullptr || (vxGetClassID(operation) == vxCHAR_CLASS && !vxIsEmpty(operation)))
        return std::nullopt;
    return Texts{describeValue(operation)};
}

Places nearOperation(const Texts&, const FailedCall& call)
{
    Texts names;
    for (const auto* form = beginOperationForms(); form != endOperationForms(); ++form)
        if (form->table == call.table())
            names.emplace_back(form->name);
    const Texts near = nearNames(call.operation(), names);
    if (near.empty())
        return std::nullopt;
    return Texts{inQuotes(call.operation()), quotedNames(near, near.size(), "or")};
}

Places numberOfArguments(const Texts&, const FailedCall& call)
{
    const OperationForm* form = findOperationForm(call.operation(), call.table());
    if (form == nullptr)
        return std::nullopt;
    const std::size_t given = call.argumentCount() - 1;
    return Texts{std::string(form->name), counted(form->parameterCount, "argument"),
                 given == 0 ? "none" : std::to_string(given),
                 given == 1 || given == 0 ? "was" : "were", callText(*form)};
}

Places whatIsNoScalar(const Texts& arguments, const FailedCall& call)
{
    const vxArray* array = namedArgument(
        call, arguments, arguments.at(1) == "char" ? isNoCharacter : isNoFiniteNumber);
    if (array == nullptr)
        return std::nullopt;
    return Texts{inQuotes(arguments[0]), visible(arguments[1]), describeValue(array),
                 sourceOf(arguments[0], textOf(array).has_value())};
}

Places whatIsNoText(const Texts& arguments, const FailedCall& call)
{
    return nameAndValue(arguments, namedArgument(call, arguments, isNotOf(vxCHAR_CLASS)));
}

Places whatIsNoFlag(const Texts& arguments, const FailedCall& call)
{
    const auto isNoFlag = [](const vxArray* array) { return !vxIsLogicalScalar(array); };
    return nameAndValue(arguments, namedArgument(call, arguments, isNoFlag));
}

Places whatIsNoMode(const Texts&, const FailedCall& call)
{
    const vxArray* mode = call.argument("mode");
    return mode == nullptr ? std::nullopt : Places(Texts{describeValue(mode)});
}

Places whatIsNoRow(const Texts& arguments, const FailedCall& call)
{
    return nameAndValue(arguments, namedArgument(call, arguments, isNotOf(vxDOUBLE_CLASS)));
}

Places lengthOfRow(const Texts& arguments, const FailedCall& call)
{
    const vxArray* array = namedArgument(call, arguments, [](const vxArray*) { return true; });
    if (array == nullptr)
        return std::nullopt;
    return Texts{inQuotes(arguments[0]), std::to_string(vxGetNumberOfElements(array)),
                 arguments.at(1)};
}

Places whatIsNoIndex(const Texts& arguments, const FailedCall& call)
{
    const vxArray* array = call.argument(arguments.at(0));
    return array == nullptr ? std::nullopt
                            : Places(Texts{visible(arguments[0]), describeValue(array)});
}

Places nearMode(const Texts&, const FailedCall& call)
{
    const std::optional<std::string> word = call.text("mode");
    const Texts near = word ? nearModeWords(*word) : Texts();
    if (near.empty())
        return std::nullopt;
    return Texts{inQuotes(*word), quotedNames(near, near.size(), "or")};
}

Places nearConstant(const Texts&, const FailedCall& call)
{
    const std::optional<std::string> name = call.text("name");
    const Texts near = name ? nearConstantNames(*name) : Texts();
    if (near.empty())
        return std::nullopt;
    return Texts{inQuotes(*name), quotedNames(near, near.size(), "or")};
}

Places indexLength(const Texts& arguments, const FailedCall& call)
{
    const std::optional<Variable> variable = variableOfCall(call);
    const vxArray* vector = call.argument(arguments.at(0));
    if (!variable || vector == nullptr || variable->dimensions.empty())
        return std::nullopt;
    return Texts{visible(arguments[0]), counted(variable->dimensions.size(), "element"),
                 inQuotes(variable->name), dimensionList(variable->dimensions, false),
                 std::to_string(vxGetNumberOfElements(vector))};
}

Places indexOfScalar(const Texts& arguments, const FailedCall& call)
{
    const std::optional<Variable> variable = variableOfCall(call);
    if (!variable || !variable->dimensions.empty())
        return std::nullopt;
    const std::string& operation = call.operation(); // "getVaraDouble"
    return Texts{inQuotes(variable->name), visible(arguments.at(0)),
                 inQuotes(operation.substr(0, 6) + operation.substr(7))};
}

struct CallMessage {
    std::string_view identifier;
    const char* text; // {1}, {2}, ... are replaced by the results of find
    Places (*find)(const Texts& errorArguments, const FailedCall& call);
};

// The first row that applies is used.
// clang-format off
constexpr CallMessage rows[] = {
    {"Ovard:gridio:netcdf:unrecognizedOperation",
     "gridio is called with the name of an operation and its arguments. To read a variable:\n"
     "    ncid = gridio (\"open\", \"field.nc\", \"nowrite\");\n"
     "    t = gridio (\"getVarDouble\", ncid, gridio (\"inqVarID\", ncid, \"t\"));\n"
     "    gridio (\"close\", ncid);\n"
     "gridio_help () lists the operations, and gridio_help (\"open\") explains one.", noArguments},
    {"Ovard:gridio:netcdf:unrecognizedOperation",
     "The first argument names an operation, such as \"open\", and here it is {1}. gridio_help() lists the operations.",
     operationIsNoText},
    {"Ovard:gridio:netcdf:unrecognizedOperation",
     "There is no operation {1}: did you mean {2}? Capital letters count. gridio_help() lists all operations.",
     nearOperation},
    {"Ovard:gridio:validate:wrongNumberOfInputs",
     "\"{1}\" takes {2} after its name, and {3} {4} given. The call is\n    {5}\n"
     "gridio_help(\"{1}\") explains it.", numberOfArguments},
    {"Ovard:gridio:netcdf:badScalarArgument",
     "The argument {1} must be one {2} value, neither NaN nor infinite, and is {3}. {4}", whatIsNoScalar},
    {"Ovard:gridio:netcdf:argumentWasNotChar",
     "The argument {1} must be text, a char array, and is {2}.", whatIsNoText},
    {"Ovard:gridio:netcdf:expectedLogicalType",
     "The argument {1} must be a logical scalar, true or false, and is {2}. The numbers 1 and 0 are not "
     "accepted.", whatIsNoFlag},
    {"Ovard:gridio:netcdf:badModeDatatype",
     "The mode must be text, such as \"write\", or a number of class double or int32, and is {1}.", whatIsNoMode},
    {"Ovard:gridio:netcdf:badRowDatatype",
     "The argument {1} must be a vector of class double, and is {2}: convert numbers of another class with "
     "double(...).", whatIsNoRow},
    {"Ovard:gridio:netcdf:rowLengthOutOfBounds",
     "The argument {1} has {2} elements: at most {3} are allowed.", lengthOfRow},
    {"Ovard:gridio:netcdf:argumentHasBadDatatype",
     "{1} must be numeric, and is {2}: give a vector with one element for each dimension of the variable.",
     whatIsNoIndex},
    {"Ovard:gridio:netcdf:unrecognizedFileMode",
     "{1} is not a file mode: did you mean {2}? The words are \"clobber\", \"noclobber\", \"share\", \"write\", "
     "\"nowrite\", \"netcdf4\", \"64bit_offset\" and \"classic_model\", also with \"nc_\" before them; to combine "
     "several, pass the sum of their constants as a number.", nearMode},
    {"Ovard:gridio:netcdf:unrecognizedCharParameter",
     "There is no constant {1}: did you mean {2}? gridio(\"getConstantNames\") lists all.", nearConstant},
    {"Ovard:gridio:netcdf:badIndexArgumentLength",
     "{1} needs {2}, one for each dimension of variable {3} ({4}), and has {5}.", indexLength},
    {"Ovard:gridio:netcdf:badIndexArgumentLength",
     "The variable {1} has no dimensions, so that there is nothing to give {2} for: it is read and written as a "
     "whole, here with {3}.", indexOfScalar},
};
// clang-format on

} // namespace

std::string fillPlaces(std::string_view text, const std::vector<std::string>& arguments)
{
    std::string filled;
    while (!text.empty()) {
        const bool isPlace = text.size() >= 3 && text[0] == '{' && text[2] == '}' &&
                             text[1] >= '1' && text[1] <= '9';
        const std::size_t place = isPlace ? static_cast<std::size_t>(text[1] - '1') : 0;
        if (isPlace && place < arguments.size())
            filled += arguments[place];
        else if (!isPlace)
            filled += text[0];
        text.remove_prefix(isPlace ? 3 : 1);
    }
    return filled;
}

std::vector<MessageTemplate> callTemplates()
{
    std::vector<MessageTemplate> templates;
    for (const CallMessage& row : rows)
        templates.push_back({row.identifier, row.text});
    return templates;
}

std::optional<std::string> callMessage(std::string_view identifier,
                                       const std::vector<std::string>& arguments,
                                       const FailedCall& call)
{
    for (const CallMessage& row : rows)
        if (row.identifier == identifier)
            if (const Places places = row.find(arguments, call))
                return fillPlaces(row.text, *places);
    return std::nullopt;
}

} // namespace hosts::messages
