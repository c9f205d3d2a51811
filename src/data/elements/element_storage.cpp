// SPDX-License-Identifier: BSD-3-Clause
#include "data/elements/element_storage.h"

#include "data/elements/shapes.h"
#include "error_identifiers.h"

namespace Ovard::gridio {

ElementResult::ElementResult(vxArray*& slot, const ElementType& element,
                             const SizeVector& hostDimensions, std::size_t textUnitSize)
    : form_(*element.form),
      elements_(form_.create(element, hostDimensions, productOf(hostDimensions), textUnitSize))
{
    slot = elements_.array;
}

void requireVariableData(const vxArray* data, const OperationEntry* entry)
{
    if (vxGetNumberOfElements(data) == 0 && !isAttributeWrite(entry->code))
        vxErrMsgId(netcdf::emptyVariableData());
}

} // namespace Ovard::gridio
