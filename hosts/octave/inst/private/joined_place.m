## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{place} =} joined_place (@var{file}, @var{number})
## Undocumented internal function: which dimension of a variable its files are joined along, with that of the characters of
## texts counted; 0 if it lies in one file.  An error if the variable is not one in all files.
## @end deftypefn

function place = joined_place (file, number)

  place = 0;
  if (isempty (file.many))
    return;
  endif
  at = find (double (file.d.variables.dimensions{number}(:)') == file.many.dimension, 1);
  if (isempty (at))
    return;
  endif
  place = at;
  if (! isempty (file.many.refused{number}))
    fail ("notOne", "variable '%s' is not one in all files: %s", visible_text (file.d.variables.path{number}), ...
          file.many.refused{number});
  endif

endfunction
