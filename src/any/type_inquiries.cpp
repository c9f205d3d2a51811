// SPDX-License-Identifier: BSD-3-Clause
// Listing and describing types.
#include "any/any_arguments.h"
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/id_list.h"
#include "convert/result_builders.h"
#include "library/guards/mistaken_compounds.h"
#include "library/guards/oversized_names.h"
#include "types/value_reading.h"

#include <algorithm>

namespace Ovard::gridio::anyOperations {
namespace {

constexpr Word typeClasses[] = {
    {"vlen", NC_VLEN}, {"opaque", NC_OPAQUE}, {"enum", NC_ENUM}, {"compound", NC_COMPOUND}};

} // namespace

void inqTypeIDs(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    results[0] =
        inquireIdRow(entry, [=](int* count, int* ids) { return nc_inq_typeids(ncid, count, ids); });
}

void inqType(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const nc_type xtype = readType(args[1], ncid, "xtype", entry);

    checkStatus(nc_inq_format(ncid, nullptr), entry); // ignored for the library's own types
    char* name = nameBuffer();
    std::size_t size = 0;
    checkStatus(nc_inq_type(ncid, xtype, name, &size), entry);
    results[0] = textResult(name);
    results[1] = sizeResult(size);
}

void inqTypeID(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const std::string name = readText(args[1], "type");

    nc_type xtype = NC_NAT;
    checkStatus(nc_inq_typeid(ncid, name.c_str(), &xtype), entry);
    results[0] = intResult(xtype);
}

void inqTypeEqual(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid1 = readNcid(args[0]);
    const nc_type xtype1 = readType(args[1], ncid1, "xtype", entry);
    const int ncid2 = readNcid(args[2]);
    const nc_type xtype2 = readType(args[3], ncid2, "xtype", entry);

    int equal = 0;
    checkStatus(nc_inq_type_equal(ncid1, xtype1, ncid2, xtype2, &equal), entry);
    results[0] = flagResult(equal != 0);
}

void inqUserType(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const nc_type xtype = readType(args[1], ncid, "xtype", entry);

    char* name = nameBuffer();
    std::size_t size = 0;
    nc_type base = NC_NAT;
    std::size_t parts = 0;
    int typeClass = 0;
    checkStatus(nc_inq_user_type(ncid, xtype, name, &size, &base, &parts, &typeClass), entry);
    results[0] = textResult(name);
    results[1] = sizeResult(size);
    results[2] = intResult(base);
    results[3] = sizeResult(parts);
    results[4] = wordResult(typeClass, typeClasses);
}

void inqCompound(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const nc_type xtype = readType(args[1], ncid, "xtype", entry);

    char* name = nameBuffer();
    std::size_t size = 0;
    std::size_t fields = 0;
    checkStatus(nc_inq_compound(ncid, xtype, name, &size, &fields), entry);
    results[0] = textResult(name);
    results[1] = sizeResult(size);
    results[2] = sizeResult(fields);
}

// The lengths of an array field are listed in the host's order.
void inqCompoundField(int, vxArray* results[], int, const vxArray* args[],
                      const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const nc_type xtype = readType(args[1], ncid, "xtype", entry);
    const int fieldid = readIntScalar(args[2], "fieldid");

    requireCompound(ncid, xtype, entry);
    int rank = 0;
    checkStatus(nc_inq_compound_fieldndims(ncid, xtype, fieldid, &rank), entry);
    std::vector<int> lengths(static_cast<std::size_t>(std::max(rank, 0)));
    char* name = nameBuffer();
    std::size_t offset = 0;
    nc_type fieldType = NC_NAT;
    checkStatus(nc_inq_compound_field(ncid, xtype, fieldid, name, &offset, &fieldType, nullptr,
                                      lengths.empty() ? nullptr : lengths.data()),
                entry);
    results[0] = textResult(name);
    results[1] = sizeResult(offset);
    results[2] = intResult(fieldType);
    results[3] = idVectorToRow({lengths.rbegin(), lengths.rend()});
}

void inqEnum(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const nc_type xtype = readType(args[1], ncid, "xtype", entry);

    char* name = nameBuffer();
    nc_type base = NC_NAT;
    std::size_t size = 0;
    std::size_t members = 0;
    checkStatus(nc_inq_enum(ncid, xtype, name, &base, &size, &members), entry);
    results[0] = textResult(name);
    results[1] = intResult(base);
    results[2] = sizeResult(size);
    results[3] = sizeResult(members);
}

// The value has the class of the enumeration's integers.
void inqEnumMember(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const nc_type xtype = readType(args[1], ncid, "xtype", entry);
    const int index = readIntScalar(args[2], "index");

    nc_type base = NC_NAT;
    checkStatus(nc_inq_enum(ncid, xtype, nullptr, &base, nullptr, nullptr), entry);
    const TypeTree types(ncid, base, entry);
    char* name = nameBuffer();
    char value[8] = {};
    checkStatus(nc_inq_enum_member(ncid, xtype, index, name, value), entry);
    results[0] = textResult(name);
    results[1] = readValues(types.root(), {value, 1, sizeof value}, {}, EnumerationForm::integers);
}

void inqEnumIdent(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const nc_type xtype = readType(args[1], ncid, "xtype", entry);
    const long value = readInt64Scalar(args[2], "value");

    char* name = nameBuffer();
    checkStatus(nc_inq_enum_ident(ncid, xtype, value, name), entry);
    results[0] = textResult(name);
}

void inqVlen(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const nc_type xtype = readType(args[1], ncid, "xtype", entry);

    char* name = nameBuffer();
    std::size_t size = 0;
    nc_type base = NC_NAT;
    checkStatus(nc_inq_vlen(ncid, xtype, name, &size, &base), entry);
    results[0] = textResult(name);
    results[1] = sizeResult(size);
    results[2] = intResult(base);
}

void inqOpaque(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const nc_type xtype = readType(args[1], ncid, "xtype", entry);

    char* name = nameBuffer();
    std::size_t size = 0;
    checkStatus(nc_inq_opaque(ncid, xtype, name, &size), entry);
    results[0] = textResult(name);
    results[1] = sizeResult(size);
}

} // namespace Ovard::gridio::anyOperations
