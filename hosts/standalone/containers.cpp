// SPDX-License-Identifier: BSD-3-Clause
// Cell arrays and structures: inspection and creation.
#include "hosts/standalone/creation.h"

#include <cstddef>

namespace standalone {

namespace {

// The content of an empty cell or field. Never destroyed and not counted.
const vxArray* emptyArray()
{
    static const vxArray* const array = [] {
        auto* empty = new vxArray;
        empty->classId = vxDOUBLE_CLASS;
        empty->dims = {0, 0};
        --ledger().liveArrays;
        return empty;
    }();
    return array;
}

bool holds(const vxArray* container, vxClassID classId, std::size_t index)
{
    return container->classId == classId && index < container->cells.size();
}

const vxArray* look(const vxArray* container, vxClassID classId, std::size_t index,
                    const char* breach)
{
    if (!holds(container, classId, index)) {
        ledger().noteBreach(breach);
        return emptyArray();
    }
    const ArrayOwner& inside = container->cells[index];
    return inside == nullptr ? emptyArray() : inside.get();
}

void put(vxArray* container, vxClassID classId, std::size_t index, vxArray* value,
         const char* breach)
{
    if (!holds(container, classId, index) || !container->writable || value == container) {
        ledger().noteBreach(breach);
        return;
    }
    ArrayOwner owner = ledger().takeCreated(value);
    if (owner == nullptr) {
        ledger().noteBreach("an array that the call does not own was put into another");
        return;
    }
    owner->writable = false;
    container->cells[index] = std::move(owner);
}

} // namespace

} // namespace standalone

using standalone::ledger;

const vxArray* vxGetCell(const vxArray* cells, size_t index)
{
    return standalone::look(cells, vxCELL_CLASS, index,
                            "a cell that does not exist was looked into");
}

size_t vxGetNumberOfFields(const vxArray* structure) { return structure->fieldNames.size(); }

const char* vxGetFieldName(const vxArray* structure, size_t field)
{
    if (field < structure->fieldNames.size())
        return structure->fieldNames[field].c_str();
    ledger().noteBreach("the name of a field that does not exist was asked for");
    return "";
}

const vxArray* vxGetField(const vxArray* structure, size_t field)
{
    return standalone::look(structure, vxSTRUCT_CLASS, field,
                            "a field that does not exist was looked into");
}

vxArray* vxCreateCellArray(size_t rank, const size_t* dims)
{
    return standalone::createForCall([=] {
        return standalone::makeArray(vxCELL_CLASS, rank, dims, standalone::Contents::zeros);
    });
}

void vxSetCell(vxArray* cells, size_t index, vxArray* value)
{
    standalone::put(cells, vxCELL_CLASS, index, value, "a cell that does not exist was set");
}

vxArray* vxCreateStruct(size_t fieldCount, const char* const* names)
{
    return standalone::createForCall([=] {
        const size_t one[] = {1, 1};
        auto array = standalone::makeArray(vxSTRUCT_CLASS, 2, one, standalone::Contents::zeros);
        array->fieldNames.assign(names, names + fieldCount);
        array->cells.resize(fieldCount);
        return array;
    });
}

void vxSetField(vxArray* structure, size_t field, vxArray* value)
{
    standalone::put(structure, vxSTRUCT_CLASS, field, value, "a field that does not exist was set");
}
