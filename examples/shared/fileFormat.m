% SPDX-License-Identifier: BSD-3-Clause

% fileFormat (NCID): the format of a file in the words of "ncdump -k".
function words = fileFormat (ncid)
  try
    name = gridio ("inqFormat", ncid);
  catch failure
    if (! strcmp (failure.identifier, "Ovard:gridio:netcdf:unknownNetCDFFormat"))
      rethrow (failure);
    endif
    words = "cdf5";  % the one format in use that inqFormat has no name for
    return;
  end_try_catch
  names = struct ("FORMAT_CLASSIC", "classic", "FORMAT_64BIT", "64-bit offset", ...
                  "FORMAT_NETCDF4", "netCDF-4", ...
                  "FORMAT_NETCDF4_CLASSIC", "netCDF-4 classic model");
  words = names.(name);
endfunction
