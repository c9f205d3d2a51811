// SPDX-License-Identifier: BSD-3-Clause
// Defining types of netCDF-4 files.
#include "any/any_arguments.h"
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "library/guards/unwritable_types.h"
#include "types/value_writing.h"

#include <algorithm>
#include <cstring>

namespace Ovard::gridio::anyOperations {
namespace {

void insertField(int ncid, nc_type xtype, const FieldPlan& plan, const OperationEntry* entry)
{
    requireNewField(ncid, xtype, plan, entry);
    checkStatus(nc_insert_array_compound(ncid, xtype, plan.name.c_str(), plan.offset, plan.xtype,
                                         static_cast<int>(plan.lengths.size()),
                                         plan.lengths.data()),
                entry);
}

} // namespace

void defEnum(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const nc_type base = readType(args[1], ncid, "base", entry);
    const std::string name = readText(args[2], "type");

    requireIntegerType(base, entry);
    requireFreeTypeName(ncid, name, entry);
    nc_type xtype = NC_NAT;
    checkStatus(nc_def_enum(ncid, base, name.c_str(), &xtype), entry);
    results[0] = intResult(xtype);
}

void insertEnum(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const nc_type xtype = readType(args[1], ncid, "xtype", entry);
    const std::string name = readText(args[2], "member");

    nc_type base = NC_NAT;
    checkStatus(nc_inq_enum(ncid, xtype, nullptr, &base, nullptr, nullptr), entry);
    const TypeTree types(ncid, base, entry);
    const OutgoingValues value(types.root(), args[3], 1);
    std::uint64_t bits = 0;
    std::memcpy(&bits, value.get(), types.root().size);
    requireNewMember(ncid, xtype, name, bits, entry);
    checkStatus(nc_insert_enum(ncid, xtype, name.c_str(), value.get()), entry);
}

void defCompound(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const std::size_t size = readSizeScalar(args[1], "size");
    const std::string name = readText(args[2], "type");

    requireWritableSize(size, entry);
    requireFreeTypeName(ncid, name, entry);
    nc_type xtype = NC_NAT;
    checkStatus(nc_def_compound(ncid, size, name.c_str(), &xtype), entry);
    results[0] = intResult(xtype);
}

void insertCompound(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const nc_type xtype = readType(args[1], ncid, "xtype", entry);
    const std::string name = readText(args[2], "field");
    const std::size_t offset = readSizeScalar(args[3], "offset");
    const nc_type fieldType = readType(args[4], ncid, "field type", entry);

    insertField(ncid, xtype, {name, offset, fieldType, {}}, entry);
}

// The lengths are given in the host's order.
void insertArrayCompound(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const nc_type xtype = readType(args[1], ncid, "xtype", entry);
    const std::string name = readText(args[2], "field");
    const std::size_t offset = readSizeScalar(args[3], "offset");
    const nc_type fieldType = readType(args[4], ncid, "field type", entry);
    std::vector<int> lengths = readIntList(args[5], "field lengths");

    std::reverse(lengths.begin(), lengths.end());
    insertField(ncid, xtype, {name, offset, fieldType, lengths}, entry);
}

void defVlen(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const std::string name = readText(args[1], "type");
    const nc_type base = readType(args[2], ncid, "base", entry);

    requireEarlierType(ncid, base, entry);
    requireFreeTypeName(ncid, name, entry);
    nc_type xtype = NC_NAT;
    checkStatus(nc_def_vlen(ncid, name.c_str(), base, &xtype), entry);
    results[0] = intResult(xtype);
}

void defOpaque(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const std::size_t size = readSizeScalar(args[1], "size");
    const std::string name = readText(args[2], "type");

    requireWritableSize(size, entry);
    requireFreeTypeName(ncid, name, entry);
    nc_type xtype = NC_NAT;
    checkStatus(nc_def_opaque(ncid, size, name.c_str(), &xtype), entry);
    results[0] = intResult(xtype);
}

} // namespace Ovard::gridio::anyOperations
