## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{has_it}, @var{value}] =} attribute_value (@var{attributes}, @var{name}, @var{instead})
## Undocumented internal function: the value of an attribute in rows of names and values; @var{instead}, or empty, without
## it.
## @end deftypefn

function [hasIt, value] = attribute_value (attributes, name, instead = [])

  value = instead;
  row = [];
  if (! isempty (attributes))
    row = find (strcmp (attributes(:,1), name), 1);
  endif
  hasIt = ! isempty (row);
  if (hasIt)
    value = attributes{row,2};
  endif

endfunction
