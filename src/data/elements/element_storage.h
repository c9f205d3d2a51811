// SPDX-License-Identifier: BSD-3-Clause
// The result of a typed read and the data of a typed write, by the form of the element type.
#pragma once

#include "data/elements/element_types.h"
#include "operation_entry.h"

namespace Ovard::gridio {

// The result of a read, while it is being created and filled.
class ElementResult {
public:
    // Creates the array and stores it in the result slot at once. textUnitSize: bytes per element
    // in the buffer of a text read. Raises the host's out-of-memory error; throws a Boost overflow
    // when the product of the dimensions does.
    ElementResult(vxArray*& slot, const ElementType& element, const SizeVector& hostDimensions,
                  std::size_t textUnitSize);

    // Where the library is to write count() elements.
    void* destination() const { return elements_.destination(); }
    std::size_t count() const { return elements_.count; }

    // Completes the array; called when the read has succeeded. Bytes of text are deliberately
    // widened by sign extension: those from 0x80 become units from 0xFF80.
    void finish() const { form_.finish(elements_); }

private:
    const ElementForm& form_;
    IncomingElements elements_;
};

// The data argument of a write, in the form that the library reads.
class ElementSource {
public:
    // Raises dataSizeMismatch when the array's storage holds fewer bytes than its elements need;
    // see requireStorage. Construct it right before the library call.
    ElementSource(const vxArray* data, const ElementType& element)
        : values_(element.form->borrow(data, element, bytes_))
    {
    }

    const void* get() const { return values_; }

private:
    std::string bytes_; // of text
    const void* values_;
};

// Raises emptyVariableData if data to be written have no elements, unless the row is an attribute
// write, which may store an empty value.
void requireVariableData(const vxArray* data, const OperationEntry* entry);

} // namespace Ovard::gridio
