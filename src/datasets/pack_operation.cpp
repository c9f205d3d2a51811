// SPDX-License-Identifier: BSD-3-Clause
// From values of the interpreter to those that are stored: the inverse of decoding.
#include "convert/argument_readers.h"
#include "convert/numeric_class.h"
#include "data/elements/element_types.h"
#include "dataset_error_identifiers.h"
#include "datasets/stored_types.h"
#include "operation_entry.h"
#include "types/exact_numbers.h"
#include "types/type_description.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

namespace Ovard::gridio::datasetOperations {
namespace {

struct Packing {
    const char* typeName;
    double scale;
    double offset;
    const vxArray* fill; // empty: no fill value

    bool isNone() const { return scale == 1 && offset == 0; }
};

const ElementType& readNumberType(const vxArray* a)
{
    const std::string word = readText(a, "type");
    for (const ElementType& element : elementTypes) {
        const char* name = atomicTypeName(element.externalType);
        if (storedTypeOf(element.externalType) && word == name)
            return element;
    }
    vxErrMsgId(dataset::badArgument("type", "that of numbers, such as short or float"));
}

// The least and the largest value that the type holds, before packing.
template <class Target> std::string rangeText(const Packing& packing)
{
    const double ends[] = {
        static_cast<double>(std::numeric_limits<Target>::lowest()) * packing.scale + packing.offset,
        static_cast<double>(std::numeric_limits<Target>::max()) * packing.scale + packing.offset};
    char text[64] = "";
    std::snprintf(text, sizeof text, "%.10g to %.10g", std::min(ends[0], ends[1]),
                  std::max(ends[0], ends[1]));
    return text;
}

template <class Target, class Source>
[[noreturn]] void raiseMisfit(std::size_t index, Source value, const Packing& packing)
{
    vxErrMsgId(dataset::valueOutOfRange(static_cast<long>(index + 1), numberText(value),
                                        packing.typeName, rangeText<Target>(packing)));
}

// False if the type has no such value. Halves are rounded to the even neighbour.
template <class Target> bool store(double packed, Target& target)
{
    if constexpr (std::is_integral_v<Target>) {
        const double rounded = std::nearbyint(packed);
        if (!isInRange<Target>(rounded))
            return false;
        target = static_cast<Target>(rounded);
        return true;
    } else {
        const bool isFinite = std::isfinite(packed);
        if (isFinite && std::abs(packed) > static_cast<double>(std::numeric_limits<Target>::max()))
            return false;
        target = static_cast<Target>(packed);
        return true;
    }
}

template <class Target> Target fillOf(const Packing& packing)
{
    Target fill{};
    bool fits = false;
    if (vxGetNumberOfElements(packing.fill) == 1)
        visitNumericElements(packing.fill, [&](const auto* value) {
            fits = std::is_floating_point_v<Target> ? store(static_cast<double>(*value), fill)
                                                    : convertExactly(*value, fill);
        });
    if (!fits)
        vxErrMsgId(dataset::badArgument("fill", std::string("one number of type ") +
                                                    packing.typeName + ", or empty"));
    return fill;
}

template <class Target, class Source>
void packAll(const Source* values, std::size_t count, const Packing& packing, Target* packed)
{
    const bool hasFill = !vxIsEmpty(packing.fill);
    const Target fill = hasFill ? fillOf<Target>(packing) : Target{};
    const bool isNone = packing.isNone();
    for (std::size_t i = 0; i < count; ++i) {
        if constexpr (std::is_integral_v<Source> && std::is_integral_v<Target>) {
            if (isNone) {
                if (!convertExactly(values[i], packed[i]))
                    raiseMisfit<Target>(i, values[i], packing);
                continue;
            }
        }
        const auto value = static_cast<double>(values[i]);
        if (hasFill && value != value) {
            packed[i] = fill;
            continue;
        }
        if (!store(isNone ? value : (value - packing.offset) / packing.scale, packed[i]))
            raiseMisfit<Target>(i, values[i], packing);
    }
}

double readScale(const vxArray* a)
{
    const double scale = readDoubleScalar(a, "scale");
    if (scale == 0)
        vxErrMsgId(dataset::badArgument("scale", "a number other than 0"));
    return scale;
}

} // namespace

void pack(int, vxArray* results[], int, const vxArray* args[], const OperationEntry*)
{
    const vxArray* values = args[0];
    const ElementType& element = readNumberType(args[1]);
    const double scale = readScale(args[2]);
    const double offset = readDoubleScalar(args[3], "offset");
    const Packing packing{atomicTypeName(element.externalType), scale, offset, args[4]};

    vxArray* packed = vxCreateUninitNumericArray(
        vxGetNumberOfDimensions(values), vxGetDimensions(values), element.hostClass, vxREAL);
    const bool isNumeric = visitNumericElements(values, [&](const auto* elements) {
        withTypeOf(*storedTypeOf(element.externalType), [&](auto zero) {
            packAll(elements, vxGetNumberOfElements(values), packing,
                    static_cast<decltype(zero)*>(vxGetWritableData(packed)));
        });
    });
    if (!isNumeric)
        vxErrMsgId(dataset::badArgument("values", "numbers, in an array of any numeric class"));
    results[0] = packed;
}

} // namespace Ovard::gridio::datasetOperations
