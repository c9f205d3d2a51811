# SPDX-License-Identifier: BSD-3-Clause
"""The release of the netCDF library that the tests run with, such as "4.9.0"."""
import ctypes
import ctypes.util


def library_release():
    library = ctypes.CDLL(ctypes.util.find_library("netcdf"))
    library.nc_inq_libvers.restype = ctypes.c_char_p
    return library.nc_inq_libvers().decode().split()[0]
