// SPDX-License-Identifier: BSD-3-Clause
#include "check_status.h"

#include "error_identifiers.h"
#include "gateway/error_code_names.h"

#include <boost/lexical_cast.hpp>
#include <netcdf.h>

namespace Ovard::gridio {
namespace {

// NC_ENODATA is within the range of the remote-access statuses and NC_ETRANSLATION next to it;
// deliberately, neither counts as one.
bool isRemoteAccessStatus(int status)
{
    return status >= NC_EDAPCONSTRAINT && status <= NC_EDAP && status != NC_ENODATA;
}

// The library's text for a status, without the "NetCDF: " that most of them begin with.
std::string libraryMessage(int status)
{
    const std::string prefix = "NetCDF:";
    std::string text = nc_strerror(status);
    if (text.compare(0, prefix.size(), prefix) == 0)
        text.erase(0, prefix.size() + 1);
    return text;
}

} // namespace

std::string errorCodeName(int status)
{
    const auto found = errorCodeNames.find(status);
    return found != errorCodeNames.end() ? found->second : boost::lexical_cast<std::string>(status);
}

void raiseLibraryFailure(int status, const OperationEntry* entry)
{
    const std::string codeName = errorCodeName(status);
    const std::string message = libraryMessage(status);
    if (isRemoteAccessStatus(status))
        vxErrMsgId(netcdf::librarydapFailure(entry->name, codeName, message));
    vxErrMsgId(netcdf::libraryFailure(entry->name, codeName, message));
}

} // namespace Ovard::gridio
