// SPDX-License-Identifier: BSD-3-Clause
// Creating and reading values.
#include "hosts/standalone/value.h"

#include "hosts/standalone/ledger.h"
#include "hosts/standalone/text.h"

#include <algorithm>
#include <cstring>
#include <ostream>
#include <sstream>
#include <utility>

namespace standalone {

const char* classWord(vxClassID classId)
{
    switch (classId) {
    case vxCELL_CLASS:
        return "cell";
    case vxCHAR_CLASS:
        return "char";
    case vxLOGICAL_CLASS:
        return "logical";
    case vxSTRUCT_CLASS:
        return "struct";
    case vxDOUBLE_CLASS:
        return "double";
    case vxSINGLE_CLASS:
        return "single";
    case vxINT8_CLASS:
        return "int8";
    case vxUINT8_CLASS:
        return "uint8";
    case vxINT16_CLASS:
        return "int16";
    case vxUINT16_CLASS:
        return "uint16";
    case vxINT32_CLASS:
        return "int32";
    case vxUINT32_CLASS:
        return "uint32";
    case vxINT64_CLASS:
        return "int64";
    case vxUINT64_CLASS:
        return "uint64";
    case vxUNKNOWN_CLASS:
        break;
    }
    return "something";
}

namespace {

constexpr std::size_t elementsDescribed = 20;

template <class T> void writeElements(std::ostream& out, const Value& value)
{
    const std::size_t shown = std::min(value.numel(), elementsDescribed);
    out << " [";
    for (std::size_t i = 0; i < shown; ++i)
        out << (i == 0 ? "" : " ") << +value.data<T>()[i]; // + makes a number of a byte
    out << (shown < value.numel() ? " ...]" : "]");
}

void writeNumbers(std::ostream& out, const Value& value)
{
    switch (value.classId()) {
    case vxDOUBLE_CLASS:
        return writeElements<double>(out, value);
    case vxSINGLE_CLASS:
        return writeElements<float>(out, value);
    case vxINT8_CLASS:
        return writeElements<std::int8_t>(out, value);
    case vxUINT8_CLASS:
        return writeElements<std::uint8_t>(out, value);
    case vxINT16_CLASS:
        return writeElements<std::int16_t>(out, value);
    case vxUINT16_CLASS:
        return writeElements<std::uint16_t>(out, value);
    case vxINT32_CLASS:
        return writeElements<std::int32_t>(out, value);
    case vxUINT32_CLASS:
        return writeElements<std::uint32_t>(out, value);
    case vxINT64_CLASS:
        return writeElements<std::int64_t>(out, value);
    case vxUINT64_CLASS:
        return writeElements<std::uint64_t>(out, value);
    default:
        break;
    }
}

// The contents of a cell array or a structure.
void writeContents(std::ostream& out, const vxArray& array)
{
    const std::size_t shown = std::min(array.cells.size(), elementsDescribed);
    out << " {";
    for (std::size_t i = 0; i < shown; ++i) {
        out << (i == 0 ? "" : "; ");
        if (i < array.fieldNames.size())
            out << array.fieldNames[i] << ": ";
        out << (array.cells[i] == nullptr ? "[]" : Value(array.cells[i]).describe());
    }
    out << (shown < array.cells.size() ? "; ...}" : "}");
}

bool sameBytes(const Elements& a, const Elements& b, std::size_t bytes)
{
    if (a == nullptr || b == nullptr)
        return a == b;
    return std::memcmp(a.get(), b.get(), bytes) == 0;
}

bool sameContents(const vxArray& a, const vxArray& b)
{
    const auto value = [](const ArrayOwner& inside) {
        return inside == nullptr ? Value::empty() : Value(inside);
    };
    return std::equal(
        a.cells.begin(), a.cells.end(), b.cells.begin(), b.cells.end(),
        [&](const ArrayOwner& x, const ArrayOwner& y) { return value(x) == value(y); });
}

} // namespace

Value::Value(ArrayOwner array) : array_(std::move(array))
{
    if (array_ == nullptr)
        throw std::invalid_argument("a value needs an array");
}

Value Value::fromBytes(vxClassID classId, const Dims& dims, const void* elements, std::size_t count,
                       const void* imaginary)
{
    const auto make = [&](const void* bytes) {
        ArrayOwner array = makeArray(classId, dims.size(), dims.data(), Contents::anything);
        if (array->count != count)
            throw std::invalid_argument("the dimensions do not multiply to the number of elements");
        if (count != 0)
            std::memcpy(array->elements.get(), bytes, count * elementSize(classId));
        return array;
    };
    ArrayOwner array = make(elements);
    if (imaginary != nullptr)
        array->imaginary = std::move(make(imaginary)->elements);
    return Value(std::move(array));
}

Value Value::number(double value) { return fromBytes(vxDOUBLE_CLASS, {1, 1}, &value, 1); }

Value Value::empty(vxClassID classId, const Dims& dims)
{
    constexpr char nothing = 0;
    return fromBytes(classId, dims, &nothing, 0);
}

Value Value::text(std::string_view utf8)
{
    return text(std::u16string_view(standalone::toUtf16(utf8)));
}

Value Value::text(std::u16string_view units)
{
    return text(units.empty() ? Dims{0, 0} : Dims{1, units.size()}, units);
}

Value Value::text(const Dims& dims, std::u16string_view units)
{
    return fromBytes(vxCHAR_CLASS, dims, units.data(), units.size());
}

Value Value::logical(bool value) { return fromBytes(vxLOGICAL_CLASS, {1, 1}, &value, 1); }

Value Value::logical(const Dims& dims, const std::vector<bool>& elements)
{
    return logicalBytes(dims, std::vector<unsigned char>(elements.begin(), elements.end()));
}

Value Value::logicalBytes(const Dims& dims, const std::vector<unsigned char>& bytes)
{
    return fromBytes(vxLOGICAL_CLASS, dims, bytes.data(), bytes.size());
}

Value Value::cell(const Dims& dims, const std::vector<Value>& cells)
{
    ArrayOwner array = makeArray(vxCELL_CLASS, dims.size(), dims.data(), Contents::zeros);
    if (array->count != cells.size())
        throw std::invalid_argument("the dimensions do not multiply to the number of cells");
    for (std::size_t i = 0; i < cells.size(); ++i)
        array->cells[i] = cells[i].array_;
    return Value(std::move(array));
}

Value Value::structure(const std::vector<std::pair<std::string, Value>>& fields)
{
    const Dims one = {1, 1};
    ArrayOwner array = makeArray(vxSTRUCT_CLASS, one.size(), one.data(), Contents::zeros);
    for (const auto& [name, value] : fields) {
        array->fieldNames.push_back(name);
        array->cells.push_back(value.array_);
    }
    return Value(std::move(array));
}

Value Value::structures(const Dims& dims, const std::vector<std::string>& names)
{
    ArrayOwner array = makeArray(vxSTRUCT_CLASS, dims.size(), dims.data(), Contents::zeros);
    array->fieldNames = names;
    if (array->count == 1)
        array->cells.resize(names.size());
    return Value(std::move(array));
}

Value Value::anythingElse(const Dims& dims)
{
    return Value(makeArray(vxUNKNOWN_CLASS, dims.size(), dims.data(), Contents::zeros));
}

Value Value::adopt(vxArray* created)
{
    ArrayOwner array = ledger().takeCreated(created);
    if (array == nullptr)
        throw std::invalid_argument("only an array that was created, and has no owner yet");
    array->writable = false;
    return Value(std::move(array));
}

void Value::require(vxClassID classId) const
{
    if (array_->classId != classId)
        throw std::logic_error(std::string(classWord(classId)) + " expected, not " + describe());
}

void Value::requireScalar(vxClassID classId) const
{
    require(classId);
    if (numel() != 1)
        throw std::logic_error("one element expected, not " + describe());
}

double Value::toDouble() const
{
    requireScalar(vxDOUBLE_CLASS);
    return *data<double>();
}

bool Value::toLogical() const
{
    requireScalar(vxLOGICAL_CLASS);
    return *static_cast<const unsigned char*>(array_->elements.get()) != 0;
}

std::u16string Value::toUtf16() const
{
    const char16_t* units = data<char16_t>();
    return units == nullptr ? std::u16string() : std::u16string(units, numel());
}

std::string Value::toText() const { return toUtf8(toUtf16()); }

std::vector<Value> Value::cells() const
{
    require(vxCELL_CLASS);
    std::vector<Value> values;
    for (const ArrayOwner& inside : array_->cells)
        values.push_back(inside == nullptr ? empty() : Value(inside));
    return values;
}

const std::vector<std::string>& Value::fieldNames() const
{
    require(vxSTRUCT_CLASS);
    return array_->fieldNames;
}

Value Value::field(const std::string& name) const
{
    requireScalar(vxSTRUCT_CLASS);
    const auto found = std::find(fieldNames().begin(), fieldNames().end(), name);
    if (found == fieldNames().end())
        throw std::logic_error("no field " + name + " in " + describe());
    const ArrayOwner& inside =
        array_->cells[static_cast<std::size_t>(found - fieldNames().begin())];
    return inside == nullptr ? empty() : Value(inside);
}

std::string Value::describe() const
{
    std::ostringstream out;
    out.precision(17);
    out << classWord(classId());
    for (std::size_t i = 0; i < dims().size(); ++i)
        out << (i == 0 ? ' ' : 'x') << dims()[i];
    if (classId() == vxCHAR_CLASS)
        out << " '" << toText() << '\'';
    else if (classId() == vxLOGICAL_CLASS && numel() == 1)
        out << (toLogical() ? " true" : " false");
    else if (isNumericClass(classId()) && !isEmpty())
        writeNumbers(out, *this);
    else if (!array_->cells.empty())
        writeContents(out, *array_);
    return out.str();
}

bool operator==(const Value& a, const Value& b)
{
    if (a.classId() != b.classId() || a.dims() != b.dims())
        return false;
    if (a.array()->fieldNames != b.array()->fieldNames || !sameContents(*a.array(), *b.array()))
        return false;
    const std::size_t bytes = a.numel() * elementSize(a.classId());
    return sameBytes(a.array()->elements, b.array()->elements, bytes) &&
           sameBytes(a.array()->imaginary, b.array()->imaginary, bytes);
}

std::ostream& operator<<(std::ostream& out, const Value& value) { return out << value.describe(); }

} // namespace standalone
