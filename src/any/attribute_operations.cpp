// SPDX-License-Identifier: BSD-3-Clause
// Reading and writing attributes of any type.
#include "any/any_arguments.h"
#include "any_error_identifiers.h"
#include "check_status.h"
#include "convert/argument_readers.h"
#include "data/elements/fill_attributes.h"
#include "error_identifiers.h"
#include "library/guards/mismatched_fill_values.h"
#include "library/guards/misplaced_strings.h"
#include "types/attribute_values.h"
#include "types/value_writing.h"
#include "types/variable_values.h"

namespace Ovard::gridio::anyOperations {

void getAtt(int nlhs, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const AttributeName name{ncid, varid, readText(args[2], "attribute")};

    const Attribute attribute(name, entry);
    results[0] = attribute.read(EnumerationForm::integers);
    if (nlhs > 1 && attribute.type().holdsLabels)
        results[1] = attribute.read(EnumerationForm::labels);
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
    if (type.isWrittenAlone && count > 1)
        vxErrMsgId(any::foreignType(type.name));
    requireMatchingFillValue(ncid, varid, name, xtype, count, entry);
    requirePlacedStrings(ncid, xtype, entry);
    checkStatus(nc_put_att(ncid, varid, name.c_str(), xtype, count, values.get()), entry);
}

} // namespace Ovard::gridio::anyOperations
