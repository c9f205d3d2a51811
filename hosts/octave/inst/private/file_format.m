## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{format} =} file_format (@var{ncid})
## Undocumented internal function: the format of a file as @command{ncdump -k} writes it.
## @end deftypefn

function format = file_format (ncid)

  try
    name = gridio ("inqFormat", ncid);
  catch failure
    if (! strcmp (failure.identifier, "Ovard:gridio:netcdf:unknownNetCDFFormat"))
      rethrow (failure);
    endif
    name = "FORMAT_CDF5"; # the one format that the operation has no name for
  end_try_catch
  formats = struct ("FORMAT_CLASSIC", "classic", "FORMAT_64BIT", "64-bit offset", "FORMAT_NETCDF4", "netCDF-4", ...
                    "FORMAT_NETCDF4_CLASSIC", "netCDF-4 classic model", "FORMAT_CDF5", "cdf5");
  format = formats.(name);

endfunction
