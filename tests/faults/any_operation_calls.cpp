// SPDX-License-Identifier: BSD-3-Clause
#include "tests/faults/any_operation_calls.h"

#include <netcdf.h>

#include <cstddef>
#include <map>
#include <stdexcept>

namespace faults {

using standalone::Value;
namespace parameter = fuzz::parameter;

namespace {

constexpr int numericVariable = 0;
constexpr int nestedVariable = 2;

struct Nested {
    char* name;
    nc_vlen_t words;
    signed char sky;
    unsigned char blob[3];
    short counts[2];
};

void require(int status)
{
    if (status != NC_NOERR)
        throw std::runtime_error(std::string("preparing types: ") + nc_strerror(status));
}

// As many values of the type "nested" as a script writes them.
Value nestedValues(std::size_t count)
{
    const std::vector<Value> words(count, Value::cell({2, 1}, {"one", ""}));
    return Value::structure(
        {{"name", Value::cell({count, 1}, std::vector<Value>(count, "Oslo"))},
         {"words", Value::cell({count, 1}, words)},
         {"sky", Value::cell({count, 1}, std::vector<Value>(count, "clear"))},
         {"blob",
          Value::numeric<std::uint8_t>({3, count}, std::vector<std::uint8_t>(3 * count, 7))},
         {"counts", Value::numeric<double>({2, count}, std::vector<double>(2 * count, 8))}});
}

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
        {"getAtt", "typed"}, {"inqTypeID", "nested"}, {"inqGrpFullNcid", "/g"}};
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
    return nestedValues(
        operation == "putVar1" || operation == "putVars" || operation == "defVarFill" ? 1 : 2);
}

} // namespace

void addTypes(int ncid)
{
    static const signed char members[] = {0, 1};
    static const int two = 2;
    static const int x = 0;
    nc_type sky = 0;
    nc_type words = 0;
    nc_type blob = 0;
    nc_type pair = 0;
    nc_type nested = 0;
    require(nc_def_enum(ncid, NC_BYTE, "sky", &sky));
    require(nc_insert_enum(ncid, sky, "clear", &members[0]));
    require(nc_insert_enum(ncid, sky, "cloudy", &members[1]));
    require(nc_def_vlen(ncid, "words", NC_STRING, &words));
    require(nc_def_opaque(ncid, 3, "blob", &blob));
    require(nc_def_compound(ncid, 8, "pair", &pair));
    require(nc_insert_compound(ncid, pair, "a", 0, NC_INT));
    require(nc_def_compound(ncid, sizeof(Nested), "nested", &nested));
    require(nc_insert_compound(ncid, nested, "name", offsetof(Nested, name), NC_STRING));
    require(nc_insert_compound(ncid, nested, "words", offsetof(Nested, words), words));
    require(nc_insert_compound(ncid, nested, "sky", offsetof(Nested, sky), sky));
    require(nc_insert_compound(ncid, nested, "blob", offsetof(Nested, blob), blob));
    require(nc_insert_array_compound(ncid, nested, "counts", offsetof(Nested, counts), NC_SHORT, 1,
                                     &two));
    int variable = 0;
    require(nc_def_var(ncid, "u", nested, 1, &x, &variable));

    char one[] = "one";
    char* list[] = {one, one};
    const Nested value = {one, {2, list}, 1, {1, 2, 3}, {4, 5}};
    const Nested both[] = {value, value};
    require(nc_put_att(ncid, variable, "typed", nested, 2, both));
}

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
        require(nc_insert_enum(file.ncid(), xtype, "a", &zero));
    else if (operation.name == "defCompound")
        require(nc_insert_compound(file.ncid(), xtype, "a", 0, NC_INT));
}

} // namespace faults
