// SPDX-License-Identifier: BSD-3-Clause
#include "tests/support/element_samples.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>

namespace testsupport {
namespace {

using Ovard::gridio::ElementType;
using standalone::Dims;
using standalone::Value;

// Calls visit with a zero of the C element of a class other than char.
template <class Visitor> auto visitNumericClass(vxClassID classId, Visitor&& visit)
{
    // clang-format off
    switch (classId) {
    case vxDOUBLE_CLASS: return visit(double{});
    case vxSINGLE_CLASS: return visit(float{});
    case vxINT8_CLASS:   return visit(std::int8_t{});
    case vxUINT8_CLASS:  return visit(std::uint8_t{});
    case vxINT16_CLASS:  return visit(std::int16_t{});
    case vxUINT16_CLASS: return visit(std::uint16_t{});
    case vxINT32_CLASS:  return visit(std::int32_t{});
    case vxUINT32_CLASS: return visit(std::uint32_t{});
    case vxINT64_CLASS:  return visit(std::int64_t{});
    case vxUINT64_CLASS: return visit(std::uint64_t{});
    default: throw std::invalid_argument("not a numeric class");
    }
    // clang-format on
}

template <class T> Bytes bytesOf(const std::vector<T>& elements)
{
    Bytes bytes(elements.size() * sizeof(T), '\0');
    if (!elements.empty())
        std::memcpy(bytes.data(), elements.data(), bytes.size());
    return bytes;
}

template <class T> std::vector<T> elementsOf(const Bytes& bytes)
{
    std::vector<T> elements(bytes.size() / sizeof(T));
    if (!elements.empty())
        std::memcpy(elements.data(), bytes.data(), elements.size() * sizeof(T));
    return elements;
}

template <class T> T nanWithPayload();
template <> double nanWithPayload<double>() { return std::nan("0x1234"); }
template <> float nanWithPayload<float>() { return std::nanf("0x1234"); }

template <class T> std::vector<T> oddities()
{
    using Limits = std::numeric_limits<T>;
    std::vector<T> list = {Limits::lowest(), Limits::max(), T{0}, T{1}, static_cast<T>(-1)};
    if constexpr (std::is_floating_point_v<T>)
        list.insert(list.end(), {nanWithPayload<T>(), Limits::infinity(), -Limits::infinity(),
                                 -T{0}, Limits::denorm_min()});
    return list;
}

template <class T> std::vector<T> counting(std::size_t count)
{
    std::vector<T> elements(count);
    for (std::size_t i = 0; i < count; ++i)
        elements[i] = static_cast<T>(i);
    return elements;
}

} // namespace

Bytes countingBytes(const ElementType& element, std::size_t count)
{
    if (element.hostClass == vxCHAR_CLASS)
        return bytesOf(counting<char>(count));
    return visitNumericClass(element.hostClass,
                             [&](auto zero) { return bytesOf(counting<decltype(zero)>(count)); });
}

Bytes sampleBytes(const ElementType& element, std::size_t count)
{
    Bytes bytes = countingBytes(element, count);
    const Bytes odd = element.hostClass == vxCHAR_CLASS
                          ? Bytes("a\0\x7F\x80\xE9\xFFz", 7)
                          : visitNumericClass(element.hostClass, [](auto zero) {
                                return bytesOf(oddities<decltype(zero)>());
                            });
    return bytes.replace(0, odd.size(), odd, 0, bytes.size());
}

Value valueOfBytes(vxClassID classId, const Dims& dims, const Bytes& bytes)
{
    if (classId == vxCHAR_CLASS) {
        std::u16string units;
        for (const char byte : bytes) {
            const auto code = static_cast<unsigned char>(byte);
            units += static_cast<char16_t>(code < 0x80 ? code : 0xFF00 | code);
        }
        return Value::text(dims, units);
    }
    return visitNumericClass(classId, [&](auto zero) {
        return Value::numeric(dims, elementsOf<decltype(zero)>(bytes));
    });
}

Bytes bytesOfValue(const Value& value)
{
    if (value.classId() == vxCHAR_CLASS) {
        Bytes bytes;
        for (const char16_t unit : value.toUtf16())
            bytes += static_cast<char>(unit & 0xFF);
        return bytes;
    }
    return visitNumericClass(value.classId(),
                             [&](auto zero) { return bytesOf(value.elements<decltype(zero)>()); });
}

bool servesVariables(const ElementType& element) { return std::string(element.suffix) != "Ubyte"; }

std::string operationName(const std::string& form, const std::string& suffix)
{
    if (form == "putVar1" && suffix == "Uint64")
        return "putVar1UInt64";
    if (form == "putVar1" && suffix == "Uint")
        return "putVar1UInt";
    return form + suffix;
}

} // namespace testsupport
