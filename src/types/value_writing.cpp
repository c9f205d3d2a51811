// SPDX-License-Identifier: BSD-3-Clause
#include "types/value_writing.h"

#include "any_error_identifiers.h"
#include "convert/numeric_class.h"
#include "types/exact_numbers.h"
#include "types/library_values.h"

#include <boost/numeric/conversion/cast.hpp>

#include <algorithm>
#include <cstring>

namespace Ovard::gridio {
namespace {

bool hasClass(const vxArray* values, vxClassID classId) { return vxGetClassID(values) == classId; }

std::size_t elements(const vxArray* values) { return vxGetNumberOfElements(values); }

[[noreturn]] void raiseBadClass(const ValuePlace& place, const char* expected)
{
    vxErrMsgId(any::badValueClass(place.text(), expected));
}

void requireCount(const ValuePlace& place, std::size_t needed, std::size_t given)
{
    if (needed != given)
        vxErrMsgId(any::wrongNumberOfValues(place.text(), static_cast<long>(needed),
                                            static_cast<long>(given)));
}

// A char array of one row, or of no characters.
bool isTextRow(const vxArray* values)
{
    return hasClass(values, vxCHAR_CLASS) &&
           (vxIsEmpty(values) || vxGetDimensions(values)[1] == elements(values));
}

// The elements of a logical array as numbers.
struct Flags {
    const unsigned char* bytes; // non-zero means true

