## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{varid} =} bounded (@var{ncid}, @var{name})
## Undocumented internal function: the variable whose attribute @code{bounds} or @code{climatology} names this one; empty
## if there is none.
## @end deftypefn

function varid = bounded (ncid, name)

  varid = [];
  for other = gridio ("inqVarIDs", ncid)
    for attribute = {"bounds", "climatology"}
      try
        if (strcmp (gridio ("getAttText", ncid, other, attribute{1}), name))
          varid = other;
          return;
        endif
      catch
        continue; # without this attribute
      end_try_catch
    endfor
  endfor

endfunction
