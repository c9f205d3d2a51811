// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/mode_words.h"

#include "hosts/messages/near_names.h"

namespace hosts::messages {

namespace {

struct ForeignWord {
    std::string_view word;
    const char* meaning;
};

// Modes of other programs and of the interpreter's fopen.
constexpr ForeignWord foreignWords[] = {
    {"r", "nowrite"},        {"rb", "nowrite"},        {"read", "nowrite"},
    {"readonly", "nowrite"}, {"read-only", "nowrite"}, {"read_only", "nowrite"},
    {"w", "write"},          {"rw", "write"},          {"r+", "write"},
    {"a", "write"},          {"append", "write"},      {"readwrite", "write"},
    {"new", "noclobber"},    {"create", "clobber"},    {"overwrite", "clobber"},
    {"nc4", "netcdf4"},      {"hdf5", "netcdf4"},      {"netcdf", "netcdf4"},
};

} // namespace

std::vector<std::string> nearModeWords(std::string_view word)
{
    std::string lower(word);
    for (char& c : lower)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    for (const ForeignWord& foreign : foreignWords)
        if (lower == foreign.word)
            return {foreign.meaning};
    return nearNames(lower, {"clobber", "noclobber", "share", "write", "nowrite", "netcdf4",
                             "64bit_offset", "classic_model"});
}

} // namespace hosts::messages
