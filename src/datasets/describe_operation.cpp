// SPDX-License-Identifier: BSD-3-Clause
// Everything in a file except its values, in one call: groups, dimensions, variables and
// attributes.
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "datasets/structure_result.h"
#include "library/guards/oversized_names.h"
#include "types/attribute_values.h"
#include "vx/error.h"

#include <netcdf.h>

#include <algorithm>
#include <unordered_map>

namespace Ovard::gridio::datasetOperations {
namespace {

using IdList = std::vector<int>;
using Places = std::unordered_map<int, double>; // of dimensions in the list, by identifier

template <class Inquire> IdList idsOf(const OperationEntry* entry, const Inquire& inquire)
{
    int count = 0;
    checkStatus(inquire(&count, nullptr), entry);
    IdList ids(static_cast<std::size_t>(count));
    checkStatus(inquire(nullptr, ids.data()), entry);
    return ids;
}

// The group without a parent; files without groups have only that.
int rootOf(int group, const OperationEntry* entry)
{
    for (;;) {
        int parent = 0;
        const int status = nc_inq_grp_parent(group, &parent);
        if (status == NC_ENOGRP || status == NC_ENOTNC4)
            return group;
        checkStatus(status, entry);
        group = parent;
    }
}

// A value that cannot be read, since its type is damaged, is empty, so that the rest is not lost.
// Only errors of the module are caught.
vxArray* valueOf(const AttributeName& name, const OperationEntry* entry)
{
    try {
        return Attribute(name, entry).read(EnumerationForm::integers);
    } catch (const fnd::except::IMsgIDException&) {
        return vxCreateCharArray(0, nullptr);
    }
}

// An n-by-2 cell array of names and values.
vxArray* attributesOf(int ncid, int varid, int count, const OperationEntry* entry)
{
    const auto rows = static_cast<std::size_t>(count);
    vxArray* cells = emptyCells(rows, 2);
    char* buffer = nameBuffer();
    for (int i = 0; i < count; ++i) {
        checkStatus(nc_inq_attname(ncid, varid, i, buffer), entry);
        const AttributeName name{ncid, varid, buffer};
        const auto row = static_cast<std::size_t>(i);
        vxSetCell(cells, row, textResult(name.name.c_str()));
        vxSetCell(cells, rows + row, valueOf(name, entry));
    }
    return cells;
}

// As "ncdump -k" prints it.
const char* formatText(int format)
{
    switch (format) {
    case NC_FORMAT_CLASSIC:
        return "classic";
    case NC_FORMAT_64BIT_OFFSET:
        return "64-bit offset";
    case NC_FORMAT_CDF5:
        return "cdf5";
    case NC_FORMAT_NETCDF4:
        return "netCDF-4";
    case NC_FORMAT_NETCDF4_CLASSIC:
        return "netCDF-4 classic model";
    default:
        return "unknown";
    }
}

struct TypeWords {
    std::string name;
    const char* kind;
};

TypeWords userType(int ncid, nc_type xtype, const OperationEntry* entry)
{
    int kind = 0;
    char* name = nameBuffer();
    checkStatus(nc_inq_user_type(ncid, xtype, name, nullptr, nullptr, nullptr, &kind), entry);
    switch (kind) {
    case NC_ENUM:
        return {name, "enum"};
    case NC_VLEN:
        return {name, "vlen"};
    case NC_COMPOUND:
        return {name, "compound"};
    default:
        return {name, "opaque"};
    }
}

TypeWords wordsOf(int ncid, nc_type xtype, const OperationEntry* entry)
{
    const char* name = atomicTypeName(xtype);
    if (name == nullptr)
        return userType(ncid, xtype, entry);
    return {name, xtype == NC_STRING ? "string" : xtype == NC_CHAR ? "char" : "number"};
}

// Gathers everything column by column. The host owns the cells of a list until they are inserted,
// and releases them if an error ends the call.
class Description {
public:
    Description(int root, const OperationEntry* entry) : entry_(entry)
    {
        addGroup(root, "/", 0);
        for (std::size_t i = 0; i < groupIds_.size(); ++i)
            addDimensions(i);
        for (std::size_t i = 0; i < groupIds_.size(); ++i)
            addVariables(i);
    }

    vxArray* groups() const
    {
        return structureResult({{"name", textColumn(groupNames_)},
                                {"ncid", numberColumn({groupIds_.begin(), groupIds_.end()})},
                                {"parent", numberColumn(parents_)},
                                {"attributes", cellColumn(groupAttributes_)}});
    }

    vxArray* dimensions() const
    {
        return structureResult({{"name", textColumn(dimensionNames_)},
                                {"group", numberColumn(dimensionGroups_)},
                                {"dimid", numberColumn(dimensionIds_)},
                                {"length", numberColumn(lengths_)},
                                {"isUnlimited", numberColumn(unlimited_)}});
    }

    vxArray* variables() const
    {
        return structureResult({{"name", textColumn(variableNames_)},
                                {"group", numberColumn(variableGroups_)},
                                {"varid", numberColumn(variableIds_)},
                                {"type", textColumn(types_)},
                                {"kind", textColumn(kinds_)},
                                {"dimensions", cellColumn(variableDimensions_)},
                                {"attributes", cellColumn(variableAttributes_)}});
    }

private:
    static vxArray* cellColumn(const std::vector<vxArray*>& values)
    {
        vxArray* cells = emptyCells(values.size(), 1);
        for (std::size_t i = 0; i < values.size(); ++i)
            vxSetCell(cells, i, values[i]);
        return cells;
    }

