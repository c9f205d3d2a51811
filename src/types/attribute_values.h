// SPDX-License-Identifier: BSD-3-Clause
// Values of attributes of any type.
#pragma once

#include "types/type_description.h"
#include "types/value_reading.h"

#include <string>

namespace Ovard::gridio {

struct AttributeName {
    int ncid;
    int varid; // or NC_GLOBAL
    std::string name;
};

// An attribute with its type. Raises the library's failures, and those of TypeTree.
class Attribute {
public:
    Attribute(const AttributeName& name, const OperationEntry* entry);

    const Type& type() const { return types_.root(); }
    std::size_t length() const { return header_.length; }

    // Its values, as an array of the host.
    vxArray* read(EnumerationForm form) const;

private:
    struct Header {
        nc_type xtype = NC_NAT;
        std::size_t length = 0;
    };

    static Header inquire(const AttributeName& name, const OperationEntry* entry);
    vxArray* readElements() const;

    const AttributeName& name_;
    const OperationEntry* entry_;
    const Header header_;
    const TypeTree types_;
};

} // namespace Ovard::gridio
