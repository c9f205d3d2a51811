// SPDX-License-Identifier: BSD-3-Clause
#include "tests/properties/typed_schema.h"

#include "tests/support/library_file.h"

#include <algorithm>

namespace properties {
namespace {

using testsupport::require;

constexpr std::size_t mostUserTypes = 6;

std::size_t roundedUp(std::size_t offset, std::size_t alignment)
{
    return (offset + alignment - 1) / alignment * alignment;
}

class LibraryDefiner {
public:
    explicit LibraryDefiner(int ncid) : ncid_(ncid) {}

    nc_type define(const Typed& type)
    {
        const char* name = type.name.c_str();
        nc_type id = NC_NAT;
        switch (type.kind) {
        case Kind::enumeration:
            require(nc_def_enum(ncid_, type.base->id, name, &id));
            for (const TypedMember& member : type.members)
                require(nc_insert_enum(ncid_, id, member.name.c_str(), &member.bits));
            break;
        case Kind::vlen:
            require(nc_def_vlen(ncid_, name, type.base->id, &id));
            break;
        case Kind::opaque:
            require(nc_def_opaque(ncid_, type.size, name, &id));
            break;
        default:
            require(nc_def_compound(ncid_, type.size, name, &id));
            for (const TypedField& field : type.fields)
                require(nc_insert_array_compound(
                    ncid_, id, field.name.c_str(), field.offset, field.type->id,
                    static_cast<int>(field.lengths.size()), field.lengths.data()));
            break;
        }
        return id;
    }

private:
    int ncid_;
};

} // namespace

std::size_t Dice::below(std::size_t n) { return next_ < bytes_.size() ? bytes_[next_++] % n : 0; }

std::uint64_t Dice::bits()
{
    std::uint64_t result = 0;
    for (int i = 0; i < 8; ++i)
        result = result << 8 | below(256);
    return result;
}

std::size_t TypedField::count() const
{
    std::size_t product = 1;
    for (const int length : lengths)
        product *= static_cast<std::size_t>(length);
    return product;
}

bool isFloating(const Typed& type) { return type.id == NC_FLOAT || type.id == NC_DOUBLE; }

bool isSigned(const Typed& type)
{
    return type.id == NC_BYTE || type.id == NC_SHORT || type.id == NC_INT || type.id == NC_INT64;
}

Schema::Schema(Dice& dice)
{
    for (const nc_type id : {NC_DOUBLE, NC_BYTE, NC_SHORT, NC_INT, NC_FLOAT, NC_UBYTE, NC_USHORT,
                             NC_UINT, NC_INT64, NC_UINT64}) {
        constexpr std::size_t sizes[] = {0, 1, 1, 2, 4, 4, 8, 1, 2, 4, 8, 8};
        addAtomic(Kind::number, id, sizes[id]);
    }
    addAtomic(Kind::character, NC_CHAR, 1);
    addAtomic(Kind::string, NC_STRING, sizeof(char*));
    const std::size_t count = dice.below(mostUserTypes + 1);
    for (std::size_t i = 0; i < count; ++i)
        addUserType(dice);
}

void Schema::addAtomic(Kind kind, nc_type id, std::size_t size)
{
    Typed& type = types_.emplace_back();
    type.kind = kind;
    type.id = id;
    type.size = type.alignment = size;
    type.ownsMemory = kind == Kind::string;
}

void Schema::addUserType(Dice& dice)
{
    constexpr std::size_t integerCount = 8; // behind the first, NC_DOUBLE, but for NC_FLOAT
    Typed type;
    type.name = "t" + std::to_string(types_.size());
    switch (dice.below(4)) {
    case 0: {
        static constexpr std::size_t integers[integerCount] = {1, 2, 3, 5, 6, 7, 8, 9};
        type.kind = Kind::enumeration;
        type.base = &types_[integers[dice.below(integerCount)]];
        type.size = type.alignment = type.base->size;
        const std::size_t members = dice.below(5) + 1;
        const std::uint64_t first = dice.bits();
        for (std::size_t i = 0; i < members; ++i) {
            const std::uint64_t bits = first + i * 3;
            const std::uint64_t mask = type.size == 8 ? ~0ULL : (1ULL << (8 * type.size)) - 1;
            type.members.push_back({"member " + std::to_string(i), bits & mask});
        }
        break;
    }
    case 1:
        type.kind = Kind::vlen;
        type.base = &any(dice);
        type.isWrittenAlone = type.base->isWrittenAlone;
        type.ownsMemory = true;
        type.size = sizeof(nc_vlen_t);
        type.alignment = alignof(nc_vlen_t);
        break;
    case 2:
        type.kind = Kind::opaque;
        type.size = dice.below(20) + 1;
        break;
    default:
        type.kind = Kind::compound;
        addFields(dice, type);
        break;
    }
    types_.push_back(type);
}

void Schema::addFields(Dice& dice, Typed& type)
{
    const std::size_t count = dice.below(4) + 1;
    std::size_t end = 0;
    for (std::size_t i = 0; i < count; ++i) {
        TypedField field{i == 0 ? "f\xC3\xB6rst" : "f " + std::to_string(i), &any(dice), {}, 0};
        const std::size_t rank = dice.rarely(3) ? dice.below(3) + 1 : 0;
        for (std::size_t d = 0; d < rank; ++d)
            field.lengths.push_back(static_cast<int>(dice.below(3)) + 1);
        const Typed& inner = *field.type;
        if (inner.isWrittenAlone)
            std::fill(field.lengths.begin(), field.lengths.end(), 1);
        type.ownsMemory = type.ownsMemory || inner.ownsMemory;
        type.isWrittenAlone =
            type.isWrittenAlone || inner.isWrittenAlone ||
            (!field.lengths.empty() && inner.kind == Kind::compound && inner.ownsMemory);
        field.offset = roundedUp(end, field.type->alignment);
        end = field.offset + field.count() * field.type->size;
        type.alignment = std::max(type.alignment, field.type->alignment);
        type.fields.push_back(field);
    }
    type.size = roundedUp(end, type.alignment);
}

void Schema::defineByLibrary(int ncid)
{
    LibraryDefiner definer(ncid);
    defineBy(definer);
}

} // namespace properties
