// SPDX-License-Identifier: BSD-3-Clause
// Reading and writing attributes of any type.
#include "any/any_arguments.h"
#include "check_status.h"
#include "convert/argument_readers.h"
#include "data/elements/fill_attributes.h"
#include "error_identifiers.h"
#include "library/guards/generated_attributes.h"
#include "library/guards/mismatched_fill_values.h"
#include "types/value_reading.h"
#include "types/value_writing.h"
#include "types/variable_values.h"

#include <algorithm>

namespace Ovard::gridio::anyOperations {
namespace {

struct Attribute {
    int ncid;
    int varid;
    std::string name;
    std::size_t length;
    const OperationEntry* entry;
};

// Numbers and characters are read into a buffer that is large enough for the attributes that the
// library generates.
vxArray* readElements(const Attribute& attribute, const Type& type)
{
    const std::size_t bytes = attribute.length * type.size;
    const HostMemory<char> buffer(
        static_cast<char*>(vxCalloc(bytes + leastAttributeBytes, sizeof(char))));
    checkStatus(
        type.element->getAtt(attribute.ncid, attribute.varid, attribute.name.c_str(), buffer.get()),
        attribute.entry);
    return readValues(type, {buffer.get(), attribute.length, type.size}, {{attribute.length}, true},
                      EnumerationForm::integers);
}

} // namespace

void getAtt(int nlhs, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    Attribute attribute{ncid, varid, readText(args[2], "attribute"), 0, entry};

    nc_type xtype = NC_NAT;
    checkStatus(nc_inq_att(ncid, varid, attribute.name.c_str(), &xtype, &attribute.length), entry);
    const TypeTree types(ncid, xtype, entry);
    const Type& type = types.root();
    if (type.kind == TypeKind::number || type.kind == TypeKind::character) {
        results[0] = readElements(attribute, type);
        return;
    }
    LibraryValues values(type, attribute.length);
    checkStatus(nc_get_att(ncid, varid, attribute.name.c_str(), values.data()), entry);
    const ValueShape shape{{attribute.length}, true};
    results[0] = readValues(type, values.places(), shape, EnumerationForm::integers);
    if (nlhs > 1 && type.holdsLabels)
        results[1] = readValues(type, values.places(), shape, EnumerationForm::labels);
}

void putAtt(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const std::string name = readText(args[2], "attribute");
    const nc_type xtype = readType(args[3], ncid, "xtype", entry);

    if (isGuardedFillValue(ncid, varid, name, entry))
        vxErrMsgId(netcdf::postCreationFillValueDefinition());
    const TypeTree types(ncid, xtype, entry);
    const Type& type = types.root();
    const std::size_t count = countValues(type, args[4]);
    const OutgoingValues values(type, args[4], count);
    requireWritable(ncid, type, entry);
    requireMatchingFillValue(ncid, varid, name, xtype, count, entry);
    checkStatus(nc_put_att(ncid, varid, name.c_str(), xtype, count, values.get()), entry);
}

} // namespace Ovard::gridio::anyOperations
