// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/index_advice.h"

#include "hosts/messages/visible_text.h"

#include <algorithm>
#include <cmath>

namespace hosts::messages {

namespace {

constexpr std::size_t mostFindings = 3;

struct Block {
    std::vector<double> start;
    std::vector<double> count;  // ones for a single value
    std::vector<double> stride; // ones without STRIDE
    bool hasCount = false;
    bool hasStride = false;
};

std::vector<double> wholeNumbers(std::vector<double> numbers)
{
    for (double& number : numbers)
        number = std::trunc(number);
    return numbers;
}

Block blockOf(const FailedCall& call)
{
    Block block;
    block.start = wholeNumbers(call.numbers("START"));
    block.hasCount = call.has("COUNT");
    block.hasStride = call.has("STRIDE");
    const std::vector<double> ones(block.start.size(), 1);
    block.count = block.hasCount ? wholeNumbers(call.numbers("COUNT")) : ones;
    block.stride = block.hasStride ? wholeNumbers(call.numbers("STRIDE")) : ones;
    return block;
}

// One more than the position of the last element.
double endOf(const Block& block, std::size_t i)
{
    return block.count[i] < 1 ? block.start[i]
                              : block.start[i] + (block.count[i] - 1) * block.stride[i] + 1;
}

bool isWrite(const FailedCall& call) { return call.operation().compare(0, 3, "put") == 0; }

// A write adds records along an unlimited dimension.
bool fits(const Block& block, std::size_t i, const Dimension& dimension, bool canGrow)
{
    const auto length = static_cast<double>(dimension.length);
    return (canGrow && dimension.isUnlimited) ||
           (block.start[i] <= length && endOf(block, i) <= length);
}

bool allFit(const Block& block, const Variable& variable, bool canGrow)
{
    for (std::size_t i = 0; i < variable.dimensions.size(); ++i)
        if (!fits(block, i, variable.dimensions[i], canGrow))
            return false;
    return true;
}

Block reversed(Block block)
{
    for (auto* numbers : {&block.start, &block.count, &block.stride})
        std::reverse(numbers->begin(), numbers->end());
    return block;
}

// What may have been meant: positions that count from 1, or the order of ncdump.
std::string guessMeaning(const Block& block, const Variable& variable, bool canGrow)
{
    const bool countsFromOne = std::all_of(block.start.begin(), block.start.end(),
                                           [](double start) { return start >= 1; });
    Block lower = block;
    for (double& start : lower.start)
        start -= 1;
    if (countsFromOne && allFit(lower, variable, canGrow))
        return " With positions that count from 0, each START is less by 1, and they fit.";
    if (variable.dimensions.size() > 1 && allFit(reversed(block), variable, canGrow))
        return " In the reverse order they would fit: the order here is " +
               dimensionList(variable.dimensions, false) + ".";
    return "";
}

std::string whatReaches(const Block& block, std::size_t i)
{
    std::string text = "START " + numberText(block.start[i]);
    if (block.hasCount)
        text += (block.hasStride ? ", COUNT " : " and COUNT ") + numberText(block.count[i]);
    if (block.hasStride)
        text += " and STRIDE " + numberText(block.stride[i]);
    return text;
}

std::string describeExcess(const Block& block, std::size_t i, const Variable& variable)
{
    const Dimension& dimension = variable.dimensions[i];
    const auto length = static_cast<double>(dimension.length);
    const std::string place = describePlace(variable, i);
    if (block.start[i] < length && block.hasCount)
        return whatReaches(block, i) + " reach to " + numberText(endOf(block, i)) + " along " +
               place + ".";
    const std::string past =
        "START " + numberText(block.start[i]) + " lies past the end of " + place;
    if (dimension.length == 0)
        return past + (dimension.isUnlimited ? ": it has no records yet." : ": it is empty.");
    return past + ": positions go from 0 to " + numberText(length - 1) + ".";
}

// The first invalid element of an index vector.
template <class IsWrong> std::string findElement(const FailedCall& call, const IsWrong& isWrong)
{
    for (const std::string_view label : {"START", "COUNT", "STRIDE"}) {
        const std::vector<double> numbers = call.numbers(label);
        const auto wrong = std::find_if(numbers.begin(), numbers.end(), [&](double number) {
            return isWrong(label == "STRIDE", number);
        });
        if (wrong == numbers.end())
            continue;
        const auto place = static_cast<std::size_t>(wrong - numbers.begin());
        std::string text = std::string(label) + " holds " + numberText(*wrong);
        const std::optional<Variable> variable = variableOfCall(call);
        if (variable && place < variable->dimensions.size())
            return text + " for " + describePlace(*variable, place);
        return numbers.size() == 1 ? text : text + " as its " + ordinal(place + 1) + " element";
    }
    return "";
}

} // namespace

std::optional<Variable> variableOfCall(const FailedCall& call)
{
    const std::optional<int> ncid = call.identifier("ncid");
    const std::optional<int> varid = call.identifier("varid");
    return ncid && varid ? variableOf(*ncid, *varid) : std::nullopt;
}

std::string describePlace(const Variable& variable, std::size_t i)
{
    const Dimension& dimension = variable.dimensions[i];
    const std::size_t rank = variable.dimensions.size();
    std::string place = rank == 1 ? "" : ordinal(i + 1) + " of " + std::to_string(rank) + ", ";
    place += (dimension.isUnlimited ? "unlimited, now of length " : "length ") +
             std::to_string(dimension.length);
    return "dimension " + inQuotes(dimension.name) + " (" + place + ")";
}

std::string findIndexPastEnd(const FailedCall& call)
{
    const std::optional<Variable> variable = variableOfCall(call);
    const Block block = blockOf(call);
    const std::size_t rank = variable ? variable->dimensions.size() : 0;
    if (rank == 0 || !variable->hasAllDimensions || block.start.size() != rank ||
        block.count.size() != rank || block.stride.size() != rank)
        return "";

    std::string text;
    std::size_t found = 0;
    for (std::size_t i = 0; i < rank && found < mostFindings; ++i) {
        if (fits(block, i, variable->dimensions[i], isWrite(call)))
            continue;
        text += (found++ == 0 ? "" : " ") + describeExcess(block, i, *variable);
    }
    if (found > 0)
        text += guessMeaning(block, *variable, isWrite(call));
    return text;
}

std::string findBadStride(const FailedCall& call)
{
    const std::string found =
        findElement(call, [](bool isStride, double number) { return isStride && number < 1; });
    return found.empty() ? "" : found + ".";
}

std::string findIndexOutOfRange(const FailedCall& call)
{
    constexpr double twoTo63 = 9223372036854775808.0;
    const std::string found = findElement(call, [](bool isStride, double number) {
        return isStride ? number <= -twoTo63 || number >= twoTo63
                        : number <= -1 || number >= 2 * twoTo63;
    });
    if (found.empty())
        return "";
    return found + ". Positions count from 0: 0 is the first element, the length less 1 the last.";
}

std::string findIndexNotFinite(const FailedCall& call)
{
    const std::string found =
        findElement(call, [](bool, double number) { return !std::isfinite(number); });
    if (found.empty())
        return "";
    return found + ". To reach the end of a dimension, COUNT is its length less START.";
}

} // namespace hosts::messages
