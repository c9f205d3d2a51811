// SPDX-License-Identifier: BSD-3-Clause
#include "types/value_reading.h"

#include "convert/host_memory.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace Ovard::gridio {
namespace {

template <class T> T copiedFrom(const char* place)
{
    T value;
    std::memcpy(&value, place, sizeof value);
    return value;
}

// Copies elements of that size, one behind the other.
void gather(const ReadPlaces& places, std::size_t size, char* destination)
{
    places.forEachRun([&](const char* first, std::size_t count, std::size_t step) {
        if (step == size) {
            std::memcpy(destination, first, count * size);
        } else {
            for (std::size_t i = 0; i < count; ++i)
                std::memcpy(destination + i * size, first + i * step, size);
        }
        destination += count * size;
    });
}

vxArray* createCells(const SizeVector& dims) { return vxCreateCellArray(dims.size(), dims.data()); }

vxArray* readIntegersOrNumbers(const Type& type, const ReadPlaces& places, const ValueShape& shape)
{
    const SizeVector dims = hostDimensions({}, shape);
    vxArray* array =
        vxCreateUninitNumericArray(dims.size(), dims.data(), type.element->hostClass, vxREAL);
    if (places.count() > 0)
        gather(places, type.size, static_cast<char*>(vxGetWritableData(array)));
    return array;
}

vxArray* readBytes(const Type& type, const ReadPlaces& places, const ValueShape& shape)
{
    const SizeVector dims = hostDimensions({type.size}, shape);
    vxArray* array = vxCreateUninitNumericArray(dims.size(), dims.data(), vxUINT8_CLASS, vxREAL);
    if (places.count() > 0)
        gather(places, type.size, static_cast<char*>(vxGetWritableData(array)));
    return array;
}

vxArray* readCharacters(const ReadPlaces& places, const ValueShape& shape)
{
    const SizeVector dims = hostDimensions({}, shape);
    if (places.areContiguous(1))
        return vxCreateCharArrayFromBytes(dims.size(), dims.data(), places.first());
    const HostMemory<char> bytes(static_cast<char*>(vxCalloc(places.count(), 1)));
    gather(places, 1, bytes.get());
    return vxCreateCharArrayFromBytes(dims.size(), dims.data(), bytes.get());
}

// A row; 0-by-0 for a null pointer.
vxArray* textRow(std::string_view text)
{
    const std::size_t dims[] = {1, text.size()};
    return vxCreateCharArrayFromBytes(text.data() == nullptr ? 0 : 2, dims, text.data());
}

// A string that was never written may be a null pointer.
vxArray* readString(const char* place)
{
    const char* text = copiedFrom<const char*>(place);
    return textRow(text == nullptr ? std::string_view() : std::string_view(text));
}

vxArray* readStrings(const ReadPlaces& places, const ValueShape& shape)
{
    if (places.count() == 1)
        return readString(places.first());
    vxArray* cells = createCells(hostDimensions({}, shape));
    std::size_t i = 0;
    places.forEach([&](const char* place) { vxSetCell(cells, i++, readString(place)); });
    return cells;
}

// The members of an enumeration by their values.
class Labels {
public:
    explicit Labels(const Type& type) : size_(type.size)
    {
        for (const Member& member : type.members)
            byBits_.push_back(&member);
        // Of several members with one value the first comes first.
        const auto isBefore = [](const Member* a, const Member* b) {
            return a->bits != b->bits ? a->bits < b->bits : a < b;
        };
        std::sort(byBits_.begin(), byBits_.end(), isBefore);
    }

    // Empty for a value that belongs to no member, such as that of an element that was never
    // written.
    std::string_view of(const char* place) const
    {
        std::uint64_t bits = 0;
        std::memcpy(&bits, place, size_);
        const auto hasLess = [](const Member* member, std::uint64_t b) { return member->bits < b; };
        const auto found = std::lower_bound(byBits_.begin(), byBits_.end(), bits, hasLess);
        const bool isMember = found != byBits_.end() && (*found)->bits == bits;
        return isMember ? std::string_view((*found)->name) : std::string_view();
    }

private:
    std::size_t size_;
    std::vector<const Member*> byBits_;
};

vxArray* readLabels(const Type& type, const ReadPlaces& places, const ValueShape& shape)
{
    const Labels labels(type);
    vxArray* cells = createCells(hostDimensions({}, shape));
    std::size_t i = 0;
    places.forEach([&](const char* place) { vxSetCell(cells, i++, textRow(labels.of(place))); });
    return cells;
}

vxArray* readVlens(const Type& type, const ReadPlaces& places, const ValueShape& shape,
                   EnumerationForm form)
{
    vxArray* cells = createCells(hostDimensions({}, shape));
    std::size_t i = 0;
    places.forEach([&](const char* place) {
        const auto vlen = copiedFrom<nc_vlen_t>(place);
        const std::size_t length = vlen.p == nullptr ? 0 : vlen.len;
        const ReadPlaces elements(static_cast<const char*>(vlen.p), length, type.base->size);
        vxSetCell(cells, i++, readValues(*type.base, elements, {{length}, false}, form));
    });
    return cells;
}

vxArray* readStructure(const Type& type, const ReadPlaces& places, const ValueShape& shape,
                       EnumerationForm form)
{
    std::vector<const char*> names;
    for (const Field& field : type.fields)
        names.push_back(field.name.c_str());
    vxArray* structure = vxCreateStruct(names.size(), names.data());
    for (std::size_t i = 0; i < type.fields.size(); ++i) {
        const Field& field = type.fields[i];
        ValueShape inner = shape;
        inner.lengths.insert(inner.lengths.begin(), field.lengths.begin(), field.lengths.end());
        inner.isRow = shape.isRow && field.lengths.empty();
        const ReadPlaces elements = places.inside(field.offset, field.count, field.type->size);
        vxSetField(structure, i, readValues(*field.type, elements, inner, form));
    }
    return structure;
}

} // namespace

SizeVector hostDimensions(const SizeVector& front, const ValueShape& shape)
{
    SizeVector dims = front;
    if (shape.isRow && front.empty())
        dims.push_back(shape.lengths[0] == 0 ? 0 : 1);
    dims.insert(dims.end(), shape.lengths.begin(), shape.lengths.end());
    dims.resize(std::max<std::size_t>(dims.size(), 2), 1);
    return dims;
}

vxArray* readValues(const Type& type, const ReadPlaces& places, const ValueShape& shape,
                    EnumerationForm form)
{
    switch (type.kind) {
    case TypeKind::character:
        return readCharacters(places, shape);
    case TypeKind::string:
        return readStrings(places, shape);
    case TypeKind::vlen:
        return readVlens(type, places, shape, form);
    case TypeKind::compound:
        return readStructure(type, places, shape, form);
    case TypeKind::opaque:
        return readBytes(type, places, shape);
    case TypeKind::enumeration:
        if (form == EnumerationForm::labels)
            return readLabels(type, places, shape);
        break;
    case TypeKind::number:
        break;
    }
    return readIntegersOrNumbers(type, places, shape);
}

} // namespace Ovard::gridio
