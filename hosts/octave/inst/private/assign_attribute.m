## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} assign_attribute (@var{ncid}, @var{varid}, @var{name}, @var{value})
## Undocumented internal function: write an attribute of a variable, or with -1 of the file or group; @code{[]} deletes it.
## @end deftypefn

function assign_attribute (ncid, varid, name, value)

  type = what = "";
  if (varid >= 0)
    [what, xtype] = gridio ("inqVar", ncid, varid);
    type = gridio_any ("inqType", ncid, xtype);
  endif
  settings = {"_ChunkSizes", "_DeflateLevel", "_Shuffle", "_Fletcher32", "_Endianness", "_Format", "_Type", "_Unlimited", ...
              "_NoFill", "_Storage"};
  if (any (strcmp (name, settings)) || (strcmp (name, "_FillValue") && varid >= 0))
    fail ("settingIsLate", "'%s' can only be given when a variable is made, by put", name);
  endif
  isDeleted = isnumeric (value) && isempty (value);
  if (! isDeleted)
    attribute_to_write (name, value, type, what, strcmp (file_format (ncid), "netCDF-4"));
  endif
  begin_definitions (ncid);
  unwind_protect
    if (isDeleted)
      gridio ("delAtt", ncid, varid, name);
    else
      put_attribute (ncid, varid, name, value, type, what);
    endif
  unwind_protect_cleanup
    end_definitions (ncid);
  end_unwind_protect

endfunction
