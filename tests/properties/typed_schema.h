// SPDX-License-Identifier: BSD-3-Clause
// Random types of netCDF-4 files: what they are made of, and their definition in plain C.
#pragma once

#include <netcdf.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace properties {

// Choices out of bytes; zeros when there are no more, which make the simplest program.
class Dice {
public:
    explicit Dice(std::vector<unsigned char> bytes) : bytes_(std::move(bytes)) {}

    std::size_t below(std::size_t n); // 0 to n-1
    bool rarely(std::size_t n) { return below(n) == n - 1; }
    std::uint64_t bits();

private:
    std::vector<unsigned char> bytes_;
    std::size_t next_ = 0;
};

enum class Kind { number, character, string, enumeration, vlen, compound, opaque };

struct Typed;

struct TypedField {
    std::string name;
    const Typed* type;
    std::vector<int> lengths; // in the library's order
    std::size_t offset;

    std::size_t count() const;
};

struct TypedMember {
    std::string name;
    std::uint64_t bits;
};

struct Typed {
    Kind kind = Kind::number;
    nc_type id = NC_NAT;
    std::string name;
    std::size_t size = 0;
    std::size_t alignment = 1;
    const Typed* base = nullptr; // of an enumeration and a vlen
    std::vector<TypedField> fields;
    std::vector<TypedMember> members;
    bool ownsMemory = false;     // values hold strings or vlens
    bool isWrittenAlone = false; // the library mixes up several that are written in one call
};

// The library's own types, and a few that are made of them and of each other.
class Schema {
public:
    explicit Schema(Dice& dice);

    const std::deque<Typed>& types() const { return types_; }
    const Typed& any(Dice& dice) const { return types_[dice.below(types_.size())]; }

    // Defines the types in the order in which they are made of each other. Their identifiers are
    // then those that the file gives.
    void defineByLibrary(int ncid);

    // The same with other calls: define makes a type, insert a member or a field.
    template <class Definer> void defineBy(Definer& definer)
    {
        for (Typed& type : types_) {
            if (type.kind == Kind::enumeration || type.kind == Kind::vlen ||
                type.kind == Kind::compound || type.kind == Kind::opaque)
                type.id = definer.define(type);
        }
    }

private:
    void addAtomic(Kind kind, nc_type id, std::size_t size);
    void addUserType(Dice& dice);
    void addFields(Dice& dice, Typed& type);

    std::deque<Typed> types_;
};

bool isFloating(const Typed& type);

// The widest numbers of plain C that stand for the bits of a number.
bool isSigned(const Typed& type);

} // namespace properties
