// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/misplaced_strings.h"

#include "check_status.h"

#include <set>

namespace Ovard::gridio {
namespace {

// A type that was looked into needs no second look, and may be inside itself in a damaged file.
bool holdsOne(int ncid, nc_type xtype, std::set<nc_type>& seen, const OperationEntry* entry)
{
    if (xtype <= NC_MAX_ATOMIC_TYPE || !seen.insert(xtype).second)
        return false;
    nc_type base = NC_NAT;
    std::size_t fields = 0;
    int kind = 0;
    checkStatus(nc_inq_user_type(ncid, xtype, nullptr, nullptr, &base, &fields, &kind), entry);
    if (kind == NC_VLEN)
        return holdsOne(ncid, base, seen, entry);
    for (std::size_t i = 0; kind == NC_COMPOUND && i < fields; ++i) {
        std::size_t offset = 0;
        nc_type type = NC_NAT;
        checkStatus(nc_inq_compound_field(ncid, xtype, static_cast<int>(i), nullptr, &offset, &type,
                                          nullptr, nullptr),
                    entry);
        if (type == NC_STRING ? offset > 0 : holdsOne(ncid, type, seen, entry))
            return true;
    }
    return false;
}

bool isMisplacing()
{
    static const bool result = misplacesStrings(nc_inq_libvers());
    return result;
}

} // namespace

bool misplacesStrings(std::string_view release)
{
    return release.substr(0, release.find_first_of(" -")) == "4.9.3";
}

bool holdsStringBehindItsStart(int ncid, nc_type xtype, const OperationEntry* entry)
{
    std::set<nc_type> seen;
    return holdsOne(ncid, xtype, seen, entry);
}

void requirePlacedStrings(int ncid, nc_type xtype, const OperationEntry* entry)
{
    if (isMisplacing() && holdsStringBehindItsStart(ncid, xtype, entry))
        checkStatus(NC_EBADTYPE, entry);
}

void requirePlacedStringsIn(int ncid, int varid, const std::string& attribute,
                            const OperationEntry* entry)
{
    if (!isMisplacing())
        return;
    // The library decides: it succeeds when a missing attribute is copied onto itself.
    nc_type xtype = NC_NAT;
    const int status = nc_inq_atttype(ncid, varid, attribute.c_str(), &xtype);
    if (status == NC_ENOTATT)
        return;
    checkStatus(status, entry);
    requirePlacedStrings(ncid, xtype, entry);
}

} // namespace Ovard::gridio
