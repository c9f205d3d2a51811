// SPDX-License-Identifier: BSD-3-Clause
#include "tests/properties/planner.h"

#include "tests/properties/typed_library_calls.h"
#include "tests/support/library_file.h"

#include <algorithm>

namespace properties {
namespace {

using testsupport::require;

const Ovard::gridio::ElementType& elementOf(const std::string& suffix)
{
    return *std::find_if(std::begin(Ovard::gridio::elementTypes),
                         std::end(Ovard::gridio::elementTypes),
                         [&](const auto& element) { return element.suffix == suffix; });
}

std::vector<int> visibleDimensions(int ncid)
{
    int count = 0;
    require(nc_inq_dimids(ncid, &count, nullptr, 1));
    std::vector<int> ids(static_cast<std::size_t>(count));
    require(nc_inq_dimids(ncid, nullptr, ids.data(), 1));
    return ids;
}

// Of this group and of those it lies in.
bool isUnlimited(int ncid, int dimid)
{
    int count = 0;
    int ids[NC_MAX_DIMS];
    do {
        require(nc_inq_unlimdims(ncid, &count, ids));
        if (std::find(ids, ids + count, dimid) != ids + count)
            return true;
    } while (nc_inq_grp_parent(ncid, &ncid) == NC_NOERR);
    return false;
}

constexpr int noVariable = 99;
constexpr int noDimension = 99;

} // namespace

struct Planner::Action {
    std::size_t weight;
    void (Planner::*plan)();
};

std::vector<Call> Planner::plan(const Command& command)
{
    static constexpr Action actions[] = {
        {10, &Planner::putSubset},      {3, &Planner::putWhole},
        {9, &Planner::getSubset},       {4, &Planner::getWhole},
        {6, &Planner::defineVariable},  {4, &Planner::defineDimension},
        {5, &Planner::putAttribute},    {4, &Planner::getAttribute},
        {3, &Planner::changeAttribute}, {8, &Planner::inquire},
        {3, &Planner::defineStorage},   {2, &Planner::defineFill},
        {1, &Planner::defineUnfilled},  {1, &Planner::defineGroup},
        {3, &Planner::rename},          {2, &Planner::changeMode},
        {1, &Planner::reopen},
    };

    command_ = &command;
    nextChoice_ = 0;
    calls_.clear();
    if (reference_.groupCount() == 0) {
        add("create", {Number{format_.mode}});
        return calls_;
    }
    std::size_t total = 0;
    for (const Action& action : actions)
        total += action.weight;
    std::size_t place = command.action % total;
    const Action* action = actions;
    for (; place >= action->weight; ++action)
        place -= action->weight;
    (this->*action->plan)();
    return calls_;
}

void Planner::note(const Call& call, const Reply& reply)
{
    hasRenamed_ = call.form == "renameVar" || (hasRenamed_ && call.form != "create");
    if (!reply.failure.empty())
        return;
    if (call.form == "create" || call.form == "open")
        isNew_ = call.form == "create";
    if (call.form == "create" || call.form == "redef")
        isDefining_ = true;
    if (call.form == "open" || call.form == "endDef" || call.form == "pEndDef")
        isDefining_ = false;
}

std::size_t Planner::pick(std::size_t n)
{
    const std::size_t roll =
        nextChoice_ < command_->choices.size() ? command_->choices[nextChoice_++] : 0;
    return roll % std::max<std::size_t>(n, 1);
}

void Planner::add(const std::string& form, std::vector<Argument> arguments,
                  const std::string& suffix)
{
    calls_.push_back({form, suffix, std::move(arguments)});
}

// The mode that the next call needs; at times it is left as it is, and the call is refused.
void Planner::defining(bool wanted)
{
    if (wanted != isDefining_ && !rarely(8))
        add(wanted ? "redef" : "endDef", {Group{0}});
}

// --- Picking from what there is

bool Planner::isVariable(const Group& group, const std::string& name) const
{
    int varid = 0;
    return nc_inq_varid(reference_.ncid(group), name.c_str(), &varid) == NC_NOERR;
}

bool Planner::isDimension(const Group& group, const std::string& name) const
{
    int dimid = 0;
    return nc_inq_dimid(reference_.ncid(group), name.c_str(), &dimid) == NC_NOERR;
}

Planner::Variable Planner::pickVariable()
{
    Variable variable;
    variable.group = pickGroup();
    const int ncid = reference_.ncid(variable.group);
    int count = 0;
    require(nc_inq_nvars(ncid, &count));
    if (count == 0 || rarely(32)) {
        variable.varid = noVariable;
        variable.xtype = NC_INT;
        variable.lengths = {1};
        variable.unlimited = {false};
        return variable;
    }
    variable.varid = static_cast<int>(pick(static_cast<std::size_t>(count)));
    int ndims = 0;
    int dimids[NC_MAX_VAR_DIMS];
    require(nc_inq_var(ncid, variable.varid, nullptr, &variable.xtype, &ndims, dimids, nullptr));
    for (int i = 0; i < ndims; ++i) {
        variable.lengths.push_back(0);
        require(nc_inq_dimlen(ncid, dimids[i], &variable.lengths.back()));
        variable.unlimited.push_back(isUnlimited(ncid, dimids[i]));
    }
    return variable;
}

Number Planner::pickAttributeOwner(const Group& group)
{
    int count = 0;
    require(nc_inq_nvars(reference_.ncid(group), &count));
    return static_cast<Number>(pick(static_cast<std::size_t>(count) + 1)) - 1; // -1: the group
}

std::string Planner::pickSuffix(nc_type xtype)
{
    if (pick(2) == 0)
        return callsOfStoredType(xtype).suffix;
    return typedCalls[pick(typedCount - 1)].suffix;
}

std::string Planner::oddNameOr(const std::string& name)
{
    // Names of NC_MAX_NAME bytes are more than ncdump can print.
    static const std::string odd[] = {"na\xC3\xAFve",
                                      "a/b",
                                      "",
                                      std::string(NC_MAX_NAME - 16, 'n'),
                                      std::string(NC_MAX_NAME + 1, 'n'),
                                      "two words",
                                      "8th",
                                      " "};
    return rarely(16) ? odd[pick(std::size(odd))] : name;
}

// The library makes netCDF-4 files that it cannot close, loses data, or crashes, when a group or a
// variable without dimensions has the name of a dimension, when a dimension is given the name of
// a variable that exists, when one of the two is renamed, and when a dimension is renamed through a
// group inside its own, or in a file that was opened, not made; and when a variable, dimension
// or group is to be named in a file where a variable was renamed. What remains is the usual
// way: first the dimension, then a variable named after it.
std::string Planner::dimensionName(const Group& group)
{
    const std::string name = oddNameOr(oneOf({"x", "y", "t", "z", "row"}));
    return format_.isNetcdf4 && (hasRenamed_ || isVariable(group, name)) ? "different" : name;
}
std::string Planner::variableName(std::size_t rank)
{
    if (rank == 0 && format_.isNetcdf4)
        return oneOf({"scalar", "single"});
    return oddNameOr(oneOf({"x", "y", "t", "v", "w", "u"}));
}

// Not "_FillValue": of another type than its variable's, it makes classic files that the library
// cannot close. Its own action gives it the right one.
std::string Planner::attributeName() { return oddNameOr(oneOf({"a", "b", "units", "c"})); }

Elements Planner::pickElements(const std::string& suffix, std::size_t count)
{
    const Ovard::gridio::ElementType& element = elementOf(suffix);
    if (rarely(4))
        return {suffix, count, testsupport::sampleBytes(element, count)};
    const std::size_t first = pick(100);
    return {suffix, count,
            testsupport::countingBytes(element, first + count).substr(first * element.size)};
}

// --- Actions

void Planner::reopen()
{
    const bool aborts = rarely(8);
    add(aborts ? "abort" : "close", {Group{0}});
    // What was defined anew in a netCDF-4 file is half there when that is aborted: it may be one
    // that the library cannot read.
    if (aborts && format_.isNetcdf4)
        add("create", {Number{format_.mode}});
    else
        add("open", {Number{rarely(8) ? NC_NOWRITE : NC_WRITE}});
}

void Planner::defineDimension()
{
    defining(true);
    const auto length = static_cast<Number>(pick(6)); // 0: unlimited
    const Group group = pickGroup();
    add("defDim", {group, dimensionName(group), length});
}

void Planner::defineVariable()
{
    defining(true);
    const Group group = pickGroup();
    const std::vector<int> visible = visibleDimensions(reference_.ncid(group));
    Numbers dimids;
    // At most one unlimited dimension: where two of a netCDF-4 variable are longer than what was
    // written of it, the library, and ncdump with it, takes elements as they were for values.
    bool hasUnlimited = false;
    for (int rank = visible.empty() ? 0 : oneOf({1, 2, 0, 3, 2}); rank > 0; --rank) {
        const int dimid = visible[pick(visible.size())];
        const bool unlimited = isUnlimited(reference_.ncid(group), dimid);
        if (!unlimited || !hasUnlimited)
            dimids.push_back(dimid);
        hasUnlimited = hasUnlimited || unlimited;
    }
    if (rarely(32))
        dimids.push_back(noDimension);
    const nc_type xtype = rarely(32) ? 99 : typedCalls[pick(typedCount)].storedType;
    // Types that the format does not hold are asked for at times only.
    const nc_type held = format_.holds(xtype) || rarely(4) ? xtype : NC_DOUBLE;
    std::string name = variableName(dimids.size());
    if (format_.isNetcdf4 && (hasRenamed_ || (!isNew_ && isDimension(group, name))))
        name = "unlike";
    add("defVar", {group, name, Number{held}, dimids});
}

void Planner::defineGroup()
{
    defining(true);
    const std::string name = oneOf({"g", "h", "v"});
    add("defGrp", {pickGroup(), hasRenamed_ ? "unlike" : name});
}

void Planner::defineStorage()
{
    defining(true);
    const Variable variable = pickVariable();
    const Number varid = variable.varid;
    switch (pick(3)) {
    case 0: {
        Numbers sizes;
        for (const std::size_t length : variable.lengths)
            sizes.push_back(static_cast<Number>(1 + pick(length + 1)));
        if (varid == noVariable)
            sizes.clear();
        add("defVarChunking",
            {variable.group, varid, Number{oneOf({NC_CHUNKED, NC_CONTIGUOUS})}, sizes});
        break;
    }
    case 1: {
        const bool deflates = pick(4) != 0;
        add("defVarDeflate", {variable.group, varid, pick(2) != 0, deflates,
                              static_cast<Number>(deflates ? pick(11) : 0)});
        break;
    }
    default:
        add("defVarFletcher32", {variable.group, varid, static_cast<Number>(pick(2))});
    }
}

void Planner::defineFill()
{
    defining(true);
    const Variable variable = pickVariable();
    const Number varid = variable.varid;
    const std::string suffix = callsOfStoredType(variable.xtype).suffix;
    // A character from 0x80 up is deliberately stored as another byte than in text that is written.
    const Elements value = suffix == "Text" ? Elements{suffix, 1, "f"} : pickElements(suffix, 1);
    if (format_.formatCode == NC_FORMAT_NETCDF4 || pick(2) == 0)
        add("defVarFill", {variable.group, varid, false, value});
    else if (suffix == "Text")
        add("putAttText", {variable.group, varid, std::string("_FillValue"), value});
    else
        add("putAtt",
            {variable.group, varid, std::string("_FillValue"), Number{variable.xtype}, value},
            suffix);
}

// What was never filled nor written reads as anything: so the values follow at once.
void Planner::defineUnfilled()
{
    const Variable variable = pickVariable();
    const bool isFixed = std::find(variable.unlimited.begin(), variable.unlimited.end(), true) ==
                         variable.unlimited.end();
    if (variable.varid == noVariable || !isFixed) {
        add("setFill", {Group{0}, Number{NC_NOFILL}});
        add("setFill", {Group{0}, Number{NC_FILL}});
        return;
    }
    std::size_t count = 1;
    for (const std::size_t length : variable.lengths)
        count *= length;
    const std::string suffix = callsOfStoredType(variable.xtype).suffix;
    if (!isDefining_)
        add("redef", {Group{0}});
    add("defVarFill", {variable.group, Number{variable.varid}, true, pickElements(suffix, 1)});
    add("endDef", {Group{0}});
    add("putVar", {variable.group, Number{variable.varid}, pickElements(suffix, count)}, suffix);
}

void Planner::changeMode()
{
    switch (pick(4)) {
    case 0:
        return add("redef", {Group{0}});
    case 1:
        return add("endDef", {Group{0}});
    case 2:
        return add("sync", {Group{0}});
    default:
        add("pEndDef", {Group{0}, Number{oneOf({0, 100, 4096})}, Number{oneOf({4, 512})},
                        Number{oneOf({0, 64})}, Number{oneOf({4, 8})}});
    }
}

void Planner::putAttribute()
{
    defining(true);
    const Group group = pickGroup();
    const Number owner = pickAttributeOwner(group);
    const std::string name = attributeName();
    const std::size_t count = pick(7);
    if (rarely(3))
        return add("putAttText", {group, owner, name, pickElements("Text", count)});

    const TypedLibraryCalls& stored = typedCalls[pick(typedCount)];
    const std::string suffix = pick(2) == 0 && stored.suffix != "Text"
                                   ? stored.suffix
                                   : oneOf({"Double", "Ubyte", "Int", "Short", "Uint64"});
    add("putAtt", {group, owner, name, Number{stored.storedType}, pickElements(suffix, count)},
        suffix);
}

void Planner::getAttribute()
{
    const Group group = pickGroup();
    const Number owner = pickAttributeOwner(group);
    const std::string name = attributeName();
    nc_type xtype = NC_DOUBLE;
    static_cast<void>(nc_inq_atttype(reference_.ncid(group), static_cast<int>(owner), name.c_str(),
                                     &xtype)); // there may be none
    add("inqAtt", {group, owner, name});
    add("getAtt", {group, owner, name},
        pick(2) == 0 ? callsOfStoredType(xtype).suffix : typedCalls[pick(typedCount)].suffix);
}

void Planner::changeAttribute()
{
    const Group group = pickGroup();
    const Number owner = pickAttributeOwner(group);
    defining(true);
    switch (pick(3)) {
    case 0:
        return add("renameAtt", {group, owner, attributeName(), attributeName()});
    case 1:
        return add("delAtt", {group, owner, attributeName()});
    default: {
        const Group other = pickGroup();
        add("copyAtt", {group, owner, attributeName(), other, pickAttributeOwner(other)});
    }
    }
}

// Renaming in netCDF-4 files goes wrong in the same ways: of coordinate variables and their
// dimensions, in groups inside the file, and in files that were opened, not made.
bool Planner::isRenamedWell(const Group& group, const std::string& oldName,
                            const std::string& newName) const
{
    const auto isTaken = [&](const std::string& name) {
        return isVariable(group, name) || isDimension(group, name);
    };
    return !format_.isNetcdf4 || (isNew_ && !hasRenamed_ && group.index == 0 && !isTaken(newName) &&
                                  !(isVariable(group, oldName) && isDimension(group, oldName)));
}

void Planner::rename()
{
    defining(true);
    char name[NC_MAX_NAME + 1] = ""; // stays empty when there is nothing of that number
    if (pick(2) == 0) {
        const Variable variable = pickVariable();
        static_cast<void>(nc_inq_varname(reference_.ncid(variable.group), variable.varid, name));
        const std::string wanted = variableName(variable.lengths.size());
        if (isRenamedWell(variable.group, name, wanted))
            add("renameVar", {variable.group, Number{variable.varid}, wanted});
    } else {
        const Group group = pickGroup();
        std::vector<int> dimids = visibleDimensions(reference_.ncid(group));
        if (dimids.empty() || rarely(16))
            dimids = {noDimension};
        const int dimid = dimids[pick(dimids.size())];
        static_cast<void>(nc_inq_dimname(reference_.ncid(group), dimid, name));
        const std::string wanted = dimensionName(group);
        if (isRenamedWell(group, name, wanted))
            add("renameDim", {group, Number{dimid}, wanted});
    }
}

// The library is given no size: a whole write must have that of the variable.
void Planner::putWhole()
{
    defining(false);
    const Variable variable = pickVariable();
    std::size_t count = 1;
    for (const std::size_t length : variable.lengths)
        count *= length;
    const std::string suffix = pickSuffix(variable.xtype);
    if (count != 0)
        add("putVar", {variable.group, Number{variable.varid}, pickElements(suffix, count)},
            suffix);
}

void Planner::getWhole()
{
    defining(false);
    const Variable variable = pickVariable();
    add("getVar", {variable.group, Number{variable.varid}}, pickSuffix(variable.xtype));
}

void Planner::addSubset(Call& call, const Variable& variable, bool isWrite)
{
    const std::string word = oneOf({"Vara", "Vars", "Var1"});
    call.form = (isWrite ? "put" : "get") + word;
    Numbers start;
    Numbers count;
    Numbers stride;
    for (std::size_t i = 0; i < variable.lengths.size(); ++i) {
        const std::size_t length = variable.lengths[i] + (isWrite && variable.unlimited[i] ? 3 : 0);
        const std::size_t step = word == "Vars" ? 1 + pick(3) : 1;
        const std::size_t first = pick(length + (rarely(16) ? 2 : 0));
        const std::size_t most = length > first ? (length - first - 1) / step + 1 : 0;
        const std::size_t wanted = pick(most + 1) + (rarely(16) ? 1 : 0);
        start.push_back(static_cast<Number>(first));
        count.push_back(static_cast<Number>(isWrite ? std::max<std::size_t>(wanted, 1) : wanted));
        stride.push_back(rarely(32) ? oneOf({0, -1}) : static_cast<Number>(step));
    }
    call.arguments.emplace_back(start);
    if (word != "Var1")
        call.arguments.emplace_back(count);
    else
        count.assign(count.size(), 1);
    if (word == "Vars")
        call.arguments.emplace_back(stride);
    std::size_t product = 1;
    for (const Number n : count)
        product *= static_cast<std::size_t>(n);
    if (isWrite)
        call.arguments.emplace_back(pickElements(call.suffix, product));
}

void Planner::putSubset()
{
    defining(false);
    const Variable variable = pickVariable();
    if (variable.lengths.empty()) // there is no subset of a scalar
        return putWhole();
    Call call{"", pickSuffix(variable.xtype), {variable.group, Number{variable.varid}}};
    addSubset(call, variable, true);
    calls_.push_back(call);
}

void Planner::getSubset()
{
    defining(false);
    const Variable variable = pickVariable();
    if (variable.lengths.empty())
        return getWhole();
    Call call{"", pickSuffix(variable.xtype), {variable.group, Number{variable.varid}}};
    addSubset(call, variable, false);
    calls_.push_back(call);
}

void Planner::inquire()
{
    const Variable variable = pickVariable();
    const Group group = variable.group;
    const Number varid = variable.varid;
    switch (pick(20)) {
    case 0:
        return add("inqVar", {group, varid});
    case 1:
        return add("inqVarID", {group, variableName(pick(2))});
    case 2:
        return add("inqDim", {group, static_cast<Number>(pick(6))});
    case 3:
        return add("inqDimID", {group, dimensionName(group)});
    case 4:
        return add("inq", {group});
    case 5:
        return add("inqVarIDs", {group});
    case 6:
        return add("inqUnlimDims", {group});
    case 7:
        return add("inqDimIDs", {group, pick(2) != 0});
    case 8:
        return add("inqVarFill", {group, varid});
    case 9:
        return add("inqVarDeflate", {group, varid});
    case 10:
        return add("inqAttID", {group, pickAttributeOwner(group), attributeName()});
    case 11:
        return add("inqAttName", {group, pickAttributeOwner(group), static_cast<Number>(pick(4))});
    case 12:
        return add("inqGrps", {group});
    case 13:
        return add("inqGrpParent", {group});
    case 14:
        return add("inqNcid", {group, std::string(oneOf({"g", "h", "v"}))});
    case 15:
        return add("inqGrpName", {group});
    case 16:
        return add("inqGrpNameFull", {group});
    default:
        // Refused by the module itself in the classic formats.
        if (format_.isNetcdf4)
            add(oneOf({"inqVarChunking", "inqVarFletcher32"}), {group, varid});
    }
}

} // namespace properties
