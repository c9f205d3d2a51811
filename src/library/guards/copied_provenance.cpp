// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/copied_provenance.h"

#include "check_status.h"
#include "library/storage_model.h"

namespace Ovard::gridio {
namespace {

constexpr const char* provenance = "_NCProperties";

} // namespace

bool isProvenanceAttribute(int ncid, int varid, const std::string& name)
{
    return name == provenance && varid == NC_GLOBAL && isStoredInHdf5(ncid);
}

void copyProvenance(int fromNcid, int toNcid, int toVarid, const OperationEntry* entry)
{
    std::size_t length = 0;
    checkStatus(nc_inq_attlen(fromNcid, NC_GLOBAL, provenance, &length), entry);
    std::string text(length, '\0'); // with space for a NUL
    checkStatus(nc_get_att_text(fromNcid, NC_GLOBAL, provenance, text.data()), entry);
    checkStatus(nc_put_att_text(toNcid, toVarid, provenance, length, text.data()), entry);
}

} // namespace Ovard::gridio
