// SPDX-License-Identifier: BSD-3-Clause
// Findings about the types of variables, attributes and values.
#include "hosts/messages/findings.h"
#include "hosts/messages/index_advice.h"
#include "hosts/messages/subjects.h"
#include "hosts/messages/visible_text.h"

#include <algorithm>
#include <cctype>
#include <iterator>

namespace hosts::messages {

namespace {

struct Range {
    nc_type type;
    const char* text;
};

constexpr Range ranges[] = {
    {NC_BYTE, "-128 to 127"},
    {NC_UBYTE, "0 to 255"},
    {NC_SHORT, "-32768 to 32767"},
    {NC_USHORT, "0 to 65535"},
    {NC_INT, "-2147483648 to 2147483647"},
    {NC_UINT, "0 to 4294967295"},
    {NC_INT64, "-9223372036854775808 to 9223372036854775807"},
    {NC_UINT64, "0 to 18446744073709551615"},
    {NC_FLOAT, "-3.4e38 to 3.4e38"},
};

bool begins(const std::string& text, const char* start) { return text.rfind(start, 0) == 0; }

// "getVara" for "getVaraDouble": the name of the family.
std::string familyOf(const std::string& operation)
{
    constexpr std::size_t shortest = 6; // "getVar"
    const bool hasForm = operation.size() > shortest &&
                         std::string_view("1as").find(operation[shortest]) != std::string::npos;
    return operation.substr(0, hasForm ? shortest + 1 : shortest);
}

// Two names of the family putVar1 have one more capital letter.
bool isSameButForCase(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
        return std::tolower(x) == std::tolower(y);
    });
}

std::string operationFor(const std::string& operation, nc_type type)
{
    const char* suffix = operationSuffix(type);
    if (suffix == nullptr)
        return "";
    const std::string wanted = familyOf(operation) + suffix;
    const OperationForm* end = endOperationForms();
    const OperationForm* found =
        std::find_if(beginOperationForms(), end, [&](const OperationForm& form) {
            return isSameButForCase(form.name, wanted);
        });
    return found == end ? "" : std::string(found->name);
}

// Advice for values that are neither numbers nor characters: strings, and those of an enum,
// variable-length, compound or opaque type. operation: the one of the first table that failed.
std::string anyTypeAdvice(const std::string& operation)
{
    const std::string every = "which reads and writes values of every type.";
    if (begins(operation, "getAtt") || begins(operation, "putAtt"))
        return "Use gridio_any (\"" + operation.substr(0, 6) + "\", ...), " + every;
    if (begins(operation, "getVar") || begins(operation, "putVar"))
        return "Use gridio_any (\"" + familyOf(operation) + "\", ...), " + every;
    return "Use gridio_any, " + every;
}

struct Values {
    std::string what; // 'The variable "t"'
    nc_type type;
};

// The variable or attribute that the operation reads or writes.
std::optional<Values> valuesOfCall(const FailedCall& call)
{
    const std::optional<int> ncid = call.identifier("ncid");
    const std::optional<int> varid = call.identifier("varid");
    if (!ncid || !varid || !isOpen(*ncid))
        return std::nullopt;
    if (call.operation().find("Att") == std::string::npos) {
        const std::optional<Variable> variable = variableOf(*ncid, *varid);
        return variable ? std::optional<Values>(
                              {"The variable " + inQuotes(variable->name), variable->type})
                        : std::nullopt;
    }
    const std::optional<std::string> name = call.text("name");
    nc_type type = NC_NAT;
    if (!name || nc_inq_atttype(*ncid, *varid, name->c_str(), &type) != NC_NOERR)
        return std::nullopt;
    return Values{"The attribute " + inQuotes(*name), type};
}

std::string findUnreadable(const Values& values, int ncid, const std::string& operation)
{
    if (operationSuffix(values.type) != nullptr)
        return "";
    return values.what + " is of " + describeType(ncid, values.type) +
           (values.type == NC_STRING ? " (text of any length)" : "") + ". " +
           anyTypeAdvice(operation);
}

} // namespace

std::string describeRange(int type)
{
    const auto* row = std::find_if(std::begin(ranges), std::end(ranges),
                                   [type](const Range& range) { return range.type == type; });
    return row == std::end(ranges) ? "" : std::string(", which holds ") + row->text;
}

std::string findOtherKindOfValues(const FailedCall& call)
{
    if (const std::optional<double> xtype = call.number("xtype"))
        return "The type asked for is " +
               (*xtype == NC_CHAR || *xtype == NC_STRING
                    ? typeName(-1, static_cast<nc_type>(*xtype))
                    : numberText(*xtype)) +
               ", and the values are numbers: give a numeric type, or write text with "
               "\"putAttText\".";
    const std::optional<Values> values = valuesOfCall(call);
    if (!values)
        return "";
    const std::string unreadable =
        findUnreadable(*values, call.identifier("ncid").value_or(-1), call.operation());
    if (!unreadable.empty())
        return unreadable;
    const std::string fitting = operationFor(call.operation(), values->type);
    const std::string kind = values->type == NC_CHAR
                                 ? " holds text (NC_CHAR)"
                                 : " holds numbers (" + typeName(-1, values->type) + ")";
    return values->what + kind + (fitting.empty() ? "." : ": use " + inQuotes(fitting) + ".");
}

std::string findUnfitType(const FailedCall& call)
{
    const std::optional<int> ncid = call.identifier("ncid");
    const std::optional<double> xtype = call.number("xtype");
    if (!ncid)
        return "";
    if (!xtype) {
        const std::optional<Values> values = valuesOfCall(call);
        return values ? findUnreadable(*values, *ncid, call.operation()) : "";
    }
    if (!(*xtype >= NC_BYTE && *xtype <= NC_STRING))
        return "There is no type " + numberText(*xtype) +
               ": types are numbers such as gridio(\"parameter\", \"NC_DOUBLE\").";
    const auto type = static_cast<nc_type>(*xtype);
    const std::optional<Variable> variable = variableOfCall(call);
    if (call.text("name").value_or("") == "_FillValue" && variable && variable->type != type)
        return "\"_FillValue\" must be of the type of its variable, " +
               typeName(*ncid, variable->type) + ", and is of type " + typeName(*ncid, type) + ".";
    if (type == NC_CHAR)
        return "";
    return "The type " + typeName(*ncid, type) +
           " is not available in this file, whose format is " + formatOf(*ncid) + ".";
}

std::string findValueOutOfRange(const FailedCall& call)
{
    const std::optional<Values> values = valuesOfCall(call);
    const OperationForm* form = call.form();
    const std::optional<int> ncid = call.identifier("ncid");
    if (form == nullptr || !ncid)
        return "";
    if (begins(call.operation(), "get")) {
        if (!values)
            return "";
        const std::string fitting = operationFor(call.operation(), values->type);
        return values->what + " is of type " + typeName(*ncid, values->type) +
               (fitting.empty() ? "." : ", which " + inQuotes(fitting) + " reads as it is.");
    }
    const std::optional<double> xtype = call.number("xtype");
    const nc_type type = xtype && *xtype >= 0 && *xtype <= NC_STRING ? static_cast<nc_type>(*xtype)
                         : values                                    ? values->type
                                                                     : NC_NAT;
    if (type == NC_NAT)
        return "";
    return (values && !xtype ? values->what : std::string("The attribute")) + " is of type " +
           typeName(*ncid, type) + describeRange(type) + ".";
}

} // namespace hosts::messages
