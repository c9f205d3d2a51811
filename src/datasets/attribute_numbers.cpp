// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/attribute_numbers.h"

#include "check_status.h"
#include "convert/host_memory.h"
#include "data/elements/element_types.h"
#include "datasets/stored_types.h"
#include "library/guards/generated_attributes.h"
#include "types/exact_numbers.h"

#include <cmath>
#include <cstring>
#include <limits>

namespace Ovard::gridio {
namespace {

template <class T> AttributeNumbers::Number wideNumber(T value)
{
    if constexpr (std::is_floating_point_v<T>)
        return static_cast<double>(value);
    else if constexpr (std::is_signed_v<T>)
        return static_cast<std::int64_t>(value);
    else
        return static_cast<std::uint64_t>(value);
}

void readNumbers(const Variable& variable, const char* name, const ElementType& element,
                 AttributeNumbers& attribute)
{
    const HostMemory<char> buffer(static_cast<char*>(
        vxCalloc(attribute.length * element.size + leastAttributeBytes, sizeof(char))));
    checkStatus(element.getAtt(variable.ncid(), variable.varid(), name, buffer.get()),
                variable.entry());
    if (element.externalType == NC_CHAR) {
        attribute.text.assign(buffer.get(), attribute.length);
        return;
    }
    withTypeOf(*storedTypeOf(element.externalType), [&](auto value) {
        for (std::size_t i = 0; i < attribute.length; ++i) {
            std::memcpy(&value, buffer.get() + i * sizeof value, sizeof value);
            attribute.numbers.push_back(wideNumber(value));
            attribute.bytes.push_back(cf::storedValue(value));
        }
    });
}

// Rounds a bound that lies between two integers towards the valid values.
double innerInteger(double bound, BoundSide side)
{
    return side == BoundSide::lower ? std::ceil(bound) : std::floor(bound);
}

bool isAbove(const AttributeNumbers::Number& number)
{
    return std::visit([](auto value) { return value > 0; }, number);
}

} // namespace

AttributeNumbers attributeNumbers(const Variable& variable, const char* name)
{
    AttributeNumbers attribute;
    nc_type xtype = NC_NAT;
    const int status =
        nc_inq_att(variable.ncid(), variable.varid(), name, &xtype, &attribute.length);
    if (status == NC_ENOTATT)
        return attribute;
    checkStatus(status, variable.entry());
    attribute.exists = true;
    attribute.isText = xtype == NC_CHAR || xtype == NC_STRING;
    const ElementType* element = findExternalType(xtype);
    if (element == nullptr)
        return attribute;
    attribute.xtype = attribute.isText ? NC_NAT : xtype;
    if (attribute.length <= mostAttributeNumbers)
        readNumbers(variable, name, *element, attribute);
    return attribute;
}

double toDouble(const AttributeNumbers::Number& number)
{
    return std::visit([](auto value) { return static_cast<double>(value); }, number);
}

std::optional<cf::StoredValue> storedNumber(const AttributeNumbers::Number& number,
                                            cf::StoredType type)
{
    return withTypeOf(type, [&](auto target) -> std::optional<cf::StoredValue> {
        using Target = decltype(target);
        if constexpr (std::is_floating_point_v<Target>) {
            const double value = toDouble(number);
            if (std::isfinite(value) &&
                std::abs(value) > static_cast<double>(std::numeric_limits<Target>::max()))
                return std::nullopt;
            return cf::storedValue(static_cast<Target>(value));
        } else {
            if (!std::visit([&](auto value) { return convertExactly(value, target); }, number))
                return std::nullopt;
            return cf::storedValue(target);
        }
    });
}

Bound boundOf(const AttributeNumbers::Number& number, cf::StoredType type, BoundSide side)
{
    AttributeNumbers::Number bound = number;
    if (const auto* floating = std::get_if<double>(&number);
        floating != nullptr && !isFloating(type))
        bound = innerInteger(*floating, side);
    if (const auto value = storedNumber(bound, type))
        return {false, value};
    return {isAbove(bound) == (side == BoundSide::lower), std::nullopt};
}

} // namespace Ovard::gridio
