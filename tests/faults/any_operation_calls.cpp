// SPDX-License-Identifier: BSD-3-Clause
#include "tests/faults/any_operation_calls.h"

#include "fuzz/nested_type.h"

#include <netcdf.h>

#include <map>
#include <stdexcept>

namespace faults {

using standalone::Value;
namespace parameter = fuzz::parameter;

namespace {

constexpr int numericVariable = 0;
constexpr int nestedVariable = 2;

// A word or a number by the operation's name; otherwise the usual one.
template <class T>
T chosen(const std::map<std::string, T>& byOperation, const std::string& operation, T usual)
{
    const auto found = byOperation.find(operation);
    return found == byOperation.end() ? usual : found->second;
}

Value type(const std::string& operation, std::size_t typesBefore)
{
    static const std::map<std::string, const char*> types = {
        {"inqEnum", "sky"},         {"inqEnumMember", "sky"},
        {"inqEnumIdent", "sky"},    {"inqVlen", "words"},
        {"inqOpaque", "blob"},      {"defEnum", "byte"},
        {"insertEnum", "sky"},      {"defVlen", "int"},
        {"insertCompound", "pair"}, {"insertArrayCompound", "pair"},
        {"inqTypeEqual", "int"}};
    const bool isOfField = operation.find("insert") == 0 && typesBefore > 0;
    return isOfField ? "int" : chosen(types, operation, "nested");
}

Value name(const std::string& operation)
{
    static const std::map<std::string, const char*> existing = {
        {"getAtt", "range"}, {"inqTypeID", "nested"}, {"inqGrpFullNcid", "/g"}};
    return chosen(existing, operation, "new");
}

// The operations that are refused for variables of other types, and those on the number of a group.
int varid(const std::string& operation)
{
    const bool needsNumbers = operation.find("Endian") != std::string::npos ||
                              operation.find("Quantize") != std::string::npos ||
                              operation == "defVarFilter";
    return needsNumbers ? numericVariable : nestedVariable;
}

bool isOnGroup(const std::string& operation)
{
    return operation == "renameGrp" || operation == "inqDimIDs";
}

Value values(const std::string& operation)
{
    if (operation == "insertEnum")
        return 5;
    return fuzz::nestedValues(
        operation == "putVar1" || operation == "putVars" || operation == "defVarFill" ? 1 : 2);
}

} // namespace

std::vector<Value> anyArgumentsThatSucceed(const fuzz::Operation& operation,
                                           const PreparedFile& file)
{
    static const std::map<std::string, int> settings = {
        {"inqEnumMember", 1}, {"inqEnumIdent", 1}, {"inqCompoundField", 4}, {"defVarQuantize", 3}};
    std::map<char, std::size_t> seen;
    std::vector<Value> arguments;
    for (const char kind : operation.parameters) {
        const std::size_t before = seen[kind]++;
        switch (kind) {
        case parameter::ncid:
            arguments.emplace_back(isOnGroup(operation.name) ? file.group() : file.ncid());
            break;
        case parameter::varid:
            arguments.emplace_back(varid(operation.name));
            break;
        case parameter::name:
            arguments.push_back(name(operation.name));
            break;
        case parameter::type:
            arguments.push_back(type(operation.name, before));
            break;
        case parameter::word:
            arguments.emplace_back(operation.name == "defVarEndian" ? "big" : "BitGroom");
            break;
        case parameter::size: // also the offset of a field
            arguments.emplace_back(4);
            break;
        case parameter::setting:
            arguments.emplace_back(chosen(settings, operation.name, 1));
            break;
        case parameter::numbers:
            arguments.push_back(Value::row<double>({1}));
            break;
        case parameter::flag:
            arguments.emplace_back(operation.name == "inqDimIDs");
            break;
        case parameter::start:
            arguments.emplace_back(0);
            break;
        case parameter::count:
            arguments.emplace_back(operation.name == "putVars" ? 1 : 2);
            break;
        case parameter::stride:
            arguments.emplace_back(1);
            break;
        case parameter::values:
            arguments.push_back(values(operation.name));
            break;
        case parameter::singleNumber:
            arguments.emplace_back(0.5);
            break;
        default:
            throw std::logic_error("no argument for a parameter of kind " + std::string(1, kind));
        }
    }
    return arguments;
}

void completeNewType(const fuzz::Operation& operation, const PreparedFile& file)
{
    static const int zero = 0;
    nc_type xtype = 0;
    if (operation.function == fuzz::Function::gridio || operation.name.find("def") != 0 ||
        nc_inq_typeid(file.ncid(), "new", &xtype) != NC_NOERR)
        return;
    if (operation.name == "defEnum")
        static_cast<void>(nc_insert_enum(file.ncid(), xtype, "a", &zero)); // else closing fails
    else if (operation.name == "defCompound")
        static_cast<void>(nc_insert_compound(file.ncid(), xtype, "a", 0, NC_INT));
}

} // namespace faults
