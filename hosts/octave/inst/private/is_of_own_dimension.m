## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{yes} =} is_of_own_dimension (@var{d}, @var{k})
## Undocumented internal function: whether a variable has one dimension, and its name.
## @end deftypefn

function yes = is_of_own_dimension (d, k)

  dimensions = double (d.variables.dimensions{k}(:)');
  if (numel (dimensions) == 2 && strcmp (d.variables.kind{k}, "char") && d.dimensions.isTextLength(dimensions(1)))
    dimensions(1) = [];
  endif
  yes = numel (dimensions) == 1 && strcmp (d.dimensions.name{dimensions}, d.variables.name{k});

endfunction
