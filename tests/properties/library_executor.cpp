// SPDX-License-Identifier: BSD-3-Clause
#include "tests/properties/library_executor.h"

#include "check_status.h"
#include "hosts/standalone/text.h"
#include "tests/properties/typed_library_calls.h"
#include "tests/support/library_file.h"

#include <algorithm>
#include <map>

namespace properties {
namespace {

using standalone::Dims;
using standalone::Value;
using testsupport::Bytes;

Reply reply(const Call& call, int status, std::vector<Value> results = {})
{
    if (status != NC_NOERR)
        return {call.operation() + ": " + Ovard::gridio::errorCodeName(status), {}};
    return {"", std::move(results)};
}

// --- Conversion of the library's results to a script's.

Dims hostShape(const std::vector<std::size_t>& lengths)
{
    Dims dims(lengths.rbegin(), lengths.rend());
    while (dims.size() < 2)
        dims.push_back(1);
    return dims;
}

template <class T> Value row(const std::vector<T>& numbers)
{
    return Value::row(std::vector<double>(numbers.begin(), numbers.end()));
}

template <class T> Value idRow(const std::vector<T>& ids)
{
    return ids.empty() ? Value::empty() : row(ids);
}

template <class T> Value reversed(const std::vector<T>& list)
{
    return row(std::vector<T>(list.rbegin(), list.rend()));
}

Value charRow(const char* text)
{
    const std::u16string units = standalone::toUtf16(text);
    return Value::text(Dims{1, units.size()}, units);
}

std::size_t productOf(const std::vector<std::size_t>& lengths)
{
    std::size_t product = 1;
    for (const std::size_t length : lengths)
        product *= length;
    return product;
}

// --- The calls, by the form of their names.

// A call with two faults may be refused for either. An operation that needs the shape or the type
// of a variable inquires it first, and so reports a missing variable first.
int askFor(const LibraryExecutor& file, const Call& c)
{
    int ndims = 0;
    return nc_inq_varndims(file.ncid(c.group(0)), c.number(1), &ndims);
}

Reply defDim(LibraryExecutor& file, const Call& c)
{
    int id = 0;
    const int status = nc_def_dim(file.ncid(c.group(0)), c.text(1), c.size(2), &id);
    return reply(c, status, {id});
}

Reply inqDim(LibraryExecutor& file, const Call& c)
{
    char name[NC_MAX_NAME + 1] = "";
    std::size_t length = 0;
    const int status = nc_inq_dim(file.ncid(c.group(0)), c.number(1), name, &length);
    return reply(c, status, {charRow(name), length});
}

Reply inqDimID(LibraryExecutor& file, const Call& c)
{
    int id = 0;
    const int status = nc_inq_dimid(file.ncid(c.group(0)), c.text(1), &id);
    return reply(c, status, {id});
}

Reply renameDim(LibraryExecutor& file, const Call& c)
{
    return reply(c, nc_rename_dim(file.ncid(c.group(0)), c.number(1), c.text(2)));
}

Reply defVar(LibraryExecutor& file, const Call& c)
{
    const std::vector<int> dimids = c.list<int>(3);
    int id = 0;
    const int status = nc_def_var(file.ncid(c.group(0)), c.text(1), c.number(2),
                                  static_cast<int>(dimids.size()), dimids.data(), &id);
    return reply(c, status, {id});
}

Reply inqVar(LibraryExecutor& file, const Call& c)
{
    char name[NC_MAX_NAME + 1] = "";
    nc_type xtype = NC_NAT;
    int ndims = 0;
    int dimids[NC_MAX_VAR_DIMS];
    int natts = 0;
    const int status =
        nc_inq_var(file.ncid(c.group(0)), c.number(1), name, &xtype, &ndims, dimids, &natts);
    std::vector<int> ids(dimids, dimids + ndims);
    std::reverse(ids.begin(), ids.end());
    return reply(c, status, {charRow(name), xtype, idRow(ids), natts});
}

Reply inqVarID(LibraryExecutor& file, const Call& c)
{
    int id = 0;
    const int status = nc_inq_varid(file.ncid(c.group(0)), c.text(1), &id);
    return reply(c, status, {id});
}

Reply renameVar(LibraryExecutor& file, const Call& c)
{
    return reply(c, nc_rename_var(file.ncid(c.group(0)), c.number(1), c.text(2)));
}

Reply defVarChunking(LibraryExecutor& file, const Call& c)
{
    if (c.number(2) == NC_CHUNKED) {
        if (const int status = askFor(file, c))
            return reply(c, status);
    }
    const std::vector<std::size_t> sizes = c.list<std::size_t>(3);
    return reply(c, nc_def_var_chunking(file.ncid(c.group(0)), c.number(1), c.number(2),
                                        sizes.empty() ? nullptr : sizes.data()));
}

Reply inqVarChunking(LibraryExecutor& file, const Call& c)
{
    int ndims = 0;
    int storage = 0;
    int status = nc_inq_varndims(file.ncid(c.group(0)), c.number(1), &ndims);
    if (status != NC_NOERR)
        return reply(c, status);
    std::vector<std::size_t> sizes(static_cast<std::size_t>(ndims));
    status = nc_inq_var_chunking(file.ncid(c.group(0)), c.number(1), &storage, sizes.data());
    return storage == NC_CHUNKED ? reply(c, status, {"chunked", reversed(sizes)})
                                 : reply(c, status, {"contiguous", Value::empty()});
}

Reply defVarDeflate(LibraryExecutor& file, const Call& c)
{
    return reply(c, nc_def_var_deflate(file.ncid(c.group(0)), c.number(1), c.flag(2), c.flag(3),
                                       c.number(4)));
}

Reply inqVarDeflate(LibraryExecutor& file, const Call& c)
{
    int shuffle = 0;
    int deflate = 0;
    int level = 0;
    const int status =
        nc_inq_var_deflate(file.ncid(c.group(0)), c.number(1), &shuffle, &deflate, &level);
    return reply(c, status, {shuffle != 0, deflate != 0, deflate != 0 ? level : 0});
}

Reply defVarFletcher32(LibraryExecutor& file, const Call& c)
{
    return reply(c, nc_def_var_fletcher32(file.ncid(c.group(0)), c.number(1), c.number(2)));
}

Reply inqVarFletcher32(LibraryExecutor& file, const Call& c)
{
    int setting = 0;
    const int status = nc_inq_var_fletcher32(file.ncid(c.group(0)), c.number(1), &setting);
    return reply(c, status, {setting == NC_FLETCHER32 ? "FLETCHER32" : "NOCHECKSUM"});
}

Reply defVarFill(LibraryExecutor& file, const Call& c)
{
    const bool noFill = c.flag(2) != 0;
    if (const int status = noFill ? NC_NOERR : askFor(file, c))
        return reply(c, status);
    return reply(c,
                 nc_def_var_fill(file.ncid(c.group(0)), c.number(1), noFill ? NC_NOFILL : NC_FILL,
                                 noFill ? nullptr : c.elements(3).bytes.data()));
}

Reply inqVarFill(LibraryExecutor& file, const Call& c)
{
    nc_type xtype = NC_NAT;
    int status = nc_inq_vartype(file.ncid(c.group(0)), c.number(1), &xtype);
    if (status != NC_NOERR)
        return reply(c, status);
    const TypedLibraryCalls& typed = callsOfStoredType(xtype);
    Bytes value(typed.size, '\0');
    int noFill = 0;
    status = nc_inq_var_fill(file.ncid(c.group(0)), c.number(1), &noFill, value.data());
    const Value fill =
        xtype == NC_CHAR // deliberately not as text is read: no sign extension
            ? Value::text(Dims{1, 1}, std::u16string(1, static_cast<unsigned char>(value[0])))
            : testsupport::valueOfBytes(typed.hostClass, {1, 1}, value);
    return reply(c, status, {noFill != 0, fill});
}

Reply putAtt(LibraryExecutor& file, const Call& c)
{
    const Elements& values = c.elements(4);
    return reply(c, typedLibraryCalls(c.suffix).putAtt(file.ncid(c.group(0)), c.number(1),
                                                       c.text(2), c.number(3), values.count,
                                                       values.bytes.data()));
}

Reply putAttText(LibraryExecutor& file, const Call& c)
{
    const Elements& values = c.elements(3);
    return reply(c, nc_put_att_text(file.ncid(c.group(0)), c.number(1), c.text(2), values.count,
                                    values.bytes.data()));
}

Reply getAtt(LibraryExecutor& file, const Call& c)
{
    std::size_t length = 0;
    int status = nc_inq_attlen(file.ncid(c.group(0)), c.number(1), c.text(2), &length);
    if (status != NC_NOERR)
        return reply(c, status);
    const TypedLibraryCalls& typed = typedLibraryCalls(c.suffix);
    Bytes values(length * typed.size, '\0');
    status = typed.getAtt(file.ncid(c.group(0)), c.number(1), c.text(2), values.data());
    if (typed.hostClass == vxCHAR_CLASS)
        return reply(c, status, {charRow(values.c_str())});
    const Dims dims = length == 0 ? Dims{0, 0} : Dims{1, length};
    return reply(c, status, {testsupport::valueOfBytes(typed.hostClass, dims, values)});
}

Reply inqAtt(LibraryExecutor& file, const Call& c)
{
    nc_type xtype = NC_NAT;
    std::size_t length = 0;
    const int status = nc_inq_att(file.ncid(c.group(0)), c.number(1), c.text(2), &xtype, &length);
    return reply(c, status, {xtype, length});
}

Reply inqAttID(LibraryExecutor& file, const Call& c)
{
    int id = 0;
    const int status = nc_inq_attid(file.ncid(c.group(0)), c.number(1), c.text(2), &id);
    return reply(c, status, {id});
}

Reply inqAttName(LibraryExecutor& file, const Call& c)
{
    char name[NC_MAX_NAME + 1] = "";
    const int status = nc_inq_attname(file.ncid(c.group(0)), c.number(1), c.number(2), name);
    return reply(c, status, {charRow(name)});
}

Reply renameAtt(LibraryExecutor& file, const Call& c)
{
    return reply(c, nc_rename_att(file.ncid(c.group(0)), c.number(1), c.text(2), c.text(3)));
}

Reply delAtt(LibraryExecutor& file, const Call& c)
{
    return reply(c, nc_del_att(file.ncid(c.group(0)), c.number(1), c.text(2)));
}

Reply copyAtt(LibraryExecutor& file, const Call& c)
{
    return reply(c, nc_copy_att(file.ncid(c.group(0)), c.number(1), c.text(2),
                                file.ncid(c.group(3)), c.number(4)));
}

std::vector<std::size_t> lengthsOf(int ncid, int varid)
{
    int ndims = 0;
    if (nc_inq_varndims(ncid, varid, &ndims) != NC_NOERR)
        return {}; // to be reported by the read itself
    std::vector<int> dimids(static_cast<std::size_t>(ndims));
    testsupport::require(nc_inq_vardimid(ncid, varid, dimids.data()));
    std::vector<std::size_t> lengths;
    for (const int dimid : dimids) {
        lengths.push_back(0);
        testsupport::require(nc_inq_dimlen(ncid, dimid, &lengths.back()));
    }
    return lengths;
}

// START, COUNT and STRIDE: missing ones are all ones.
struct Subset {
    std::vector<std::size_t> start;
    std::vector<std::size_t> count;
    std::vector<std::ptrdiff_t> stride;
};

Subset subsetOf(const Call& c)
{
    const bool isWrite = c.form.compare(0, 3, "put") == 0;
    const std::size_t lists = c.arguments.size() - (isWrite ? 3 : 2);
    Subset subset;
    subset.start = c.list<std::size_t>(2);
    const std::size_t rank = subset.start.size();
    subset.count = lists > 1 ? c.list<std::size_t>(3) : std::vector<std::size_t>(rank, 1);
    subset.stride = lists > 2 ? c.list<std::ptrdiff_t>(4) : std::vector<std::ptrdiff_t>(rank, 1);
    return subset;
}

// In which way a call out of bounds is refused differs among the library's functions for one value,
// a block and a strided block; the module uses the last for all three, deliberately. Where the
// function of the operation's own name gives values, they have to be the same.
// Blocks of netCDF-4 variables that are shorter than their unlimited dimensions are misread by the
// library, single elements are not. Reads the elements of a block that the library has read, one by
// one in the order of storage, and returns the status that the block should have had.
int mendBlock(const TypedLibraryCalls& typed, int ncid, int varid, const Subset& block, int status,
              Bytes& values)
{
    int model = NC_FORMATX_UNDEFINED;
    testsupport::require(nc_inq_format_extended(ncid, &model, nullptr));
    if (model != NC_FORMATX_NC_HDF5 || (status != NC_NOERR && status != NC_ERANGE))
        return status;

    int blockStatus = NC_NOERR;
    std::vector<std::size_t> index(block.start.size());
    for (std::size_t done = 0; done < values.size(); done += typed.size) {
        std::size_t rest = done / typed.size;
        for (std::size_t i = index.size(); i-- > 0; rest /= block.count[i])
            index[i] =
                block.start[i] + rest % block.count[i] * static_cast<std::size_t>(block.stride[i]);
        const int elementStatus = typed.getVar1(ncid, varid, index.data(), &values[done]);
        if (elementStatus == NC_ERANGE)
            blockStatus = elementStatus;
        else
            testsupport::require(elementStatus);
    }
    return blockStatus;
}

Reply getVar(LibraryExecutor& file, const Call& c)
{
    const TypedLibraryCalls& typed = typedLibraryCalls(c.suffix);
    const std::vector<std::size_t> lengths = lengthsOf(file.ncid(c.group(0)), c.number(1));
    Bytes values(productOf(lengths) * typed.size, '\0');
    int status = typed.getVar(file.ncid(c.group(0)), c.number(1), values.data());
    if (!values.empty()) {
        const std::vector<std::size_t> first(lengths.size(), 0);
        const std::vector<std::ptrdiff_t> ones(lengths.size(), 1);
        status = mendBlock(typed, file.ncid(c.group(0)), c.number(1), {first, lengths, ones},
                           status, values);
        return reply(c, status,
                     {testsupport::valueOfBytes(typed.hostClass, hostShape(lengths), values)});
    }

    nc_type xtype = NC_NAT;
    testsupport::require(nc_inq_vartype(file.ncid(c.group(0)), c.number(1), &xtype));
    const bool isText = typed.hostClass == vxCHAR_CLASS && xtype != NC_CHAR;
    const vxClassID classId = xtype == NC_CHAR ? vxCHAR_CLASS
                              : isText         ? vxUNKNOWN_CLASS
                                               : typed.hostClass;
    return reply(c, status, {Value::empty(classId)});
}

Reply putVar(LibraryExecutor& file, const Call& c)
{
    if (const int status = askFor(file, c))
        return reply(c, status);
    return reply(c, typedLibraryCalls(c.suffix).putVar(file.ncid(c.group(0)), c.number(1),
                                                       c.elements(2).bytes.data()));
}

Reply getVarSubset(LibraryExecutor& file, const Call& c)
{
    if (const int status = askFor(file, c))
        return reply(c, status);
    const TypedLibraryCalls& typed = typedLibraryCalls(c.suffix);
    const int ncid = file.ncid(c.group(0));
    const int varid = c.number(1);
    const Subset s = subsetOf(c);
    Bytes values(productOf(s.count) * typed.size, '\0');
    int status =
        typed.getVars(ncid, varid, s.start.data(), s.count.data(), s.stride.data(), values.data());

    Bytes own(values.size(), '\0');
    int ownStatus = NC_EINVAL;
    if (c.form == "getVar1")
        ownStatus = typed.getVar1(ncid, varid, s.start.data(), own.data());
    else if (c.form == "getVara")
        ownStatus = typed.getVara(ncid, varid, s.start.data(), s.count.data(), own.data());
    if (status == NC_NOERR && ownStatus == NC_NOERR && own != values)
        return {"the library's functions disagree", {}};
    status = mendBlock(typed, ncid, varid, s, status, values);
    return reply(c, status,
                 {testsupport::valueOfBytes(typed.hostClass, hostShape(s.count), values)});
}

Reply putVarSubset(LibraryExecutor& file, const Call& c)
{
    if (const int status = askFor(file, c))
        return reply(c, status);
    const Subset s = subsetOf(c);
    return reply(c, typedLibraryCalls(c.suffix).putVars(
                        file.ncid(c.group(0)), c.number(1), s.start.data(), s.count.data(),
                        s.stride.data(), c.elements(c.arguments.size() - 1).bytes.data()));
}

Reply defGrp(LibraryExecutor& file, const Call& c)
{
    int group = 0;
    const int status = nc_def_grp(file.ncid(c.group(0)), c.text(1), &group);
    if (status != NC_NOERR)
        return reply(c, status);
    file.addGroup(group);
    return reply(c, status, {file.placeOf(group)});
}

Reply inqGrps(LibraryExecutor& file, const Call& c)
{
    int count = 0;
    int status = nc_inq_grps(file.ncid(c.group(0)), &count, nullptr);
    if (status != NC_NOERR)
        return reply(c, status);
    std::vector<int> ids(static_cast<std::size_t>(count));
    status = nc_inq_grps(file.ncid(c.group(0)), nullptr, ids.data());
    std::vector<double> places;
    for (const int id : ids)
        places.push_back(file.placeOf(id));
    return reply(c, status, {idRow(places)});
}

Reply inqGrpParent(LibraryExecutor& file, const Call& c)
{
    int parent = 0;
    const int status = nc_inq_grp_parent(file.ncid(c.group(0)), &parent);
    return reply(c, status, {file.placeOf(parent)});
}

Reply inqNcid(LibraryExecutor& file, const Call& c)
{
    int group = 0;
    const int status = nc_inq_ncid(file.ncid(c.group(0)), c.text(1), &group);
    return reply(c, status, {file.placeOf(group)});
}

Reply inqGrpName(LibraryExecutor& file, const Call& c)
{
    char name[NC_MAX_NAME + 1] = "";
    const int status = nc_inq_grpname(file.ncid(c.group(0)), name);
    return reply(c, status, {charRow(name)});
}

Reply inqGrpNameFull(LibraryExecutor& file, const Call& c)
{
    std::size_t length = 0;
    int status = nc_inq_grpname_len(file.ncid(c.group(0)), &length);
    if (status != NC_NOERR)
        return reply(c, status);
    std::string name(length, '\0');
    status = nc_inq_grpname_full(file.ncid(c.group(0)), &length, name.data());
    return reply(c, status, {charRow(name.c_str())});
}

Reply inq(LibraryExecutor& file, const Call& c)
{
    int counts[4] = {};
    const int status =
        nc_inq(file.ncid(c.group(0)), &counts[0], &counts[1], &counts[2], &counts[3]);
    return reply(c, status, {counts[0], counts[1], counts[2], counts[3]});
}

template <int (*inquire)(int, int*, int*)> Reply inquireIds(LibraryExecutor& file, const Call& c)
{
    int ids[NC_MAX_VARS];
    int count = 0;
    const int status = inquire(file.ncid(c.group(0)), &count, ids);
    return reply(c, status, {idRow(std::vector<int>(ids, ids + count))});
}

Reply inqDimIDs(LibraryExecutor& file, const Call& c)
{
    int ids[NC_MAX_DIMS];
    int count = 0;
    const int status = nc_inq_dimids(file.ncid(c.group(0)), &count, ids, c.flag(1));
    return reply(c, status, {idRow(std::vector<int>(ids, ids + count))});
}

Reply setFill(LibraryExecutor& file, const Call& c)
{
    int old = 0;
    const int status = nc_set_fill(file.ncid(c.group(0)), c.number(1), &old);
    return reply(c, status, {old});
}

Reply pEndDef(LibraryExecutor& file, const Call& c)
{
    return reply(c, nc__enddef(file.ncid(c.group(0)), c.size(1), c.size(2), c.size(3), c.size(4)));
}

template <int (*change)(int)> Reply changeState(LibraryExecutor& file, const Call& c)
{
    return reply(c, change(file.ncid(c.group(0))));
}

template <int (*end)(int)> Reply endFile(LibraryExecutor& file, const Call& c)
{
    const Reply ended = changeState<end>(file, c);
    file.forgetFile(); // after a failure, too: a second attempt may crash
    return ended;
}

template <int (*begin)(const char*, int, int*)>
Reply beginFile(LibraryExecutor& file, const Call& c)
{
    int ncid = 0;
    const int status = begin(file.path().c_str(), c.number(0), &ncid);
    if (status == NC_NOERR)
        file.numberGroups(ncid);
    return reply(c, status);
}

using Form = Reply (*)(LibraryExecutor&, const Call&);

const std::map<std::string, Form>& forms()
{
    static const std::map<std::string, Form> table = {
        {"defDim", defDim},
        {"inqDim", inqDim},
        {"inqDimID", inqDimID},
        {"renameDim", renameDim},
        {"defVar", defVar},
        {"inqVar", inqVar},
        {"inqVarID", inqVarID},
        {"renameVar", renameVar},
        {"defVarChunking", defVarChunking},
        {"inqVarChunking", inqVarChunking},
        {"defVarDeflate", defVarDeflate},
        {"inqVarDeflate", inqVarDeflate},
        {"defVarFletcher32", defVarFletcher32},
        {"inqVarFletcher32", inqVarFletcher32},
        {"defVarFill", defVarFill},
        {"inqVarFill", inqVarFill},
        {"putAtt", putAtt},
        {"putAttText", putAttText},
        {"getAtt", getAtt},
        {"inqAtt", inqAtt},
        {"inqAttID", inqAttID},
        {"inqAttName", inqAttName},
        {"renameAtt", renameAtt},
        {"delAtt", delAtt},
        {"copyAtt", copyAtt},
        {"getVar", getVar},
        {"putVar", putVar},
        {"getVar1", getVarSubset},
        {"getVara", getVarSubset},
        {"getVars", getVarSubset},
        {"putVar1", putVarSubset},
        {"putVara", putVarSubset},
        {"putVars", putVarSubset},
        {"defGrp", defGrp},
        {"inqGrps", inqGrps},
        {"inqGrpParent", inqGrpParent},
        {"inqNcid", inqNcid},
        {"inqGrpName", inqGrpName},
        {"inqGrpNameFull", inqGrpNameFull},
        {"inq", inq},
        {"inqVarIDs", inquireIds<nc_inq_varids>},
        {"inqUnlimDims", inquireIds<nc_inq_unlimdims>},
        {"inqDimIDs", inqDimIDs},
        {"setFill", setFill},
        {"endDef", changeState<nc_enddef>},
        {"pEndDef", pEndDef},
        {"redef", changeState<nc_redef>},
        {"sync", changeState<nc_sync>},
        {"create", beginFile<nc_create>},
        {"open", beginFile<nc_open>},
        {"close", endFile<nc_close>},
        {"abort", endFile<nc_abort>},
    };
    return table;
}

} // namespace

LibraryExecutor::~LibraryExecutor()
{
    if (!groups_.empty())
        static_cast<void>(nc_close(groups_[0])); // a program that was cut short
}

double LibraryExecutor::placeOf(int ncid) const
{
    return static_cast<double>(std::find(groups_.begin(), groups_.end(), ncid) - groups_.begin());
}

void LibraryExecutor::numberGroups(int ncid)
{
    groups_.push_back(ncid);
    int count = 0;
    testsupport::require(nc_inq_grps(ncid, &count, nullptr));
    std::vector<int> ids(static_cast<std::size_t>(count));
    testsupport::require(nc_inq_grps(ncid, nullptr, ids.data()));
    for (const int id : ids)
        numberGroups(id);
}

Reply LibraryExecutor::run(const Call& call) { return forms().at(call.form)(*this, call); }

} // namespace properties
