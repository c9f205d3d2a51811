// SPDX-License-Identifier: BSD-3-Clause
// Random values of random types: in the memory of plain C, and as a script has them.
#pragma once

#include "hosts/standalone/value.h"
#include "tests/properties/typed_schema.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace properties {

// One value of a type.
struct Datum {
    std::uint64_t bits = 0; // of a number, a character and an enumeration: the lowest bytes
    std::optional<std::string> text; // of a string, and the bytes of an opaque value; none: null
    std::vector<Datum> parts; // elements of a vlen; of a compound type, those of field after field
};
using Data = std::vector<Datum>;

bool operator==(const Datum& a, const Datum& b);

// count values.
Data randomData(const Typed& type, std::size_t count, Dice& dice);

// Values as C structures, with all that they point to.
class CValues {
public:
    CValues(const Typed& type, const Data& data);

    const void* get() const { return bytes_.data(); }

private:
    void encode(const Typed& type, const Datum& datum, char* place);

    std::vector<char> bytes_;
    std::vector<std::unique_ptr<char[]>> blocks_;
};

// Values out of the library's memory, which is left as it is.
Data decode(const Typed& type, const char* bytes, std::size_t count);

// What a script gets: hostLengths are dimensions in the host's order; isRow for an attribute.
standalone::Value toHost(const Typed& type, const std::vector<const Datum*>& data,
                         std::vector<std::size_t> hostLengths, bool isRow, bool labels = false);

// What a script may write in place of it: another class where values fit, labels, [] for nothing.
standalone::Value toWrite(const Typed& type, const std::vector<const Datum*>& data,
                          std::vector<std::size_t> hostLengths, bool isRow, Dice& dice);

std::vector<const Datum*> pointersTo(const Data& data);

} // namespace properties
