// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/address_findings.h"

#include "hosts/messages/path_findings.h"
#include "hosts/messages/visible_text.h"

#include <dirent.h>

namespace hosts::messages {

namespace {

std::string localFolder(const std::string& address)
{
    const std::string scheme = "file://";
    const std::size_t begin = address.find(scheme);
    if (begin == std::string::npos)
        return "";
    const std::string path = address.substr(begin + scheme.size());
    return path.substr(0, path.find_first_of("?#"));
}

bool holdsSomething(const std::string& folder)
{
    DIR* entries = folder.empty() ? nullptr : opendir(folder.c_str());
    if (entries == nullptr)
        return false;
    int count = 0;
    while (count <= 2 && readdir(entries) != nullptr) // "." and ".."
        ++count;
    closedir(entries);
    return count > 2;
}

// The last word of the first mode list.
std::string lastModeWord(const std::string& address)
{
    const std::string key = "mode=";
    const std::size_t found = address.find(key, address.find_first_of("#["));
    if (found == std::string::npos)
        return "";
    std::string list = address.substr(found + key.size());
    list = list.substr(0, list.find_first_of("&]"));
    return list.substr(list.rfind(',') + 1);
}

} // namespace

std::string findAddressProblem(const std::string& address)
{
    const std::string word = lastModeWord(address);
    for (const char* zarr : {"zarr", "xarray", "noxarray"})
        if (word == zarr)
            return "The mode list of the address ends with " + inQuotes(word) +
                   ", and must say which kind of store it is: write \"#mode=zarr,file\".";
    const std::string folder = localFolder(address);
    if (holdsSomething(folder))
        return "The folder " + inQuotes(resolvedPath(folder)) +
               " holds something that would be lost. Give the address of a new or an empty folder; "
               "a Zarr store is replaced with the mode \"netcdf4\".";
    return "";
}

} // namespace hosts::messages
