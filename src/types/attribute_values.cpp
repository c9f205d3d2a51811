// SPDX-License-Identifier: BSD-3-Clause
#include "types/attribute_values.h"

#include "check_status.h"
#include "library/guards/generated_attributes.h"
#include "library/guards/misplaced_strings.h"
#include "types/library_values.h"

namespace Ovard::gridio {

Attribute::Attribute(const AttributeName& name, const OperationEntry* entry)
    : name_(name), entry_(entry), header_(inquire(name, entry)),
      types_(name.ncid, header_.xtype, entry)
{
}

Attribute::Header Attribute::inquire(const AttributeName& name, const OperationEntry* entry)
{
    Header header;
    checkStatus(nc_inq_att(name.ncid, name.varid, name.name.c_str(), &header.xtype, &header.length),
                entry);
    return header;
}

vxArray* Attribute::read(EnumerationForm form) const
{
    if (type().kind == TypeKind::number || type().kind == TypeKind::character)
        return readElements();
    requirePlacedStrings(name_.ncid, header_.xtype, entry_);
    LibraryValues values(type(), length());
    checkStatus(nc_get_att(name_.ncid, name_.varid, name_.name.c_str(), values.data()), entry_);
    return readValues(type(), values.places(), {{length()}, true}, form);
}

// Numbers and characters pass through a buffer that is large enough for attributes that the library
// generates.
vxArray* Attribute::readElements() const
{
    const HostMemory<char> buffer(
        static_cast<char*>(vxCalloc(length() * type().size + leastAttributeBytes, sizeof(char))));
    checkStatus(type().element->getAtt(name_.ncid, name_.varid, name_.name.c_str(), buffer.get()),
                entry_);
    return readValues(type(), {buffer.get(), length(), type().size}, {{length()}, true},
                      EnumerationForm::integers);
}

} // namespace Ovard::gridio
