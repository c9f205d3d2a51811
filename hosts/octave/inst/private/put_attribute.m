## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} put_attribute (@var{ncid}, @var{varid}, @var{name}, @var{value}, @var{type}, @var{what})
## Undocumented internal function: write an attribute of the variable @var{what}, whose type is @var{type}, or of the file.
## Limits and flags are written in the variable's type, as CF asks, and others in the type of their class.
## @end deftypefn

function put_attribute (ncid, varid, name, value, type = "", what = "")

  [xtype, value] = attribute_to_write (name, value, type, what, strcmp (file_format (ncid), "netCDF-4"));
  if (strcmp (xtype, "char"))
    gridio ("putAttText", ncid, varid, name, value);
  else
    gridio_any ("putAtt", ncid, varid, name, xtype, value);
  endif

endfunction
