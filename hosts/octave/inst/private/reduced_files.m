## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{files} =} reduced_files (@var{given})
## Undocumented internal function: the files of a pattern, or of a list, as a row.
## @end deftypefn

function files = reduced_files (given)

  if (ischar (given) && rows (given) == 1)
    files = glob (given)';
    if (isempty (files))
      fail ("noFile", "no file matches '%s'", visible_text (given));
    endif
  elseif (iscellstr (given) && ! isempty (given))
    files = given(:)';
  else
    fail ("badCall", "FILES must be a pattern or a cell array of names, not %s", shown_text (given));
  endif

endfunction
