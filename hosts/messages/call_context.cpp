// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/call_context.h"

#include "hosts/messages/visible_text.h"

#include "vx/text.h"

#include <cstdint>
#include <cstring>
#include <limits>

namespace hosts::messages {

namespace {

constexpr std::size_t mostCharacters = 65536;

template <class Element> std::vector<double> elements(const vxArray* array)
{
    const auto* first = static_cast<const Element*>(vxGetData(array));
    std::vector<double> numbers;
    if (first == nullptr)
        return numbers;
    for (std::size_t i = 0; i < vxGetNumberOfElements(array); ++i)
        numbers.push_back(static_cast<double>(first[i]));
    return numbers;
}

} // namespace

FailedCall::FailedCall(const CallContext& context) : context_(context)
{
    if (const auto name = context_.count > 0 ? textOf(context_.arguments[0]) : std::nullopt)
        operation_ = name->substr(0, name->find('\0'));
    const OperationForm* form = findOperationForm(operation_, context_.table);
    if (form != nullptr && form->parameterCount + 1 == context_.count)
        form_ = form;
}

const vxArray* FailedCall::operationArgument() const
{
    return context_.count > 0 ? context_.arguments[0] : nullptr;
}

const vxArray* FailedCall::argument(std::string_view parameter) const
{
    for (std::size_t i = 0; form_ != nullptr && i < form_->parameterCount; ++i)
        if (form_->parameters[i].name == parameter)
            return context_.arguments[i + 1];
    return nullptr;
}

std::optional<double> FailedCall::number(std::string_view parameter) const
{
    const vxArray* array = argument(parameter);
    if (array == nullptr || vxGetNumberOfElements(array) != 1)
        return std::nullopt;
    const std::vector<double> numbers = numbersOf(array);
    return numbers.empty() ? std::nullopt : std::optional(numbers.front());
}

std::optional<int> FailedCall::identifier(std::string_view parameter) const
{
    const std::optional<double> value = number(parameter);
    using Limits = std::numeric_limits<int>;
    if (!value || !(*value >= Limits::min() && *value <= Limits::max()))
        return std::nullopt;
    return static_cast<int>(*value);
}

std::optional<std::string> FailedCall::text(std::string_view parameter) const
{
    const vxArray* array = argument(parameter);
    return array == nullptr ? std::nullopt : textOf(array);
}

std::vector<double> FailedCall::numbers(std::string_view parameter) const
{
    const vxArray* array = argument(parameter);
    return array == nullptr ? std::vector<double>() : numbersOf(array);
}

std::vector<double> numbersOf(const vxArray* array)
{
    if (vxGetNumberOfElements(array) > mostNumbers)
        return {};
    // clang-format off
    switch (vxGetClassID(array)) {
    case vxDOUBLE_CLASS: return elements<double>(array);
    case vxSINGLE_CLASS: return elements<float>(array);
    case vxINT8_CLASS:   return elements<std::int8_t>(array);
    case vxUINT8_CLASS:  return elements<std::uint8_t>(array);
    case vxINT16_CLASS:  return elements<std::int16_t>(array);
    case vxUINT16_CLASS: return elements<std::uint16_t>(array);
    case vxINT32_CLASS:  return elements<std::int32_t>(array);
    case vxUINT32_CLASS: return elements<std::uint32_t>(array);
    case vxINT64_CLASS:  return elements<std::int64_t>(array);
    case vxUINT64_CLASS: return elements<std::uint64_t>(array);
    default:             return {};
    }
    // clang-format on
}

std::optional<std::string> textOf(const vxArray* array)
{
    if (vxGetClassID(array) != vxCHAR_CLASS || vxGetNumberOfElements(array) > mostCharacters)
        return std::nullopt;
    return fnd::filesystem::codecvt_ustring_to_narrow_string()(vxGetText(array));
}

const char* className(vxClassID classId)
{
    // clang-format off
    switch (classId) {
    case vxCELL_CLASS:    return "cell";
    case vxCHAR_CLASS:    return "char";
    case vxLOGICAL_CLASS: return "logical";
    case vxDOUBLE_CLASS:  return "double";
    case vxSINGLE_CLASS:  return "single";
    case vxINT8_CLASS:    return "int8";
    case vxUINT8_CLASS:   return "uint8";
    case vxINT16_CLASS:   return "int16";
    case vxUINT16_CLASS:  return "uint16";
    case vxINT32_CLASS:   return "int32";
    case vxUINT32_CLASS:  return "uint32";
    case vxINT64_CLASS:   return "int64";
    case vxUINT64_CLASS:  return "uint64";
    case vxSTRUCT_CLASS:  return "struct";
    case vxUNKNOWN_CLASS: break;
    }
    // clang-format on
    return "object or function";
}

namespace {

std::string sizeText(const vxArray* array)
{
    std::string text;
    const std::size_t rank = vxGetNumberOfDimensions(array);
    for (std::size_t i = 0; i < rank; ++i)
        text.append(i == 0 ? "" : "-by-").append(std::to_string(vxGetDimensions(array)[i]));
    return text;
}

std::string describeScalar(const vxArray* array)
{
    const vxClassID classId = vxGetClassID(array);
    if (classId == vxLOGICAL_CLASS) {
        unsigned char stored = 0;
        std::memcpy(&stored, vxGetLogicals(array), 1); // any byte but 0 is true
        return std::string("the logical value ") + (stored != 0 ? "true" : "false");
    }
    const std::vector<double> numbers = numbersOf(array);
    if (numbers.empty())
        return "";
    const std::string isOf =
        classId == vxDOUBLE_CLASS ? "" : std::string(" of class ") + className(classId);
    return "the number " + numberText(numbers.front()) + isOf;
}

} // namespace

std::string describeValue(const vxArray* array)
{
    const std::string ofClass = className(vxGetClassID(array));
    if (vxGetClassID(array) == vxUNKNOWN_CLASS)
        return "an " + ofClass;
    if (vxIsEmpty(array))
        return "empty (" + sizeText(array) + " " + ofClass + ")";
    if (const std::optional<std::string> text = textOf(array))
        return "the text " + inQuotes(*text);
    const std::string scalar = vxGetNumberOfElements(array) == 1 ? describeScalar(array) : "";
    const std::string article = ofClass[0] == 'i' ? "an " : "a ";
    return !scalar.empty() ? scalar : article + ofClass + " array (" + sizeText(array) + ")";
}

} // namespace hosts::messages
