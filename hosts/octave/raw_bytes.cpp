// SPDX-License-Identifier: BSD-3-Clause
#include "raw_bytes.h"

#include "element_classes.h"
#include "host_identifiers.h"
#include "hosts/messages/call_context.h"
#include "hosts/messages/operation_forms.h"

#include <octave/error.h>
#include <octave/ov-str-mat.h>

#include <cstring>
#include <string>
#include <string_view>

namespace hosts::oct {

namespace {

using messages::className;
using messages::OperationForm;

constexpr octave_idx_type fewestArguments = 4; // of a write: its name, ncid, varid, and the values

// The name of a write, as bytes; empty for any other operation.
std::string_view nameOfWrite(const octave_value_list& args)
{
    const octave_base_value& rep = args(0).get_rep();
    const int type = rep.type_id();
    if (type != octave_char_matrix_str::static_type_id() &&
        type != octave_char_matrix_sq_str::static_type_id())
        return {};
    const auto& characters = static_cast<const octave_char_matrix&>(rep).matrix_ref();
    const std::string_view name(characters.data(), static_cast<size_t>(characters.numel()));
    return name.size() > 6 && std::memcmp(name.data(), "put", 3) == 0 ? name : std::string_view();
}

// The ending of the name of an operation for values of that type; empty if the quick check cannot
// decide.
std::string_view suffixFor(builtin_type_t type)
{
    // clang-format off
    switch (type) {
    case btyp_double: return "Double";
    case btyp_float:  return "Float";
    case btyp_int8:   return "Schar";
    case btyp_uint8:  return "Uchar";
    case btyp_int16:  return "Short";
    case btyp_uint16: return "Ushort";
    case btyp_int32:  return "Int";
    case btyp_uint32: return "Uint";
    case btyp_int64:  return "Int64";
    case btyp_uint64: return "Uint64";
    case btyp_char:   return "Text";
    default:          return {};
    }
    // clang-format on
}

// The quick check, for nearly every write. The names that end in "UInt" and "UInt64" take the slow
// one.
bool isOfFittingClass(std::string_view name, builtin_type_t type)
{
    const std::string_view suffix = suffixFor(type);
    if (suffix.empty() || name.size() <= suffix.size())
        return false;
    const size_t start = name.size() - suffix.size();
    return std::memcmp(name.data() + start, suffix.data(), suffix.size()) == 0 &&
           name[start - 1] != 'U';
}

bool isNumberTextOrLogical(vxClassID id) { return id >= vxCHAR_CLASS && id != vxSTRUCT_CLASS; }

// The expression to write instead of the values x.
std::string advice(const OperationForm& form, vxClassID given)
{
    if (form.dataClass == vxCHAR_CLASS)
        return "write num2str (x) for the digits of numbers x, char (x) for the characters of "
               "codes x";
    const std::string conversion = std::string(className(form.dataClass)) + " (x)";
    if (given != vxCHAR_CLASS)
        return "write " + conversion + " for the values x";
    return "text is written by the operations that end in \"Text\"; write " + conversion +
           " for the codes of the characters x";
}

std::string textOf(const OperationForm& form, vxClassID given, bool isComplex)
{
    const std::string name = "gridio: \"" + std::string(form.name) + "\"";
    std::string text;
    if (given != form.dataClass)
        text = name + " takes values of class " + className(form.dataClass) +
               ", and these are of class " + className(given) +
               ": their bytes are taken as they are, without conversion; " + advice(form, given) +
               ".";
    if (isComplex)
        text += (text.empty() ? name + " was given complex values:" : " They are complex:") +
                std::string(" the imaginary part is left out.");
    return text + " warning (\"off\", \"" + rawBytesIdentifier + "\") switches this warning off.";
}

void warnIfOfOtherClass(std::string_view name, const octave_value_list& args)
{
    const OperationForm* form = messages::findOperationForm(name.substr(0, name.find('\0')));
    if (form == nullptr || form->dataClass == vxUNKNOWN_CLASS ||
        static_cast<octave_idx_type>(form->parameterCount) + 1 != args.length())
        return;
    const octave_value& values = args(args.length() - 1);
    const vxClassID given = elementClass(values).id;
    if (!isNumberTextOrLogical(given) || values.isempty())
        return;
    const bool isComplex = values.iscomplex();
    if (given == form->dataClass && !isComplex)
        return;
    warning_with_id(rawBytesIdentifier, "%s", textOf(*form, given, isComplex).c_str());
}

} // namespace

void warnOfRawBytes(const octave_value_list& args)
{
    if (args.length() < fewestArguments)
        return;
    const std::string_view name = nameOfWrite(args);
    if (!name.empty() && !isOfFittingClass(name, args(args.length() - 1).builtin_type()))
        warnIfOfOtherClass(name, args);
}

} // namespace hosts::oct
