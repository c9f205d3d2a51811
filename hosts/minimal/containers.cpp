// SPDX-License-Identifier: BSD-3-Clause
// Cell arrays and structures.
#include "hosts/minimal/array.h"
#include "hosts/minimal/call.h"

namespace minimal {

namespace {

const vxArray* look(const Value& inside)
{
    static const Value empty = makeArray(vxDOUBLE_CLASS, 0, nullptr, Elements::zeros);
    return inside ? inside.get() : empty.get();
}

} // namespace

} // namespace minimal

const vxArray* vxGetCell(const vxArray* cells, size_t index)
{
    return minimal::look(cells->contents[index]);
}

size_t vxGetNumberOfFields(const vxArray* structure) { return structure->fieldNames.size(); }

const char* vxGetFieldName(const vxArray* structure, size_t field)
{
    return structure->fieldNames[field].c_str();
}

const vxArray* vxGetField(const vxArray* structure, size_t field)
{
    return minimal::look(structure->contents[field]);
}

vxArray* vxCreateCellArray(size_t rank, const size_t* dims)
{
    return minimal::keepForCall(
        minimal::makeArray(vxCELL_CLASS, rank, dims, minimal::Elements::zeros));
}

void vxSetCell(vxArray* cells, size_t index, vxArray* value)
{
    cells->contents[index] = minimal::takeFromCall(value);
}

vxArray* vxCreateStruct(size_t fieldCount, const char* const* names)
{
    const size_t one[] = {1, 1};
    const minimal::Value array =
        minimal::makeArray(vxSTRUCT_CLASS, 2, one, minimal::Elements::zeros);
    array->fieldNames.assign(names, names + fieldCount);
    array->contents.resize(fieldCount);
    return minimal::keepForCall(array);
}

void vxSetField(vxArray* structure, size_t field, vxArray* value)
{
    structure->contents[field] = minimal::takeFromCall(value);
}