    std::uint8_t operator[](std::size_t i) const { return bytes[i] != 0 ? 1 : 0; }
};

std::size_t countTexts(const vxArray* values)
{
    return hasClass(values, vxCHAR_CLASS) ? 1 : elements(values);
}

// The value for no elements in a vlen of any type: [], which is also the content of an unset cell.
bool isNothing(const vxArray* values)
{
    return hasClass(values, vxDOUBLE_CLASS) && vxIsEmpty(values);
}

std::size_t findField(const vxArray* structure, const std::string& name)
{
    const std::size_t count = vxGetNumberOfFields(structure);
    std::size_t i = 0;
    while (i < count && name != vxGetFieldName(structure, i))
        ++i;
    return i;
}

std::size_t countStructures(const Type& type, const vxArray* values)
{
    if (!hasClass(values, vxSTRUCT_CLASS) || elements(values) != 1 || type.fields.empty())
        return 0;
    const Field& field = type.fields[0];
    const std::size_t found = findField(values, field.name);
    if (found == vxGetNumberOfFields(values))
        return 0;
    return countValues(*field.type, vxGetField(values, found)) / field.count;
}

// Calls visit with the elements of a numeric or logical array, accessible by index. False, without
// a call, for any other class.
template <class Visitor> bool visitNumbers(const vxArray* values, Visitor&& visit)
{
    if (hasClass(values, vxLOGICAL_CLASS)) {
        visit(Flags{static_cast<const unsigned char*>(vxGetData(values))});
        return true;
    }
    return visitNumericElements(values, visit);
}

// Calls visit with a null pointer to the C type of the element type.
template <class Visitor> void visitElementType(const Type& type, Visitor&& visit)
{
    // clang-format off
    switch (type.element->hostClass) {
    case vxDOUBLE_CLASS: visit(static_cast<const double*>(nullptr));        break;
    case vxSINGLE_CLASS: visit(static_cast<const float*>(nullptr));         break;
    case vxINT8_CLASS:   visit(static_cast<const std::int8_t*>(nullptr));   break;
    case vxUINT8_CLASS:  visit(static_cast<const std::uint8_t*>(nullptr));  break;
    case vxINT16_CLASS:  visit(static_cast<const std::int16_t*>(nullptr));  break;
    case vxUINT16_CLASS: visit(static_cast<const std::uint16_t*>(nullptr)); break;
    case vxINT32_CLASS:  visit(static_cast<const std::int32_t*>(nullptr));  break;
    case vxUINT32_CLASS: visit(static_cast<const std::uint32_t*>(nullptr)); break;
    case vxINT64_CLASS:  visit(static_cast<const std::int64_t*>(nullptr));  break;
    default:             visit(static_cast<const std::uint64_t*>(nullptr)); break;
    }
    // clang-format on
}

template <class Target, class Elements>
void convertEach(const Elements& source, const WritePlaces& places, const Type& type,
                 const ValuePlace& place)
{
    std::size_t i = 0;
    places.forEach([&](char* target) {
        Target converted{};
        if (!convertExactly(source[i], converted))
            vxErrMsgId(
                any::valueDoesNotFit(place.element(i).text(), numberText(source[i]), type.name));
        std::memcpy(target, &converted, sizeof converted);
        ++i;
    });
}

const Member* findMember(const Type& type, const std::string& name)
{
    const auto found = std::find_if(type.members.begin(), type.members.end(),
                                    [&](const Member& member) { return member.name == name; });
    return found == type.members.end() ? nullptr : &*found;
}

std::string memberList(const Type& type)
{
    std::string list;
    for (const Member& member : type.members)
        list += (list.empty() ? "" : ", ") + member.name;
    return list;
}

std::string bytesOf(const vxArray* text)
{
    std::string bytes(elements(text), '\0');
    vxGetCharBytes(text, bytes.data());
    return bytes;
}

void convertLabel(const Type& type, char* target, const vxArray* label, const ValuePlace& place)
{
    if (!isTextRow(label))
        raiseBadClass(place, "a char row: a label of the enumeration");
    const std::string name = bytesOf(label);
    const Member* member = findMember(type, name);
    if (member == nullptr)
        vxErrMsgId(any::unknownLabel(place.text(), name, type.name, memberList(type)));
    std::memcpy(target, &member->bits, type.size);
}

std::string integerText(const Type& type, const char* integer)
{
    std::string text;
    visitElementType(type, [&](const auto* target) {
        std::remove_const_t<std::remove_pointer_t<decltype(target)>> value;
        std::memcpy(&value, integer, sizeof value);
        text = numberText(value);
    });
    return text;
}

// Integers must belong to members, or be 0, which the library stores in elements that were never
// written: a copy must be able to write these.
void requireMembers(const Type& type, const WritePlaces& places, const ValuePlace& place)
{
    std::vector<std::uint64_t> known{0};
    for (const Member& member : type.members)
        known.push_back(member.bits);
    std::sort(known.begin(), known.end());
    std::size_t i = 0;
    places.forEach([&](const char* integer) {
        std::uint64_t bits = 0;
        std::memcpy(&bits, integer, type.size);
        if (!std::binary_search(known.begin(), known.end(), bits))
            vxErrMsgId(any::unknownLabel(place.element(i).text(), integerText(type, integer),
                                         type.name, memberList(type)));
        ++i;
    });
}

void requireFields(const Type& type, const vxArray* structure, const ValuePlace& place)
{
    const std::size_t count = vxGetNumberOfFields(structure);
    for (const Field& field : type.fields) {
        if (findField(structure, field.name) == count)
            vxErrMsgId(any::missingField(place.text(), field.name, type.name));
    }
    for (std::size_t i = 0; i < count; ++i) {
        const std::string name = vxGetFieldName(structure, i);
        const auto isIt = [&](const Field& field) { return field.name == name; };
        if (std::none_of(type.fields.begin(), type.fields.end(), isIt))
            vxErrMsgId(any::surplusField(place.text(), name, type.name));
    }
}

bool isOwnClass(const Type& type, const vxArray* values)
{
    return type.kind == TypeKind::number && hasClass(values, type.element->hostClass) &&
           !vxIsComplex(values);
}

} // namespace

std::size_t countValues(const Type& type, const vxArray* values)
{
    switch (type.kind) {
    case TypeKind::string:
        return countTexts(values);
    case TypeKind::enumeration:
        return countTexts(values);
    case TypeKind::compound:
        return countStructures(type, values);
    case TypeKind::opaque:
        return elements(values) / type.size;
    case TypeKind::number:
    case TypeKind::character:
    case TypeKind::vlen:
        break;
    }
    return elements(values);
}

OutgoingValues::OutgoingValues(const Type& type, const vxArray* values, std::size_t count)
{
    const ValuePlace place;
    if (isOwnClass(type, values)) {
        requireCount(place, count, elements(values));
        values_ = vxGetData(values);
        return;
    }
    memory_ = zeroedValues(type, count);
    convert(type, {memory_.get(), count, type.size}, values, place);
    values_ = memory_.get();
}

void OutgoingValues::convert(const Type& type, const WritePlaces& places, const vxArray* values,
                             const ValuePlace& place)
{
    switch (type.kind) {
    case TypeKind::number:
        return convertNumbers(type, places, values, place);
    case TypeKind::character:
        return convertText(places, values, place);
    case TypeKind::string:
        return convertStrings(places, values, place);
    case TypeKind::enumeration:
        return convertEnumeration(type, places, values, place);
    case TypeKind::vlen:
        return convertVlens(type, places, values, place);
    case TypeKind::compound:
        return convertStructure(type, places, values, place);
    case TypeKind::opaque:
        return convertBytes(type, places, values, place);
    }
}

void OutgoingValues::convertNumbers(const Type& type, const WritePlaces& places,
                                    const vxArray* values, const ValuePlace& place)
{
    const bool isNumeric = !vxIsComplex(values) && visitNumbers(values, [&](const auto& source) {
        requireCount(place, places.count(), elements(values));
        visitElementType(type, [&](const auto* target) {
            convertEach<std::remove_const_t<std::remove_pointer_t<decltype(target)>>>(
                source, places, type, place);
        });
    });
    if (!isNumeric)
        raiseBadClass(place, "real numbers: a numeric or logical array");
}

void OutgoingValues::convertText(const WritePlaces& places, const vxArray* values,
                                 const ValuePlace& place)
{
    if (!hasClass(values, vxCHAR_CLASS))
        raiseBadClass(place, "text: a char array");
    requireCount(place, places.count(), elements(values));
    const std::string bytes = bytesOf(values);
    auto next = bytes.begin();
    places.forEach([&](char* target) { *target = *next++; });
}

void OutgoingValues::convertStrings(const WritePlaces& places, const vxArray* values,
                                    const ValuePlace& place)
{
    const bool isText = hasClass(values, vxCHAR_CLASS);
    if (!isText && !hasClass(values, vxCELL_CLASS))
        raiseBadClass(place, "text: a char row, or a cell array of char rows");
    requireCount(place, places.count(), countTexts(values));
    if (isText) {
        convertString(places.first(), values, place);
        return;
    }
    std::size_t i = 0;
    places.forEach([&](char* target) {
        convertString(target, vxGetCell(values, i), place.element(i));
        ++i;
    });
}

void OutgoingValues::convertString(char* target, const vxArray* text, const ValuePlace& place)
{
    if (!isTextRow(text))
        raiseBadClass(place, "text: a char row");
    const std::size_t length = elements(text);
    char* bytes = allocate(length + 1, 1, 1);
    vxGetCharBytes(text, bytes);
    if (std::memchr(bytes, '\0', length) != nullptr)
        vxErrMsgId(any::textHoldsNul(place.text()));
    std::memcpy(target, &bytes, sizeof bytes);
}

void OutgoingValues::convertEnumeration(const Type& type, const WritePlaces& places,
                                        const vxArray* values, const ValuePlace& place)
{
    const bool isLabel = hasClass(values, vxCHAR_CLASS);
    if (!isLabel && !hasClass(values, vxCELL_CLASS)) {
        convertNumbers(type, places, values, place);
        requireMembers(type, places, place);
        return;
    }
    requireCount(place, places.count(), countTexts(values));
    if (isLabel) {
        convertLabel(type, places.first(), values, place);
        return;
    }
    std::size_t i = 0;
    places.forEach([&](char* target) {
        convertLabel(type, target, vxGetCell(values, i), place.element(i));
        ++i;
    });
}

void OutgoingValues::convertVlens(const Type& type, const WritePlaces& places,
                                  const vxArray* values, const ValuePlace& place)
{
    if (!hasClass(values, vxCELL_CLASS))
        raiseBadClass(place, "a cell array with the elements of one value in each cell");
    requireCount(place, places.count(), elements(values));
    std::size_t i = 0;
    places.forEach([&](char* target) {
        convertVlen(*type.base, target, vxGetCell(values, i), place.element(i));
        ++i;
    });
}

void OutgoingValues::convertVlen(const Type& base, char* target, const vxArray* elementValues,
                                 const ValuePlace& place)
{
    if (isNothing(elementValues))
        return;
    const std::size_t length = countValues(base, elementValues);
    if (base.isWrittenAlone && length > 1)
        vxErrMsgId(any::foreignType(base.name));
    char* memory = length == 0 ? nullptr : allocate(length, base.size, base.alignment);
    convert(base, {memory, length, base.size}, elementValues, place);
    const nc_vlen_t vlen = {length, memory};
    std::memcpy(target, &vlen, sizeof vlen);
}

void OutgoingValues::convertStructure(const Type& type, const WritePlaces& places,
                                      const vxArray* values, const ValuePlace& place)
{
    if (!hasClass(values, vxSTRUCT_CLASS) || elements(values) != 1)
        raiseBadClass(place, "one structure, whose fields hold the values");
    requireFields(type, values, place);
    for (std::size_t i = 0; i < type.fields.size(); ++i) {
        const Field& field = type.fields[i];
        convert(*field.type, places.inside(field.offset, field.count, field.type->size),
                vxGetField(values, findField(values, field.name)), place.field(i, field.name));
    }
}

void OutgoingValues::convertBytes(const Type& type, const WritePlaces& places,
                                  const vxArray* values, const ValuePlace& place)
{
    if (!hasClass(values, vxUINT8_CLASS))
        raiseBadClass(place, "bytes: a uint8 array, the bytes of each value one after the other");
    requireCount(place, places.count() * type.size, elements(values));
    const auto* bytes = static_cast<const char*>(vxGetData(values));
    places.forEach([&](char* target) {
        std::memcpy(target, bytes, type.size);
        bytes += type.size;
    });
}

// In large blocks, since there may be a million strings.
char* OutgoingValues::allocate(std::size_t count, std::size_t size, std::size_t alignment)
{
    constexpr std::size_t blockBytes = 65536;
    std::size_t bytes = 0;
    if (__builtin_mul_overflow(count, size, &bytes))
        throw boost::numeric::positive_overflow();
    const std::size_t gap = (alignment - (blockBytes - blockLeft_) % alignment) % alignment;
    if (blockLeft_ >= bytes && blockLeft_ - bytes >= gap) {
        blockLeft_ -= gap + bytes;
        return blockEnd_ - blockLeft_ - bytes;
    }
    const std::size_t newBytes = std::max(bytes, blockBytes);
    HostMemory<char> block(static_cast<char*>(vxCalloc(newBytes, 1)));
    blocks_.push_back(std::move(block));
    char* first = blocks_.back().get();
    if (bytes < blockBytes) { // the rest of a larger block is kept for it
        blockEnd_ = first + blockBytes;
        blockLeft_ = blockBytes - bytes;
    }
    return first;
}

} // namespace Ovard::gridio