    // In the order of ncdump: each group is followed by those in it.
    void addGroup(int ncid, const std::string& name, std::size_t parent)
    {
        groupIds_.push_back(ncid);
        groupNames_.push_back(name);
        parents_.push_back(static_cast<double>(parent));
        int count = 0;
        checkStatus(nc_inq_natts(ncid, &count), entry_);
        groupAttributes_.push_back(attributesOf(ncid, NC_GLOBAL, count, entry_));

        const std::size_t own = groupIds_.size();
        for (const int inner :
             idsOf(entry_, [=](int*n, int*ids) { return nc_inq_grps(ncid, n, ids); })) {
            char innerName[NC_MAX_NAME + 1] = "";
            checkStatus(nc_inq_grpname(inner, innerName), entry_);
            addGroup(inner, (parent == 0 ? "/" : name + "/") + innerName, own);
        }
    }

    void addDimensions(std::size_t group)
    {
        const int ncid = groupIds_[group];
        const IdList unlimited =
            idsOf(entry_, [=](int* n, int* ids) { return nc_inq_unlimdims(ncid, n, ids); });
        for (const int dimid :
             idsOf(entry_, [=](int*n, int*ids) { return nc_inq_dimids(ncid, n, ids, 0); })) {
            std::size_t length = 0;
            char* name = nameBuffer();
            checkStatus(nc_inq_dim(ncid, dimid, name, &length), entry_);
            dimensionNames_.emplace_back(name);
            dimensionGroups_.push_back(static_cast<double>(group + 1));
            dimensionIds_.push_back(dimid);
            lengths_.push_back(static_cast<double>(length));
            const bool isUnlimited =
                std::find(unlimited.begin(), unlimited.end(), dimid) != unlimited.end();
            unlimited_.push_back(isUnlimited ? 1 : 0);
            places_[dimid] = static_cast<double>(dimensionIds_.size());
        }
    }

    void addVariables(std::size_t group)
    {
        const int ncid = groupIds_[group];
        for (const int varid :
             idsOf(entry_, [=](int*n, int*ids) { return nc_inq_varids(ncid, n, ids); })) {
            nc_type xtype = NC_NAT;
            int rank = 0;
            int attributes = 0;
            char* name = nameBuffer();
            checkStatus(nc_inq_var(ncid, varid, name, &xtype, &rank, nullptr, &attributes), entry_);
            variableNames_.emplace_back(name);
            variableGroups_.push_back(static_cast<double>(group + 1));
            variableIds_.push_back(varid);
            TypeWords words = wordsOf(ncid, xtype, entry_);
            types_.push_back(std::move(words.name));
            kinds_.emplace_back(words.kind);
            variableDimensions_.push_back(dimensionsOf(ncid, varid, rank));
            variableAttributes_.push_back(attributesOf(ncid, varid, attributes, entry_));
        }
    }

    // A row of places in the list, in the host's order. Raises NC_EBADDIM for a dimension that is
    // missing from a damaged file.
    vxArray* dimensionsOf(int ncid, int varid, int rank) const
    {
        IdList ids(static_cast<std::size_t>(rank));
        if (rank > 0)
            checkStatus(nc_inq_vardimid(ncid, varid, ids.data()), entry_);
        std::vector<double> row;
        for (auto id = ids.rbegin(); id != ids.rend(); ++id) {
            const auto found = places_.find(*id);
            if (found == places_.end())
                raiseLibraryFailure(NC_EBADDIM, entry_);
            row.push_back(found->second);
        }
        return numberRow(row);
    }

    const OperationEntry* entry_;
    IdList groupIds_;
    std::vector<std::string> groupNames_;
    std::vector<double> parents_; // from 1; 0 for none
    std::vector<vxArray*> groupAttributes_;
    Places places_;
    std::vector<std::string> dimensionNames_;
    std::vector<double> dimensionGroups_, dimensionIds_, lengths_, unlimited_;
    std::vector<std::string> variableNames_, types_, kinds_;
    std::vector<double> variableGroups_, variableIds_;
    std::vector<vxArray*> variableDimensions_, variableAttributes_;
};

std::string pathOf(int ncid, const OperationEntry* entry)
{
    std::size_t length = 0;
    checkStatus(nc_inq_path(ncid, &length, nullptr), entry);
    std::string path(length + 1, '\0');
    checkStatus(nc_inq_path(ncid, nullptr, path.data()), entry);
    path.pop_back(); // the NUL
    return path;
}

} // namespace

void describe(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    int format = 0;
    checkStatus(nc_inq_format(ncid, &format), entry);
    const Description description(rootOf(ncid, entry), entry);
    results[0] = structureResult({{"path", textResult(pathOf(ncid, entry).c_str())},
                                  {"format", textResult(formatText(format))},
                                  {"groups", description.groups()},
                                  {"dimensions", description.dimensions()},
                                  {"variables", description.variables()}});
}

} // namespace Ovard::gridio::datasetOperations
