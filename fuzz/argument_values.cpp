// SPDX-License-Identifier: BSD-3-Clause
#include "fuzz/argument_values.h"

#include "fuzz/scratch_folder.h"

#include <algorithm>
#include <limits>
#include <type_traits>

namespace fuzz {

using standalone::Dims;
using standalone::Value;

namespace {

constexpr std::size_t elementLimit = 64;
constexpr std::size_t dataLimit = 4096;

constexpr vxClassID numericClasses[] = {
    vxDOUBLE_CLASS, vxSINGLE_CLASS, vxINT8_CLASS,   vxUINT8_CLASS, vxINT16_CLASS,
    vxUINT16_CLASS, vxINT32_CLASS,  vxUINT32_CLASS, vxINT64_CLASS, vxUINT64_CLASS};

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notableNumbers[] = {
    0,          -0.5,        0.5,
    1,          -1,          2.7,
    127,        128,         255,
    256,        -129,        32768,
    65535,      65537,       2147483647,
    2147483648, -2147483648, -2147483649,
    4294967295, 4294967296,  1e15,
    9.2e18,     1.8e19,      9223372036854775808.0,
    -9.3e18,    1e300,       -1e300,
    infinity,   -infinity,   std::numeric_limits<double>::quiet_NaN(),
    3.5e38,     1e-320,
};

// Names that the prologue's files contain, names that may be added, and names that must be refused.
constexpr const char* names[] = {
    "x",
    "y",
    "t",
    "v",
    "w",
    "s",
    "r",
    "g",
    "units",
    "title",
    "range",
    "_FillValue",
    "new",
    "other",
    "_NCProperties",
    "_Netcdf4Dimid",
    "CLASS",
    "_nc3_strict",
    "a/b",
    "/",
    "",
    " ",
    "e\xcc\x81",
    "\xc3\xa9",
    "/g",
    "g/new",
    "REFERENCE_LIST",
    "DIMENSION_LIST",
    "_ChunkSizes",
    ".",
    "..",
    "NC_FILL_CHAR",
    "Nc_gLoBaL",
};

constexpr const char* fileNames[] = {"a.nc", "b.nc",         "a.nc", "",
                                     ".",    "missing/a.nc", "a.nc", "b.nc"};

constexpr const char* modeWords[] = {
    "clobber",       "NC_NOCLOBBER", "share",    "write", "netcdf4",     "64bit_offset",
    "classic_model", "nowrite",      "NC_Write", "nc_",   "write|share", " write",
};

// The flags that matter here: write, no clobber, diskless, CDF-5, classic model, 64-bit offset,
// share, netCDF-4.
constexpr int modeFlags[] = {0x0001, 0x0004, 0x0008, 0x0020, 0x0100, 0x0200, 0x0800, 0x1000};

constexpr std::size_t notableSizes[] = {
    0,
    1,
    2,
    3,
    4,
    5,
    8,
    16,
    64,
    100,
    512,
    1024,
    4096,
    65536,
    0x7fffffff,
    0x80000000,
    0xffffffff,
    0x100000000,
    0x7fffffffffffffff,
    0x8000000000000000,
    0xffffffffffffffff,
    0xfffffffffffffffc,
};

template <class Visitor> Value visitClass(vxClassID classId, Visitor&& visit)
{
    switch (classId) {
    case vxSINGLE_CLASS:
        return visit(float{});
    case vxINT8_CLASS:
        return visit(std::int8_t{});
    case vxUINT8_CLASS:
        return visit(std::uint8_t{});
    case vxINT16_CLASS:
        return visit(std::int16_t{});
    case vxUINT16_CLASS:
        return visit(std::uint16_t{});
    case vxINT32_CLASS:
        return visit(std::int32_t{});
    case vxUINT32_CLASS:
        return visit(std::uint32_t{});
    case vxINT64_CLASS:
        return visit(std::int64_t{});
    case vxUINT64_CLASS:
        return visit(std::uint64_t{});
    default:
        return visit(double{});
    }
}

std::size_t productOf(const Dims& dims)
{
    std::size_t product = 1;
    for (const std::size_t length : dims)
        product *= length;
    return product;
}

// Small lists of elements repeat, so that a few bytes of input fill a large array.
constexpr std::size_t elementsRead = 8;

} // namespace

std::vector<Value> ArgumentValues::forOperation(const Operation& operation)
{
    // One byte decides for each parameter in turn whether it is replaced by an arbitrary value.
    const std::uint8_t wild = input_.oneIn(4) ? input_.byte() : std::uint8_t{0};
    const std::uint8_t count = input_.byte();

    std::vector<Value> arguments;
    for (std::size_t i = 0; i < operation.parameters.size(); ++i) {
        const char kind = operation.parameters[i];
        Value value = (wild >> (i % 8)) & 1 ? anything() : plausible(kind, operation.dataClass);
        arguments.push_back(kind == parameter::file ? inScratchFolder(value) : std::move(value));
    }
    if (count == 254 && !arguments.empty())
        arguments.pop_back();
    if (count == 255)
        arguments.push_back(anything());
    return arguments;
}

Value ArgumentValues::plausible(char kind, vxClassID dataClass)
{
    switch (kind) {
    case parameter::file:
        return input_.oneOf(fileNames);
    case parameter::mode:
        return mode();
    case parameter::ncid:
        return ncid();
    case parameter::varid:
    case parameter::dimid:
    case parameter::attributeNumber:
        return static_cast<int>(input_.below(8)) - 1;
    case parameter::name:
    case parameter::constantName:
        return name();
    case parameter::externalType:
        return input_.below(14);
    case parameter::size:
        return size();
    case parameter::setting:
        return static_cast<int>(input_.below(12)) - 1;
    case parameter::flag:
        return input_.below(2) == 1;
    case parameter::dimids:
        return row(5);
    case parameter::chunkSizes:
        return row(4);
    case parameter::start:
    case parameter::count:
    case parameter::stride:
        return indexVector(kind);
    case parameter::data:
        return data(dataClass);
    case parameter::fillValue:
        return input_.oneIn(3) ? Value(name()) : numeric(input_.oneOf(numericClasses), {1, 1});
    case parameter::preemption:
        return Value::scalar<float>(0.25F * static_cast<float>(input_.below(5)));
    default:
        return plausibleOfAnyType(kind);
    }
}

// Nothing outside the scratch folder may be named: any other name is put into a folder that does
// not exist, and is never an address.
Value ArgumentValues::inScratchFolder(const Value& given)
{
    if (given.classId() != vxCHAR_CLASS || given.isEmpty())
        return given;
    const std::string text = given.toText();
    const auto isText = [&](const char* name) { return text == name; };
    if (std::any_of(std::begin(fileNames), std::end(fileNames), isText))
        return scratchFolder() + "/" + text;
    std::string harmless = text;
    std::replace(harmless.begin(), harmless.end(), ':', '_');
    std::replace(harmless.begin(), harmless.end(), '.', '_');
    return scratchFolder() + "/missing/" + harmless;
}

Value ArgumentValues::name() { return input_.oneIn(8) ? text(300) : Value(input_.oneOf(names)); }

Value ArgumentValues::mode()
{
    if (input_.oneIn(4))
        return input_.oneOf(modeWords);
    const std::uint8_t chosen = input_.byte();
    int flags = 0;
    for (std::size_t i = 0; i < 8; ++i)
        flags |= (chosen >> i) & 1 ? modeFlags[i] : 0;
    return flags % 2 == 0 ? Value(flags) : Value::scalar<std::int32_t>(flags);
}

Value ArgumentValues::ncid()
{
    const std::uint8_t chosen = input_.byte();
    if (knownIds_.empty() || chosen >= 250)
        return (chosen + 256) << 16; // hardly ever a file
    return knownIds_[chosen % knownIds_.size()];
}

Value ArgumentValues::size()
{
    if (input_.oneIn(8))
        return Value::scalar<std::uint64_t>(input_.oneOf(notableSizes));
    return input_.below(17);
}

Value ArgumentValues::indexVector(char kind)
{
    if (kind == parameter::start)
        rank_ = input_.below(4) + 1;
    const vxClassID classId = input_.oneIn(4) ? input_.oneOf(numericClasses) : vxDOUBLE_CLASS;
    if (input_.oneIn(16))
        return numeric(classId, {1, rank_});

    const std::size_t least = kind == parameter::start ? 0 : 1;
    std::vector<std::size_t> lengths;
    for (std::size_t i = 0; i < rank_; ++i)
        lengths.push_back(least + input_.below(4));
    if (kind == parameter::count)
        countProduct_ = productOf(lengths);
    return visitClass(classId, [&](auto zero) {
        std::vector<decltype(zero)> elements;
        for (const std::size_t length : lengths)
            elements.push_back(static_cast<decltype(zero)>(length));
        return Value::row(elements);
    });
}

Value ArgumentValues::row(std::size_t limit)
{
    std::vector<double> elements(input_.below(limit));
    for (double& element : elements)
        element = static_cast<double>(input_.below(4));
    return elements.empty() ? Value::empty() : Value::row(elements);
}

Value ArgumentValues::data(vxClassID classId)
{
    static constexpr std::size_t counts[] = {0, 1, 2, 3, 6, 12};
    const bool asCounted = !input_.oneIn(4);
    const std::size_t count = asCounted ? std::min(countProduct_, dataLimit) : input_.oneOf(counts);
    if (count == 0)
        return Value::empty(classId);
    if (classId != vxCHAR_CLASS)
        return numeric(classId, {count, 1});
    std::u16string units(count, u' ');
    for (std::size_t i = 0; i < std::min(count, elementsRead); ++i)
        units[i] = input_.any<char16_t>();
    return Value::text(units);
}

Value ArgumentValues::numeric(vxClassID classId, const Dims& dims)
{
    const std::size_t count = productOf(dims);
    const std::uint8_t source = input_.byte();
    return visitClass(classId, [&](auto zero) {
        using T = decltype(zero);
        std::vector<T> elements(count);
        for (std::size_t i = 0; i < count; ++i) {
            if (i >= elementsRead)
                elements[i] = elements[i % elementsRead];
            else if (source % 3 == 0)
                elements[i] = input_.any<T>();
            else if (source % 3 == 1 && std::is_floating_point_v<T>)
                elements[i] = static_cast<T>(input_.oneOf(notableNumbers));
            else
                elements[i] = static_cast<T>(input_.below(8));
        }
        return Value::numeric(dims, elements);
    });
}

Value ArgumentValues::numericOfAnyClass(const Dims& dims)
{
    return numeric(input_.oneOf(numericClasses), dims);
}

Value ArgumentValues::text(std::size_t limit)
{
    const std::size_t length = input_.any<std::uint16_t>() % limit;
    std::u16string units(length, u'n');
    for (std::size_t i = 0; i < std::min(length, elementsRead); ++i)
        units[i] = input_.oneIn(2) ? input_.any<char16_t>() : static_cast<char16_t>(input_.byte());
    return Value::text(units);
}

Dims ArgumentValues::shape()
{
    const std::size_t m = input_.below(9);
    const std::size_t n = input_.below(9);
    switch (input_.below(6)) {
    case 0:
        return {1, m * n};
    case 1:
        return {m * n, 1};
    case 2:
        return {m, n};
    case 3:
        return {m, 2, n % 4};
    default:
        return {1, 1};
    }
}

Value ArgumentValues::anything()
{
    static_assert(8 * 8 <= elementLimit && 8 * 2 * 3 <= elementLimit);
    const Dims dims = shape();
    const std::size_t count = productOf(dims);
    switch (input_.below(8)) {
    case 0: {
        std::vector<unsigned char> bytes(count);
        for (std::size_t i = 0; i < std::min(count, elementsRead); ++i)
            bytes[i] = input_.byte();
        return Value::logicalBytes(dims, bytes);
    }
    case 1: {
        std::u16string units(count, u'a');
        for (std::size_t i = 0; i < std::min(count, elementsRead); ++i)
            units[i] = input_.any<char16_t>();
        return Value::text(dims, units);
    }
    case 2:
        return Value::cell(dims, std::vector<Value>(count, Value(1)));
    case 3:
        return Value::anythingElse(dims);
    case 4: {
        const std::vector<double> parts(count, static_cast<double>(input_.below(4)));
        return Value::complex(dims, parts, parts);
    }
    case 5:
        return name();
    default:
        return numeric(input_.oneOf(numericClasses), dims);
    }
}

} // namespace fuzz
