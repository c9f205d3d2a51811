// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/near_names.h"

#include <algorithm>
#include <utility>

namespace hosts::messages {

namespace {

constexpr std::size_t mostNames = 3;
constexpr std::size_t longestName = 256; // longer ones are not compared: the cost is quadratic
constexpr std::size_t shortestPart = 3;

std::string inLowerCase(std::string_view text)
{
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

// The number of characters to insert, delete, replace or swap with their neighbour.
std::size_t distance(const std::string& a, const std::string& b)
{
    std::vector<std::size_t> beforeLast(b.size() + 1);
    std::vector<std::size_t> last(b.size() + 1);
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        last[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
        std::swap(beforeLast, last);
        std::swap(last, row);
    }
    return last[b.size()];
}

bool holds(const std::string& text, const std::string& part)
{
    return part.size() >= shortestPart && text.find(part) != std::string::npos;
}

std::size_t farthest(std::size_t length)
{
    return length <= 3 ? length / 2 : std::max<std::size_t>(2, length / 3);
}

} // namespace

std::vector<std::string> nearNames(std::string_view word, const std::vector<std::string>& names)
{
    if (word.empty() || word.size() > longestName)
        return {};
    const std::string wanted = inLowerCase(word);
    const std::size_t far = farthest(wanted.size());
    std::vector<std::pair<std::size_t, const std::string*>> found;
    for (const std::string& name : names) {
        if (name.size() > longestName || name.empty())
            continue;
        const std::string other = inLowerCase(name);
        const bool isRelated = holds(other, wanted) || holds(wanted, other);
        const bool canBeNear =
            other.size() <= wanted.size() + far && wanted.size() <= other.size() + far;
        std::size_t difference = canBeNear ? distance(wanted, other) : far + 1;
        if (isRelated)
            difference = std::min(difference, std::max<std::size_t>(far, 1));
        if (difference <= far || isRelated)
            found.emplace_back(difference, &name);
    }

    std::sort(found.begin(), found.end()); // names of equal distance stay in order
    std::vector<std::string> nearest;
    for (const auto& [difference, name] : found) {
        const bool isAlone = !found.empty() && found.front().first == 0;
        if (nearest.size() == mostNames || (isAlone && difference > 0))
            break;
        nearest.push_back(*name);
    }
    return nearest;
}

} // namespace hosts::messages
