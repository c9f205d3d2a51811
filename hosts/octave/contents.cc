// SPDX-License-Identifier: BSD-3-Clause
#include "contents.h"

#include "call.h"

#include <octave/oct-map.h>
#include <octave/str-vec.h>

#include <utility>

namespace hosts::oct {

namespace {

// In the order of the fields.
void setNames(Contents& contents, const string_vector& names)
{
    for (octave_idx_type i = 0; i < names.numel(); ++i)
        contents.names.push_back(names(i));
}

void loadFields(const octave_value& structure, Contents& contents)
{
    if (structure.numel() != 1) {
        setNames(contents, structure.map_value().keys());
        return;
    }
    const octave_scalar_map fields = structure.scalar_map_value();
    setNames(contents, fields.keys());
    contents.values = Cell(fields.nfields(), 1);
    for (octave_idx_type i = 0; i < fields.nfields(); ++i)
        contents.values.xelem(i) = fields.contents(contents.names[static_cast<size_t>(i)]);
}

const vxArray* look(const vxArray* array, size_t index)
{
    Contents& inside = contents(array);
    const Cell& values = inside.values;
    return &inside.seen.emplace(values.xelem(static_cast<octave_idx_type>(index)));
}

void put(vxArray* array, size_t index, vxArray* value)
{
    octave_value& place = array->contents->values.xelem(static_cast<octave_idx_type>(index));
    // Values made from bytes or numbers are not shared.
    const bool isWhole = value->held && (value->kind->id != vxCHAR_CLASS || !value->data);
    if (isWhole)
        place = std::move(*value->held);
    else
        place = toValue(*value);
    Call::current().drop(value);
}

vxArray* withContents(vxArray* array)
{
    array->contents.reset(new Contents);
    return array;
}

octave_value structureValue(const Contents& inside)
{
    octave_scalar_map fields;
    for (size_t i = 0; i < inside.names.size(); ++i)
        fields.setfield(inside.names[i], inside.values.xelem(static_cast<octave_idx_type>(i)));
    return octave_value(fields);
}

} // namespace

void DeleteContents::operator()(Contents* contents) const noexcept { delete contents; }

Contents& contents(const vxArray* array)
{
    vxArray& known = examined(array);
    if (!known.contents) {
        withContents(&known);
        if (known.kind->id == vxSTRUCT_CLASS)
            loadFields(*known.source, *known.contents);
        else
            known.contents->values = known.source->cell_value();
    }
    return *known.contents;
}

octave_value contentsValue(const vxArray& array)
{
    return array.kind->id == vxSTRUCT_CLASS ? structureValue(*array.contents)
                                            : octave_value(array.contents->values);
}

} // namespace hosts::oct

using hosts::oct::addArray;
using hosts::oct::contents;
using hosts::oct::elementClass;

const vxArray* vxGetCell(const vxArray* cells, size_t index)
{
    return hosts::oct::look(cells, index);
}

size_t vxGetNumberOfFields(const vxArray* structure) { return contents(structure).names.size(); }

const char* vxGetFieldName(const vxArray* structure, size_t field)
{
    return contents(structure).names[field].c_str();
}

const vxArray* vxGetField(const vxArray* structure, size_t field)
{
    return hosts::oct::look(structure, field);
}

vxArray* vxCreateCellArray(size_t rank, const size_t* dims)
{
    vxArray* array = hosts::oct::withContents(addArray(elementClass(vxCELL_CLASS), rank, dims));
    array->contents->values = Cell(hosts::oct::dimensions(*array));
    return array;
}

void vxSetCell(vxArray* cells, size_t index, vxArray* value)
{
    hosts::oct::put(cells, index, value);
}

vxArray* vxCreateStruct(size_t fieldCount, const char* const* names)
{
    const size_t one[] = {1, 1};
    vxArray* array = hosts::oct::withContents(addArray(elementClass(vxSTRUCT_CLASS), 2, one));
    array->contents->names.assign(names, names + fieldCount);
    array->contents->values = Cell(static_cast<octave_idx_type>(fieldCount), 1);
    return array;
}

void vxSetField(vxArray* structure, size_t field, vxArray* value)
{
    hosts::oct::put(structure, field, value);
}
