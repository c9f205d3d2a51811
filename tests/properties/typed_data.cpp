// SPDX-License-Identifier: BSD-3-Clause
#include "tests/properties/typed_data.h"

#include <algorithm>
#include <cstring>

namespace properties {
namespace {

// Strings that end at their first NUL, in any encoding.
std::string randomText(Dice& dice)
{
    static const char* const notable[] = {"",         "a",         "metres", "h\xC3\xB6he",
                                          "\xFF\x80", "a b\n\"c\""};
    std::string text = notable[dice.below(6)];
    for (std::size_t i = dice.rarely(4) ? dice.below(40) : 0; i > 0; --i)
        text += static_cast<char>(dice.below(255) + 1);
    return text;
}

std::uint64_t randomNumber(const Typed& type, Dice& dice)
{
    const std::uint64_t mask = type.size == 8 ? ~0ULL : (1ULL << (8 * type.size)) - 1;
    if (!isFloating(type))
        return (dice.rarely(2) ? dice.bits() : dice.below(100)) & mask;
    std::uint64_t bits = 0;
    const double value = dice.rarely(8) ? 1e300 : 0.1 * static_cast<double>(dice.below(1000)) - 7;
    if (type.id == NC_DOUBLE) {
        std::memcpy(&bits, &value, sizeof value);
    } else {
        const auto single = static_cast<float>(value > 1e30 ? 1e30 : value);
        std::memcpy(&bits, &single, sizeof single);
    }
    return bits;
}

Datum randomDatum(const Typed& type, Dice& dice)
{
    Datum datum;
    switch (type.kind) {
    case Kind::number:
        datum.bits = randomNumber(type, dice);
        break;
    case Kind::character:
        datum.bits = dice.below(256);
        break;
    case Kind::string:
        datum.text = randomText(dice);
        break;
    case Kind::enumeration:
        datum.bits = dice.rarely(8) ? 0 // as in elements that were never written
                                    : type.members[dice.below(type.members.size())].bits;
        break;
    case Kind::vlen:
        datum.parts = randomData(*type.base, dice.below(type.base->isWrittenAlone ? 2 : 4), dice);
        break;
    case Kind::opaque:
        datum.text = std::string();
        for (std::size_t i = 0; i < type.size; ++i)
            *datum.text += static_cast<char>(dice.below(256));
        break;
    case Kind::compound:
        for (const TypedField& field : type.fields) {
            const Data values = randomData(*field.type, field.count(), dice);
            datum.parts.insert(datum.parts.end(), values.begin(), values.end());
        }
        break;
    }
    return datum;
}

Datum decodeOne(const Typed& type, const char* place)
{
    Datum datum;
    switch (type.kind) {
    case Kind::string: {
        const char* text = nullptr;
        std::memcpy(&text, place, sizeof text);
        if (text != nullptr)
            datum.text = text;
        break;
    }
    case Kind::opaque:
        datum.text = std::string(place, type.size);
        break;
    case Kind::vlen: {
        nc_vlen_t vlen{};
        std::memcpy(&vlen, place, sizeof vlen);
        datum.parts = decode(*type.base, static_cast<const char*>(vlen.p), vlen.len);
        break;
    }
    case Kind::compound:
        for (const TypedField& field : type.fields) {
            const Data values = decode(*field.type, place + field.offset, field.count());
            datum.parts.insert(datum.parts.end(), values.begin(), values.end());
        }
        break;
    default:
        std::memcpy(&datum.bits, place, type.size);
        break;
    }
    return datum;
}

} // namespace

bool operator==(const Datum& a, const Datum& b)
{
    return a.bits == b.bits && a.text == b.text && a.parts == b.parts;
}

Data randomData(const Typed& type, std::size_t count, Dice& dice)
{
    Data data;
    for (std::size_t i = 0; i < count; ++i)
        data.push_back(randomDatum(type, dice));
    return data;
}

Data decode(const Typed& type, const char* bytes, std::size_t count)
{
    Data data;
    for (std::size_t i = 0; i < count; ++i)
        data.push_back(decodeOne(type, bytes + i * type.size));
    return data;
}

CValues::CValues(const Typed& type, const Data& data) : bytes_(data.size() * type.size + 1)
{
    for (std::size_t i = 0; i < data.size(); ++i)
        encode(type, data[i], bytes_.data() + i * type.size);
}

void CValues::encode(const Typed& type, const Datum& datum, char* place)
{
    const auto block = [this](std::size_t bytes) {
        blocks_.push_back(std::make_unique<char[]>(bytes));
        return blocks_.back().get();
    };
    switch (type.kind) {
    case Kind::string: {
        char* text = nullptr;
        if (datum.text) {
            text = block(datum.text->size() + 1);
            std::memcpy(text, datum.text->c_str(), datum.text->size() + 1);
        }
        std::memcpy(place, &text, sizeof text);
        break;
    }
    case Kind::opaque:
        std::memcpy(place, datum.text->data(), type.size);
        break;
    case Kind::vlen: {
        nc_vlen_t vlen = {datum.parts.size(), nullptr};
        if (vlen.len > 0) {
            char* elements = block(vlen.len * type.base->size);
            vlen.p = elements;
            for (std::size_t i = 0; i < vlen.len; ++i)
                encode(*type.base, datum.parts[i], elements + i * type.base->size);
        }
        std::memcpy(place, &vlen, sizeof vlen);
        break;
    }
    case Kind::compound: {
        std::size_t part = 0;
        for (const TypedField& field : type.fields) {
            for (std::size_t i = 0; i < field.count(); ++i)
                encode(*field.type, datum.parts[part++],
                       place + field.offset + i * field.type->size);
        }
        break;
    }
    default:
        std::memcpy(place, &datum.bits, type.size);
        break;
    }
}

std::vector<const Datum*> pointersTo(const Data& data)
{
    std::vector<const Datum*> pointers;
    for (const Datum& datum : data)
        pointers.push_back(&datum);
    return pointers;
}

} // namespace properties
