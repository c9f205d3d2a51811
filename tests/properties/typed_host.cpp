// SPDX-License-Identifier: BSD-3-Clause
// Values as a script has them.
#include "tests/properties/typed_data.h"

#include <algorithm>
#include <cstring>

namespace properties {

using standalone::Dims;
using standalone::Value;
using Pointers = std::vector<const Datum*>;

namespace {

Dims dimsOf(std::vector<std::size_t> lengths, bool isRow)
{
    if (isRow)
        lengths.insert(lengths.begin(), lengths[0] == 0 ? 0 : 1);
    lengths.resize(std::max<std::size_t>(lengths.size(), 2), 1);
    return lengths;
}

template <class T> T numberOf(const Datum& datum)
{
    T number;
    std::memcpy(&number, &datum.bits, sizeof number);
    return number;
}

template <class T> Value numbers(const Pointers& data, const Dims& dims)
{
    std::vector<T> elements;
    for (const Datum* datum : data)
        elements.push_back(numberOf<T>(*datum));
    return Value::numeric<T>(dims, elements);
}

Value integersOrFloats(nc_type id, const Pointers& data, const Dims& dims)
{
    // clang-format off
    switch (id) {
    case NC_BYTE:   return numbers<std::int8_t>(data, dims);
    case NC_SHORT:  return numbers<std::int16_t>(data, dims);
    case NC_INT:    return numbers<std::int32_t>(data, dims);
    case NC_FLOAT:  return numbers<float>(data, dims);
    case NC_UBYTE:  return numbers<std::uint8_t>(data, dims);
    case NC_USHORT: return numbers<std::uint16_t>(data, dims);
    case NC_UINT:   return numbers<std::uint32_t>(data, dims);
    case NC_INT64:  return numbers<std::int64_t>(data, dims);
    case NC_UINT64: return numbers<std::uint64_t>(data, dims);
    default:        return numbers<double>(data, dims);
    }
    // clang-format on
}

// Bytes become units by sign extension.
Value textOf(const std::string& bytes, const Dims& dims)
{
    std::u16string units;
    for (const char byte : bytes)
        units += static_cast<char16_t>(static_cast<signed char>(byte));
    return Value::text(dims, units);
}

// A null string is 0-by-0.
Value textRow(const std::optional<std::string>& bytes)
{
    return bytes ? textOf(*bytes, Dims{1, bytes->size()}) : textOf("", Dims{0, 0});
}

Value bytesOf(const Typed& type, const Pointers& data, std::vector<std::size_t> lengths)
{
    std::vector<std::uint8_t> bytes;
    for (const Datum* datum : data)
        bytes.insert(bytes.end(), datum->text->begin(), datum->text->end());
    lengths.insert(lengths.begin(), type.size);
    return Value::numeric<std::uint8_t>(dimsOf(lengths, false), bytes);
}

std::optional<std::string> labelOf(const Typed& type, const Datum& datum)
{
    for (const TypedMember& member : type.members) {
        if (member.bits == datum.bits)
            return member.name;
    }
    return std::nullopt;
}

template <class Convert> Value cells(const Pointers& data, const Dims& dims, const Convert& convert)
{
    std::vector<Value> values;
    for (const Datum* datum : data)
        values.push_back(convert(*datum));
    return Value::cell(dims, values);
}

// How a script writes values: as they are read, or in another way that means the same.
class Style {
public:
    explicit Style(Dice* dice) : dice_(dice) {}

    bool isOther(std::size_t n) const { return dice_ != nullptr && dice_->rarely(n); }

private:
    Dice* dice_;
};

bool areAllMembers(const Typed& type, const Pointers& data)
{
    return std::none_of(data.begin(), data.end(),
                        [&](const Datum* datum) { return !labelOf(type, *datum); });
}

// The integers as doubles, where each is small enough.
std::optional<Value> asDoubles(const Typed& type, const Pointers& data, const Dims& dims)
{
    std::vector<double> elements;
    for (const Datum* datum : data) {
        if (type.size > 4 ? datum->bits > 1000000 : isFloating(type))
            return std::nullopt;
        const auto shift = static_cast<int>(64 - 8 * type.size);
        elements.push_back(
            isSigned(type)
                ? static_cast<double>(static_cast<std::int64_t>(datum->bits << shift) >> shift)
                : static_cast<double>(datum->bits));
    }
    return Value::numeric<double>(dims, elements);
}

Value convert(const Typed& type, const Pointers& data, const std::vector<std::size_t>& lengths,
              bool isRow, bool labels, const Style& style);

Value structure(const Typed& type, const Pointers& data, const std::vector<std::size_t>& lengths,
                bool isRow, bool labels, const Style& style)
{
    std::vector<std::pair<std::string, Value>> fields;
    std::size_t part = 0;
    for (const TypedField& field : type.fields) {
        Pointers elements;
        for (const Datum* datum : data) {
            for (std::size_t i = 0; i < field.count(); ++i)
                elements.push_back(&datum->parts[part + i]);
        }
        part += field.count();
        std::vector<std::size_t> all(field.lengths.rbegin(), field.lengths.rend());
        all.insert(all.end(), lengths.begin(), lengths.end());
        fields.emplace_back(field.name, convert(*field.type, elements, all,
                                                isRow && field.lengths.empty(), labels, style));
    }
    if (style.isOther(2))
        std::reverse(fields.begin(), fields.end());
    return Value::structure(fields);
}

Value convert(const Typed& type, const Pointers& data, const std::vector<std::size_t>& lengths,
              bool isRow, bool labels, const Style& style)
{
    const Dims dims = dimsOf(lengths, isRow);
    const auto label = [&](const Datum& datum) { return textRow(labelOf(type, datum)); };
    switch (type.kind) {
    case Kind::character: {
        std::string bytes;
        for (const Datum* datum : data)
            bytes += static_cast<char>(datum->bits);
        return textOf(bytes, dims);
    }
    case Kind::string:
        if (data.size() == 1 && !style.isOther(2))
            return textRow(data[0]->text);
        return cells(data, dims, [](const Datum& datum) { return textRow(datum.text); });
    case Kind::enumeration:
        if (labels || (style.isOther(2) && areAllMembers(type, data)))
            return cells(data, dims, label);
        return integersOrFloats(type.base->id, data, dims);
    case Kind::vlen:
        return cells(data, dims, [&](const Datum& datum) {
            if (datum.parts.empty() && style.isOther(2))
                return Value::empty();
            return convert(*type.base, pointersTo(datum.parts), {datum.parts.size()}, false, labels,
                           style);
        });
    case Kind::opaque:
        return bytesOf(type, data, lengths);
    case Kind::compound:
        return structure(type, data, lengths, isRow, labels, style);
    case Kind::number:
        break;
    }
    const std::optional<Value> doubles =
        style.isOther(3) ? asDoubles(type, data, dims) : std::nullopt;
    return doubles ? *doubles : integersOrFloats(type.id, data, dims);
}

} // namespace

Value toHost(const Typed& type, const Pointers& data, std::vector<std::size_t> hostLengths,
             bool isRow, bool labels)
{
    return convert(type, data, hostLengths, isRow, labels, Style(nullptr));
}

Value toWrite(const Typed& type, const Pointers& data, std::vector<std::size_t> hostLengths,
              bool isRow, Dice& dice)
{
    return convert(type, data, hostLengths, isRow, false, Style(&dice));
}

} // namespace properties
