## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{list} =} checked_positions (@var{file}, @var{number}, @var{index}, @var{len}, @var{k})
## Undocumented internal function: an index as a row of positions, or ":" for all; an error unless it is within the length.
## @end deftypefn

function list = checked_positions (file, number, index, len, k)

  if (ischar (index) && strcmp (index, ":"))
    list = ":";
    return;
  elseif (islogical (index))
    list = find (index)(:)';
  elseif (isnumeric (index) && isreal (index))
    list = double (index)(:)';
  else
    bad (file, number, k, "must be numbers or \":\"; selections by coordinates are made by at", len);
  endif
  if (any (list != fix (list)) || any (list < 1))
    isBad = list != fix (list) | ! (list >= 1);
    bad (file, number, k, sprintf ("must be whole numbers from 1, and %g is not", list(find (isBad, 1))), len);
  elseif (any (list > len))
    bad (file, number, k, sprintf ("must be %d at most, and %d is not", len, max (list)), len);
  endif

endfunction

## An index that counts through several dimensions bears the name of none.
function bad (file, number, k, why, len)

  dimensions = variable_shape (file, number).dimensions;
  which = sprintf ("index %d", k);
  if (k <= numel (dimensions) && file.d.dimensions.length(dimensions(k)) == len)
    which = sprintf ("%s (%s)", which, visible_text (file.d.dimensions.name{dimensions(k)}));
  endif
  fail ("badIndex", "%s of variable '%s' %s", which, visible_text (file.d.variables.path{number}), why);

endfunction
