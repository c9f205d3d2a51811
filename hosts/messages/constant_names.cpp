// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/constant_names.h"

#include "hosts/messages/near_names.h"

#include <iterator>

namespace hosts::messages {

namespace {

// clang-format off
constexpr const char* names[] = {
    "NC_BYTE", "NC_UBYTE", "NC_CHAR", "NC_DOUBLE", "NC_FLOAT", "NC_UINT64", "NC_INT64", "NC_INT",
    "NC_UINT", "NC_LONG", "NC_NAT", "NC_SHORT", "NC_USHORT", "NC_FILL_BYTE", "NC_FILL_CHAR",
    "NC_FILL_SHORT", "NC_FILL_INT", "NC_FILL_FLOAT", "NC_FILL_DOUBLE", "NC_FILL_UBYTE",
    "NC_FILL_USHORT", "NC_FILL_UINT", "NC_FILL_INT64", "NC_FILL_UINT64", "NC_FILL", "NC_NOFILL",
    "NC_NOWRITE", "NC_WRITE", "NC_CLOBBER", "NC_NOCLOBBER", "NC_64BIT_OFFSET", "NC_SHARE",
    "NC_LOCK", "NC_NETCDF4", "NC_CLASSIC_MODEL", "NC_FORMAT_CLASSIC", "NC_FORMAT_64BIT",
    "NC_MAX_DIMS", "NC_MAX_ATTRS", "NC_MAX_VARS", "NC_MAX_NAME", "NC_MAX_VAR_DIMS", "NC2_ERR",
    "NC_NOERR", "NC_EBADID", "NC_ENFILE", "NC_EEXIST", "NC_EINVAL", "NC_EPERM", "NC_ENOTINDEFINE",
    "NC_EINDEFINE", "NC_EINVALCOORDS", "NC_EMAXDIMS", "NC_ENAMEINUSE", "NC_ENOTATT", "NC_EMAXATTS",
    "NC_EBADTYPE", "NC_EBADDIM", "NC_EUNLIMPOS", "NC_EMAXVARS", "NC_ENOTVAR", "NC_EGLOBAL",
    "NC_ENOTNC", "NC_ESTS", "NC_EMAXNAME", "NC_EUNLIMIT", "NC_ENORECVARS", "NC_ECHAR", "NC_EEDGE",
    "NC_ESTRIDE", "NC_EBADNAME", "NC_ERANGE", "NC_ENOMEM", "NC_EVARSIZE", "NC_EDIMSIZE",
    "NC_ETRUNC", "NC_FATAL", "NC_GLOBAL", "NC_UNLIMITED", "NC_SIZEHINT_DEFAULT", "NC_VERBOSE",
    "NC_EHDFERR", "NC_ECANTREAD", "NC_ECANTWRITE", "NC_ECANTCREATE", "NC_EFILEMETA", "NC_EATTMETA",
    "NC_EDIMMETA", "NC_EVARMETA", "NC_ENOCOMPOUND", "NC_EATTEXISTS", "NC_ENOTNC4", "NC_ESTRICTNC3",
    "NC_ENOTNC3", "NC_ENOPAR", "NC_EPARINIT", "NC_EBADGRPID", "NC_EBADTYPID", "NC_ETYPDEFINED",
    "NC_EBADFIELD", "NC_EBADCLASS", "NC_EMAPTYPE", "NC_ELATEFILL", "NC_ELATEDEF", "NC_EDIMSCALE",
    "NC_ENOGRP", "NC_ESTORAGE", "NC_EBADCHUNK", "NC_FORMAT_NETCDF4", "NC_FORMAT_NETCDF4_CLASSIC",
    "NC_CHUNKED", "NC_CONTIGUOUS", "NC_NOCHECKSUM", "NC_FLETCHER32",
};
// clang-format on

constexpr std::string_view prefix = "NC_";

std::string withoutPrefix(std::string_view name)
{
    const bool hasPrefix = name.size() > prefix.size() && (name[0] == 'N' || name[0] == 'n') &&
                           (name[1] == 'C' || name[1] == 'c') && name[2] == '_';
    return std::string(hasPrefix ? name.substr(prefix.size()) : name);
}

} // namespace

std::vector<std::string> constantNames()
{
    return std::vector<std::string>(std::begin(names), std::end(names));
}

// A prefix that all names share does not help to find the nearest.
std::vector<std::string> nearConstantNames(std::string_view name)
{
    std::vector<std::string> others;
    for (const char* other : names)
        others.push_back(withoutPrefix(other));
    std::vector<std::string> near = nearNames(withoutPrefix(name), others);
    for (std::string& found : near)
        found.insert(0, found.rfind("NC2", 0) == 0 ? "" : prefix);
    return near;
}

} // namespace hosts::messages
