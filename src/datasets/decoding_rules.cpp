// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/decoding_rules.h"

#include "check_status.h"
#include "cf/ascii_text.h"
#include "data/elements/element_types.h"
#include "datasets/attribute_numbers.h"
#include "datasets/stored_types.h"
#include "types/type_description.h"

#include <cmath>
#include <cstring>

namespace Ovard::gridio {
namespace {

using Number = AttributeNumbers::Number;

// Reads the attributes in the order in which they depend on each other.
class RuleReader {
public:
    RuleReader(const Variable& variable, cf::StoredType stored, unsigned flags)
        : variable_(variable), stored_(stored), flags_(flags)
    {
        decoding_.rules.stored = stored;
    }

    VariableDecoding read()
    {
        readUnsigned();
        decoding_.storedClass = classOf(seenType());
        decoding_.fill = defaultFillOf(stored_);
        readScale();
        if (has(decodeMissing))
            readMissing();
        if (has(decodeValidRange))
            readRange();
        decoding_.hasMissing = !rules().missing.empty() || rules().validMin || rules().validMax;
        decoding_.isPlain = !decoding_.isPacked && (isFloating(stored_) || !decoding_.hasMissing);
        addDefaultFill();
        rules().decoded = becomesSingle() ? cf::DecodedType::float32 : cf::DecodedType::float64;
        return std::move(decoding_);
    }

private:
    bool has(DecodingFlags flag) const { return (flags_ & flag) != 0; }
    cf::DecodingRules& rules() { return decoding_.rules; }
    bool becomesSingle() const
    {
        const bool isOwnSingle = stored_ == cf::StoredType::float32 && !decoding_.isPacked;
        return isOwnSingle || (has(decodeToSingle) && (decoding_.isPacked || !isFloating(stored_)));
    }

    // The type of stored values, unsigned by _Unsigned.
    cf::StoredType seenType() const
    {
        return decoding_.rules.isUnsigned ? unsignedOf(stored_) : stored_;
    }
    const char* typeName() const
    {
        for (const ElementType& element : elementTypes)
            if (storedTypeOf(element.externalType) == seenType())
                return atomicTypeName(element.externalType);
        return "";
    }

    void warn(const std::string& attribute, const std::string& finding, const std::string& cure)
    {
        decoding_.warnings.push_back("variable \"" + variable_.name() + "\": the attribute " +
                                     attribute + " " + finding + " and is ignored: " + cure);
    }

    // Whether the attribute holds numbers, from least to most of them.
    bool holdsNumbers(const AttributeNumbers& attribute, const char* name, std::size_t least,
                      std::size_t most)
    {
        if (!attribute.exists)
            return false;
        const std::string wanted = most == 1 ? "one number is needed"
                                   : least == most
                                       ? std::to_string(most) + " numbers are needed"
                                       : "numbers are needed, and at most " + std::to_string(most);
        if (attribute.isText) {
            warn(name, "is text", wanted);
            return false;
        }
        if (attribute.xtype == NC_NAT) {
            warn(name, "is of a type without numbers", wanted);
            return false;
        }
        if (attribute.length >= least && attribute.length <= most)
            return true;
        warn(name, "holds " + std::to_string(attribute.length) + " numbers", wanted);
        return false;
    }

    void readUnsigned()
    {
        if (!has(decodeUnsigned) || !isSignedInteger(stored_))
            return;
        const AttributeNumbers attribute = attributeNumbers(variable_, "_Unsigned");
        if (!attribute.exists)
            return;
        const std::string word = cf::lowered(cf::trimmed(attribute.text));
        rules().isUnsigned = word == "true";
        if (word != "true" && word != "false" && attribute.xtype == NC_NAT)
            warn("_Unsigned", "is neither \"true\" nor \"false\"", "one of these words is needed");
        else if (attribute.xtype != NC_NAT)
            warn("_Unsigned", "is a number", "the text \"true\" or \"false\" is needed");
    }

    void readScale()
    {
        if (!has(decodeScale))
            return;
        const auto scale = packingNumber("scale_factor");
        const auto offset = packingNumber("add_offset");
        rules().scale = scale.value_or(rules().scale);
        rules().offset = offset.value_or(rules().offset);
        decoding_.isPacked = scale || offset;
    }

    std::optional<double> packingNumber(const char* name)
    {
        const AttributeNumbers attribute = attributeNumbers(variable_, name);
        if (!holdsNumbers(attribute, name, 1, 1))
            return std::nullopt;
        const double number = toDouble(attribute.numbers[0]);
        if (std::isfinite(number))
            return number;
        warn(name, "is not finite", "a finite number is needed");
        return std::nullopt;
    }

    // A number of the variable's own type is taken by its bits, since _Unsigned may be set.
    std::optional<cf::StoredValue> storedOf(const AttributeNumbers& attribute, std::size_t i) const
    {
        if (storedTypeOf(attribute.xtype) == stored_)
            return attribute.bytes[i];
        if (const auto value = storedNumber(attribute.numbers[i], seenType()))
            return value;
        return storedNumber(attribute.numbers[i], stored_);
    }

