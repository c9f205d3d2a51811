// SPDX-License-Identifier: BSD-3-Clause
#include "element_classes.h"

#include "result_memory.h"

#include <octave/ov-bool-mat.h>
#include <octave/ov-flt-re-mat.h>
#include <octave/ov-int16.h>
#include <octave/ov-int32.h>
#include <octave/ov-int64.h>
#include <octave/ov-int8.h>
#include <octave/ov-re-mat.h>
#include <octave/ov-str-mat.h>
#include <octave/ov-uint16.h>
#include <octave/ov-uint32.h>
#include <octave/ov-uint64.h>
#include <octave/ov-uint8.h>

#include <new>
#include <type_traits>

namespace hosts::oct {

namespace {

// A typed array taken from a value would work as well, but costs an allocation: the storage is
// accessed through the object itself, whose type is certain from the interpreter's type number.
template <class Matrix> const void* shareOne(const octave_value& value)
{
    const octave_base_value& rep = value.get_rep();
    if (rep.type_id() != Matrix::static_type_id())
        return nullptr;
    return static_cast<const Matrix&>(rep).matrix_ref().data();
}

template <class Matrix, class... Others> const void* share(const octave_value& value)
{
    const void* elements = shareOne<Matrix>(value);
    if constexpr (sizeof...(Others) > 0)
        return elements ? elements : share<Others...>(value);
    return elements;
}

template <class Element, auto scalarOf, auto... force>
void readScalar(const octave_value& value, void* element)
{
    ::new (element) Element((value.*scalarOf)(force...));
}

template <auto arrayOf, auto... force> octave_value full(const octave_value& value)
{
    octave_value spelled = value.full_value();
    // For some types the interpreter fails to return the real elements of a complex array.
    if (spelled.iscomplex())
        spelled = spelled.real();
    return octave_value((spelled.*arrayOf)(force...));
}

template <class Element> octave_value adopt(void* block, const dim_vector& dims)
{
    static_assert(std::is_trivially_destructible_v<Element>);
    try {
        const Array<Element> array(static_cast<Element*>(block), dims);
        block = nullptr;
        return octave_value(array);
    } catch (...) {
        deleteElements<Element>(block, static_cast<size_t>(dims.numel()));
        throw;
    }
}

template <class Element> octave_value scalar(const void* element)
{
    return octave_value(*static_cast<const Element*>(element));
}

template <class Element, class Matrix, auto scalarOf, auto arrayOf, auto... force>
constexpr ElementClass row(vxClassID id)
{
    return {id,
            sizeof(Element),
            share<Matrix>,
            readScalar<Element, scalarOf, force...>,
            full<arrayOf, force...>,
            newElements<Element>,
            adopt<Element>,
            scalar<Element>};
}

using Value = octave_value;

// clang-format off
constexpr ElementClass doubleClass = row<double,        octave_matrix,        &Value::double_value,        &Value::array_value, true>(vxDOUBLE_CLASS);
constexpr ElementClass singleClass = row<float,         octave_float_matrix,  &Value::float_value,         &Value::float_array_value, true>(vxSINGLE_CLASS);
constexpr ElementClass int8Class   = row<octave_int8,   octave_int8_matrix,   &Value::int8_scalar_value,   &Value::int8_array_value>(vxINT8_CLASS);
constexpr ElementClass uint8Class  = row<octave_uint8,  octave_uint8_matrix,  &Value::uint8_scalar_value,  &Value::uint8_array_value>(vxUINT8_CLASS);
constexpr ElementClass int16Class  = row<octave_int16,  octave_int16_matrix,  &Value::int16_scalar_value,  &Value::int16_array_value>(vxINT16_CLASS);
constexpr ElementClass uint16Class = row<octave_uint16, octave_uint16_matrix, &Value::uint16_scalar_value, &Value::uint16_array_value>(vxUINT16_CLASS);
constexpr ElementClass int32Class  = row<octave_int32,  octave_int32_matrix,  &Value::int32_scalar_value,  &Value::int32_array_value>(vxINT32_CLASS);
constexpr ElementClass uint32Class = row<octave_uint32, octave_uint32_matrix, &Value::uint32_scalar_value, &Value::uint32_array_value>(vxUINT32_CLASS);
constexpr ElementClass int64Class  = row<octave_int64,  octave_int64_matrix,  &Value::int64_scalar_value,  &Value::int64_array_value>(vxINT64_CLASS);
constexpr ElementClass uint64Class = row<octave_uint64, octave_uint64_matrix, &Value::uint64_scalar_value, &Value::uint64_array_value>(vxUINT64_CLASS);
constexpr ElementClass boolClass   = row<bool,          octave_bool_matrix,   &Value::bool_value,          &Value::bool_array_value, false>(vxLOGICAL_CLASS);
// clang-format on

// The module sees 16-bit units, the interpreter holds bytes; a character is never a scalar here.
constexpr ElementClass charClass = {vxCHAR_CLASS,
                                    sizeof(char16_t),
                                    share<octave_char_matrix_str, octave_char_matrix_sq_str>,
                                    nullptr,
                                    full<&Value::char_array_value, true>,
                                    newElements<char>,
                                    adopt<char>,
                                    nullptr};
constexpr ElementClass cellClass = {vxCELL_CLASS, 0,       nullptr, nullptr,
                                    nullptr,      nullptr, nullptr, nullptr};
constexpr ElementClass structClass = {vxSTRUCT_CLASS, 0,       nullptr, nullptr,
                                      nullptr,        nullptr, nullptr, nullptr};
constexpr ElementClass unknownClass = {vxUNKNOWN_CLASS, 0,       nullptr, nullptr,
                                       nullptr,         nullptr, nullptr, nullptr};

} // namespace

const ElementClass& elementClass(const octave_value& value)
{
    switch (value.builtin_type()) {
    case btyp_double:
    case btyp_complex:
        return doubleClass;
    case btyp_float:
    case btyp_float_complex:
        return singleClass;
    case btyp_int8:
        return int8Class;
    case btyp_int16:
        return int16Class;
    case btyp_int32:
        return int32Class;
    case btyp_int64:
        return int64Class;
    case btyp_uint8:
        return uint8Class;
    case btyp_uint16:
        return uint16Class;
    case btyp_uint32:
        return uint32Class;
    case btyp_uint64:
        return uint64Class;
    case btyp_bool:
        return boolClass;
    case btyp_char:
        return charClass;
    case btyp_cell:
        return cellClass;
    case btyp_struct:
        return structClass;
    case btyp_func_handle:
    case btyp_unknown:
        break;
    }
    return unknownClass;
}

const ElementClass& elementClass(vxClassID id)
{
    static constexpr const ElementClass* classes[] = {
        &doubleClass, &singleClass, &int8Class,   &uint8Class, &int16Class,
        &uint16Class, &int32Class,  &uint32Class, &int64Class, &uint64Class,
        &boolClass,   &charClass,   &cellClass,   &structClass};
    for (const ElementClass* candidate : classes)
        if (candidate->id == id)
            return *candidate;
    return unknownClass;
}

} // namespace hosts::oct
