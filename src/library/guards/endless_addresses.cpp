// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/endless_addresses.h"

#include "library/guards/misread_paths.h"

#include <boost/algorithm/string/predicate.hpp>

#include <algorithm>
#include <iterator>

namespace Ovard::gridio {
namespace {

// The first "mode=" of the parameters, which follow "#" or precede the address in brackets.
std::string modeList(const std::string& address)
{
    const std::string key = "mode=";
    const std::size_t begin = address.find_first_of("#[");
    const std::size_t found = begin == std::string::npos ? begin : address.find(key, begin);
    if (found == std::string::npos)
        return {};
    const std::size_t first = found + key.size();
    return address.substr(first, address.find_first_of("&]", first) - first);
}

} // namespace

bool isEndlessAddress(const std::string& address)
{
    if (!isAddress(address))
        return false;
    const std::string list = modeList(address);
    const std::string last = list.substr(list.rfind(',') + 1); // all of it without a comma
    const char* const words[] = {"zarr", "xarray", "noxarray"};
    return std::any_of(std::begin(words), std::end(words),
                       [&](const char* word) { return boost::algorithm::iequals(last, word); });
}

} // namespace Ovard::gridio
