// SPDX-License-Identifier: BSD-3-Clause
// A value of a script: an array with shared ownership. Arguments and results of calls are Values.
#pragma once

#include "hosts/standalone/array.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace standalone {

using Dims = std::vector<std::size_t>;

// The class for elements of a C type: double for double, char for char16_t, logical for bool.
template <class T> constexpr vxClassID classOf();

// The name of a class in scripts: "double", "char"; "something" for an unknown class.
const char* classWord(vxClassID classId);

// Immutable, so that copies share one array. The dimensions of a constructor must multiply to the
// number of elements given (std::invalid_argument otherwise).
class Value {
public:
    // As in scripts: any number is a double scalar, true and false are logical scalars, text is a
    // char row (UTF-8 here).
    template <class T, class = std::enable_if_t<std::is_arithmetic_v<T>>> Value(T value);
    Value(const char* text) : Value(Value::text(std::string_view(text))) {}
    Value(const std::string& text) : Value(Value::text(std::string_view(text))) {}

    static Value number(double value);
    template <class T> static Value scalar(T value) { return numeric<T>({1, 1}, {value}); }
    template <class T> static Value row(const std::vector<T>& elements);
    template <class T> static Value column(const std::vector<T>& elements);
    template <class T> static Value numeric(const Dims& dims, const std::vector<T>& elements);
    template <class T>
    static Value complex(const Dims& dims, const std::vector<T>& real,
                         const std::vector<T>& imaginary);

    // An empty array, of any class and of a shape with a zero.
    static Value empty(vxClassID classId = vxDOUBLE_CLASS, const Dims& dims = {0, 0});

    // 1-by-n; 0-by-0 when there is no character, as a script's ''.
    static Value text(std::string_view utf8);
    static Value text(std::u16string_view units);
    static Value text(const Dims& dims, std::u16string_view units);

    static Value logical(bool value);
    static Value logical(const Dims& dims, const std::vector<bool>& elements);
    static Value logicalBytes(const Dims& dims, const std::vector<unsigned char>& bytes);

    static Value cell(const Dims& dims, const std::vector<Value>& cells);

    // A structure of one element, with fields in this order; and one of other dimensions, with
    // fields of these names.
    static Value structure(const std::vector<std::pair<std::string, Value>>& fields);
    static Value structures(const Dims& dims, const std::vector<std::string>& names);

    // An object, a function handle: of vxUNKNOWN_CLASS, without storage.
    static Value anythingElse(const Dims& dims = {1, 1});

    // Takes over an array that a vxCreate function returned outside a call.
    static Value adopt(vxArray* created);

    explicit Value(ArrayOwner array);

    vxClassID classId() const { return array_->classId; }
    const Dims& dims() const { return array_->dims; }
    std::size_t numel() const { return array_->count; }
    bool isEmpty() const { return numel() == 0; }
    bool isComplex() const { return array_->imaginary != nullptr; }
    const vxArray* array() const { return array_.get(); }

    // All of these throw std::logic_error if the value is of another kind.
    template <class T> std::vector<T> elements() const; // of exactly that class
    template <class T> const T* data() const;           // the same, in place
    double toDouble() const;                            // of a double scalar
    bool toLogical() const;                             // of a logical scalar
    std::u16string toUtf16() const;                     // of any char array, in storage order
    std::string toText() const;                         // the same, in UTF-8
    std::vector<Value> cells() const;                   // an empty cell is a 0-by-0 double
    const std::vector<std::string>& fieldNames() const; // of a structure
    Value field(const std::string& name) const;         // of a structure of one element

    // "int32 2x3 [1 2 3 4 5 6]", cut when it is long.
    std::string describe() const;

private:
    static Value fromBytes(vxClassID classId, const Dims& dims, const void* elements,
                           std::size_t count, const void* imaginary = nullptr);
    void require(vxClassID classId) const;
    void requireScalar(vxClassID classId) const;

    ArrayOwner array_; // never null
};

// Same class, dimensions and elements, bit by bit: a NaN equals itself.
bool operator==(const Value& a, const Value& b);
inline bool operator!=(const Value& a, const Value& b) { return !(a == b); }

std::ostream& operator<<(std::ostream& out, const Value& value);

// clang-format off
template <class T> constexpr vxClassID classOf()
{
    if constexpr (std::is_same_v<T, double>) return vxDOUBLE_CLASS;
    else if constexpr (std::is_same_v<T, float>) return vxSINGLE_CLASS;
    else if constexpr (std::is_same_v<T, std::int8_t>) return vxINT8_CLASS;
    else if constexpr (std::is_same_v<T, std::uint8_t>) return vxUINT8_CLASS;
    else if constexpr (std::is_same_v<T, std::int16_t>) return vxINT16_CLASS;
    else if constexpr (std::is_same_v<T, std::uint16_t>) return vxUINT16_CLASS;
    else if constexpr (std::is_same_v<T, std::int32_t>) return vxINT32_CLASS;
    else if constexpr (std::is_same_v<T, std::uint32_t>) return vxUINT32_CLASS;
    else if constexpr (std::is_same_v<T, std::int64_t>) return vxINT64_CLASS;
    else if constexpr (std::is_same_v<T, std::uint64_t>) return vxUINT64_CLASS;
    else if constexpr (std::is_same_v<T, char16_t>) return vxCHAR_CLASS;
    else if constexpr (std::is_same_v<T, bool>) return vxLOGICAL_CLASS;
    else static_assert(!std::is_same_v<T, T>, "no array class has elements of this type");
}
// clang-format on

template <class T, class>
Value::Value(T value)
    : Value([value] {
          if constexpr (std::is_same_v<T, bool>)
              return Value::logical(value);
          else
              return Value::number(static_cast<double>(value));
      }())
{
}

template <class T> Value Value::row(const std::vector<T>& elements)
{
    return numeric<T>({1, elements.size()}, elements);
}

template <class T> Value Value::column(const std::vector<T>& elements)
{
    return numeric<T>({elements.size(), 1}, elements);
}

template <class T> Value Value::numeric(const Dims& dims, const std::vector<T>& elements)
{
    static_assert(classOf<T>() >= vxDOUBLE_CLASS,
                  "text and logical have constructors of their own");
    return fromBytes(classOf<T>(), dims, elements.data(), elements.size());
}

template <class T>
Value Value::complex(const Dims& dims, const std::vector<T>& real, const std::vector<T>& imaginary)
{
    if (imaginary.size() != real.size())
        throw std::invalid_argument("as many imaginary parts as real ones are needed");
    return fromBytes(classOf<T>(), dims, real.data(), real.size(), imaginary.data());
}

template <class T> const T* Value::data() const
{
    require(classOf<T>());
    return static_cast<const T*>(array_->elements.get());
}

template <class T> std::vector<T> Value::elements() const
{
    const T* first = data<T>();
    return first == nullptr ? std::vector<T>() : std::vector<T>(first, first + numel());
}

} // namespace standalone
