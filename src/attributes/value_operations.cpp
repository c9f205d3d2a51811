// SPDX-License-Identifier: BSD-3-Clause
// Reading and writing the values of attributes.
#include "check_status.h"
#include "convert/argument_readers.h"
#include "data/elements/element_storage.h"
#include "data/elements/fill_attributes.h"
#include "error_identifiers.h"

namespace Ovard::gridio::operations {

void getAtt(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const std::string name = readText(args[2], "attribute");

    std::size_t length = 0;
    checkStatus(nc_inq_att(ncid, varid, name.c_str(), nullptr, &length), entry);
    const ElementType* element = findElementType(attributeReads, entry->code);
    if (element == nullptr)
        vxErrMsgId(netcdf::unhandledAttributeOperation(entry->name));

    const IncomingElements values = element->form->createAttribute(*element, length);
    checkStatus(element->getAtt(ncid, varid, name.c_str(), values.destination()), entry);
    results[0] = element->form->finishAttribute(*element, values);
}

void putAtt(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const std::string name = readText(args[2], "attribute");
    const int xtype = readIntScalar(args[3], "xtype");
    const vxArray* values = args[4];
    requireVariableData(values, entry);
    if (isGuardedFillValue(ncid, varid, name, entry))
        vxErrMsgId(netcdf::postCreationFillValueDefinition());
    const ElementType& element = elementTypeOf(attributeWrites, entry);

    const ElementSource source(values, element);
    checkStatus(element.putAtt(ncid, varid, name.c_str(), xtype, vxGetNumberOfElements(values),
                               source.get()),
                entry);
}

void putAttText(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const std::string name = readText(args[2], "attribute");
    requireVariableData(args[3], entry);
    const std::string text = charDataToString(args[3]);

    checkStatus(nc_put_att_text(ncid, varid, name.c_str(), text.size(), text.data()), entry);
}

} // namespace Ovard::gridio::operations
