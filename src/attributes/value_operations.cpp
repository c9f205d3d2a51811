// SPDX-License-Identifier: BSD-3-Clause
// Reading and writing the values of attributes.
#include "attributes/attribute_operations.h"

#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/host_memory.h"
#include "convert/result_builders.h"
#include "data/element_types.h"
#include "error_identifiers.h"

#include <algorithm>
#include <cstring>

namespace Ovard::gridio::operations {
namespace {

// Room that every attribute read has at least: of the attributes that the library makes up for
// netCDF-4 files it writes a whole int ("_IsNetcdf4", "_SuperblockVersion"), or a NUL behind the
// text ("_NCProperties"), whatever type is asked for.
constexpr std::size_t excessBytes = sizeof(int);

// As a host string, which deliberately ends at the first NUL: padding is dropped, and so is all
// that follows an embedded NUL. The buffer is twice the length, so that a NUL always follows the
// text that the library writes.
vxArray* readTextAttribute(int ncid, int varid, const char* name, std::size_t length,
                           const ElementType& element, int& status)
{
    const std::size_t units = std::max(length, excessBytes);
    const HostMemory<char> text(static_cast<char*>(vxCalloc(units, sizeof(char16_t))));
    status = element.getAtt(ncid, varid, name, text.get());
    return textResult(length == 0 ? "" : text.get());
}

int readNumericAttribute(int ncid, int varid, const char* name, std::size_t length,
                         const ElementType& element, vxArray* values)
{
    if (element.size >= excessBytes)
        return element.getAtt(ncid, varid, name, vxGetWritableData(values));

    const std::size_t bytes = length * element.size;
    const HostMemory<char> buffer(static_cast<char*>(vxCalloc(bytes + excessBytes, 1)));
    const int status = element.getAtt(ncid, varid, name, buffer.get());
    if (bytes != 0)
        std::memcpy(vxGetWritableData(values), buffer.get(), bytes);
    return status;
}

// On a netCDF-4 file, but deliberately not on one of the classic model, fill values of variables
// are the business of "defVarFill".
bool isGuardedFillValue(int ncid, int varid, const std::string& name, const OperationEntry* entry)
{
    int format = 0;
    checkStatus(nc_inq_format(ncid, &format), entry);
    return format == NC_FORMAT_NETCDF4 && varid != NC_GLOBAL && name == "_FillValue";
}

} // namespace

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

    int status = NC_NOERR;
    if (element->hostClass == vxCHAR_CLASS) {
        results[0] = readTextAttribute(ncid, varid, name.c_str(), length, *element, status);
    } else {
        const std::size_t dims[] = {length == 0 ? std::size_t{0} : std::size_t{1}, length};
        // Zeros, since the library leaves a part of some attributes that it generates unwritten.
        results[0] = vxCreateNumericArray(2, dims, element->hostClass, vxREAL);
        status = readNumericAttribute(ncid, varid, name.c_str(), length, *element, results[0]);
    }
    checkStatus(status, entry);
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
    const ElementType* element = findElementType(attributeWrites, entry->code);
    if (element == nullptr)
        vxErrMsgId(netcdf::unrecognizedOperation(entry->name));

    const std::size_t count = vxGetNumberOfElements(values);
    requireStorage(values, count, element->size);
    checkStatus(element->putAtt(ncid, varid, name.c_str(), xtype, count, vxGetData(values)), entry);
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