    void addMissing(const char* name, std::size_t most)
    {
        const AttributeNumbers attribute = attributeNumbers(variable_, name);
        if (!holdsNumbers(attribute, name, most == 1 ? 1 : 0, most))
            return;
        for (std::size_t i = 0; i < attribute.length; ++i) {
            if (const auto value = storedOf(attribute, i))
                rules().missing.push_back(*value);
            else
                warn(name, "holds a number that the variable's type does not have",
                     std::string("numbers of type ") + typeName() + " are needed");
        }
    }

    void readMissing()
    {
        addMissing("_FillValue", 1);
        hasFillValue_ = !rules().missing.empty();
        addMissing("missing_value", mostAttributeNumbers);
        if (!rules().missing.empty())
            decoding_.fill = rules().missing.front();
    }

    // valid_min and valid_max are ignored beside valid_range: CF allows only one of the two forms.
    void readRange()
    {
        const AttributeNumbers range = attributeNumbers(variable_, "valid_range");
        if (range.exists) {
            if (holdsNumbers(range, "valid_range", 2, 2))
                setRange("valid_range", &range, 0, &range, 1);
            return;
        }
        const AttributeNumbers lowest = attributeNumbers(variable_, "valid_min");
        const AttributeNumbers highest = attributeNumbers(variable_, "valid_max");
        const bool hasLowest = holdsNumbers(lowest, "valid_min", 1, 1);
        const bool hasHighest = holdsNumbers(highest, "valid_max", 1, 1);
        setRange(hasLowest ? (hasHighest ? "valid_min or valid_max" : "valid_min") : "valid_max",
                 hasLowest ? &lowest : nullptr, 0, hasHighest ? &highest : nullptr, 0);
    }

    void setRange(const char* name, const AttributeNumbers* lowest, std::size_t lowestPlace,
                  const AttributeNumbers* highest, std::size_t highestPlace)
    {
        const Bound lower = stored(lowest, lowestPlace, BoundSide::lower);
        const Bound upper = stored(highest, highestPlace, BoundSide::upper);
        const std::string cure = std::string("values as they are stored, of type ") + typeName() +
                                 ", the lowest first, are needed";
        if (isInUnpackedUnits(lowest) || isInUnpackedUnits(highest)) {
            warn(name, "is of a floating type, while the values are packed as integers", cure);
            return;
        }
        if (lower.excludesAll || upper.excludesAll || isUpsideDown(lower.value, upper.value)) {
            warn(name, "leaves no valid value", cure);
            return;
        }
        rules().validMin = lower.value;
        rules().validMax = upper.value;
    }

    // CF defines the range for stored values, but some files have it in the units of the result.
    bool isInUnpackedUnits(const AttributeNumbers* attribute) const
    {
        return attribute != nullptr && decoding_.isPacked && !isFloating(stored_) &&
               (attribute->xtype == NC_FLOAT || attribute->xtype == NC_DOUBLE);
    }

    Bound stored(const AttributeNumbers* attribute, std::size_t place, BoundSide side) const
    {
        if (attribute == nullptr)
            return {};
        if (storedTypeOf(attribute->xtype) == stored_)
            return {isNaN(attribute->numbers[place]), attribute->bytes[place]};
        if (isNaN(attribute->numbers[place]))
            return {true, std::nullopt};
        return boundOf(attribute->numbers[place], seenType(), side);
    }

    static bool isNaN(const Number& number)
    {
        const auto* floating = std::get_if<double>(&number);
        return floating != nullptr && std::isnan(*floating);
    }

    bool isUpsideDown(const std::optional<cf::StoredValue>& lowest,
                      const std::optional<cf::StoredValue>& highest) const
    {
        if (!lowest || !highest)
            return false;
        return withTypeOf(seenType(), [&](auto low) {
            auto high = low;
            std::memcpy(&low, lowest->data(), sizeof low);
            std::memcpy(&high, highest->data(), sizeof high);
            return high < low;
        });
    }

    // Not for bytes, all of whose values may be data, and not where the fill mode is off.
    void addDefaultFill()
    {
        if (!has(decodeDefaultFill) || hasFillValue_ || cf::sizeOf(stored_) == 1)
            return;
        int isOff = 0;
        if (variable_.storageModel() == NC_FORMATX_NC_HDF5)
            checkStatus(nc_inq_var_fill(variable_.ncid(), variable_.varid(), &isOff, nullptr),
                        variable_.entry());
        if (isOff != 0)
            return;
        const cf::StoredValue fill = defaultFillOf(stored_);
        if (decoding_.isPlain && !isFloating(stored_))
            decoding_.defaultFill = fill;
        rules().missing.push_back(fill);
    }

    const Variable& variable_;
    const cf::StoredType stored_;
    const unsigned flags_;
    bool hasFillValue_ = false;
    VariableDecoding decoding_;
};

} // namespace

vxClassID VariableDecoding::decodedClass() const
{
    return rules.decoded == cf::DecodedType::float32 ? vxSINGLE_CLASS : vxDOUBLE_CLASS;
}

std::optional<VariableDecoding> variableDecoding(const Variable& variable, unsigned flags)
{
    const auto stored = storedTypeOf(variable.externalType());
    if (!stored)
        return std::nullopt;
    return RuleReader(variable, *stored, flags).read();
}

} // namespace Ovard::gridio
