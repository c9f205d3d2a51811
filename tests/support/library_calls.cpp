// SPDX-License-Identifier: BSD-3-Clause
#include "tests/support/library_calls.h"

#include <stdexcept>

namespace testsupport {

// clang-format off
int libraryGetVar(const std::string& suffix, int ncid, int varid, void* values)
{
    if (suffix == "Double") return nc_get_var_double(ncid, varid, static_cast<double*>(values));
    if (suffix == "Float")  return nc_get_var_float(ncid, varid, static_cast<float*>(values));
    if (suffix == "Int64")  return nc_get_var_longlong(ncid, varid, static_cast<long long*>(values));
    if (suffix == "Uint64") return nc_get_var_ulonglong(ncid, varid, static_cast<unsigned long long*>(values));
    if (suffix == "Int")    return nc_get_var_int(ncid, varid, static_cast<int*>(values));
    if (suffix == "Uint")   return nc_get_var_uint(ncid, varid, static_cast<unsigned int*>(values));
    if (suffix == "Short")  return nc_get_var_short(ncid, varid, static_cast<short*>(values));
    if (suffix == "Ushort") return nc_get_var_ushort(ncid, varid, static_cast<unsigned short*>(values));
    if (suffix == "Schar")  return nc_get_var_schar(ncid, varid, static_cast<signed char*>(values));
    if (suffix == "Uchar")  return nc_get_var_uchar(ncid, varid, static_cast<unsigned char*>(values));
    if (suffix == "Text")   return nc_get_var_text(ncid, varid, static_cast<char*>(values));
    throw std::invalid_argument(suffix);
}

int libraryGetAtt(const std::string& suffix, int ncid, int varid, const char* name, void* values)
{
    if (suffix == "Double") return nc_get_att_double(ncid, varid, name, static_cast<double*>(values));
    if (suffix == "Float")  return nc_get_att_float(ncid, varid, name, static_cast<float*>(values));
    if (suffix == "Int64")  return nc_get_att_longlong(ncid, varid, name, static_cast<long long*>(values));
    if (suffix == "Uint64") return nc_get_att_ulonglong(ncid, varid, name, static_cast<unsigned long long*>(values));
    if (suffix == "Int")    return nc_get_att_int(ncid, varid, name, static_cast<int*>(values));
    if (suffix == "Uint")   return nc_get_att_uint(ncid, varid, name, static_cast<unsigned int*>(values));
    if (suffix == "Short")  return nc_get_att_short(ncid, varid, name, static_cast<short*>(values));
    if (suffix == "Ushort") return nc_get_att_ushort(ncid, varid, name, static_cast<unsigned short*>(values));
    if (suffix == "Schar")  return nc_get_att_schar(ncid, varid, name, static_cast<signed char*>(values));
    if (suffix == "Uchar")  return nc_get_att_uchar(ncid, varid, name, static_cast<unsigned char*>(values));
    if (suffix == "Ubyte")  return nc_get_att_ubyte(ncid, varid, name, static_cast<unsigned char*>(values));
    if (suffix == "Text")   return nc_get_att_text(ncid, varid, name, static_cast<char*>(values));
    throw std::invalid_argument(suffix);
}
// clang-format on

} // namespace testsupport
