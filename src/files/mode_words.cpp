// SPDX-License-Identifier: BSD-3-Clause
#include "files/mode_words.h"

#include "convert/argument_readers.h"
#include "convert/unchecked_conversions.h"
#include "error_identifiers.h"

#include <boost/algorithm/string/case_conv.hpp>
#include <netcdf.h>

namespace Ovard::gridio {
namespace {

// One table for both opening and creating: the library checks whether a flag is valid for the call.
struct ModeWord {
    const char* word;
    int flag;
};

constexpr ModeWord modeWords[] = {
    {"clobber", NC_CLOBBER},
    {"nc_clobber", NC_CLOBBER},
    {"noclobber", NC_NOCLOBBER},
    {"nc_noclobber", NC_NOCLOBBER},
    {"share", NC_SHARE},
    {"nc_share", NC_SHARE},
    {"write", NC_WRITE},
    {"nc_write", NC_WRITE},
    {"netcdf4", NC_NETCDF4},
    {"nc_netcdf4", NC_NETCDF4},
    {"64bit_offset", NC_64BIT_OFFSET},
    {"nc_64bit_offset", NC_64BIT_OFFSET},
    {"classic_model", NC_CLASSIC_MODEL},
    {"nc_classic_model", NC_CLASSIC_MODEL},
    {"nowrite", NC_NOWRITE},
    {"nc_nowrite", NC_NOWRITE},
};

// Exactly one word: deliberately no splitting at separators and no trimming.
int modeWordValue(std::string text)
{
    boost::algorithm::to_lower(text);
    for (const ModeWord& row : modeWords) {
        if (text == row.word)
            return row.flag;
    }

    boost::algorithm::to_upper(text);
    vxErrMsgId(netcdf::unrecognizedFileMode(text));
}

} // namespace

int readModeArgument(const vxArray* a)
{
    if (vxIsEmpty(a))
        vxErrMsgId(netcdf::argumentIsEmptySet("MODE"));

    switch (vxGetClassID(a)) {
    case vxCHAR_CLASS:
        return modeWordValue(readText(a, "file mode"));
    case vxINT32_CLASS:
        return *static_cast<const int*>(vxGetData(a));
    case vxDOUBLE_CLASS:
        return truncateToInt32(*static_cast<const double*>(vxGetData(a)));
    default:
        vxErrMsgId(netcdf::badModeDatatype());
    }
}

} // namespace Ovard::gridio
