## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{k} =} coordinate_along (@var{d}, @var{dimension})
## Undocumented internal function: the variable with the numbers of a dimension: that of its name, else the only one along
## it that may be an axis; 0 for none.
## @end deftypefn

function k = coordinate_along (d, dimension)

  isAlong = cellfun (@(list) isequal (double (list(:)'), dimension), d.variables.dimensions(:)) ...
            & strcmp (d.variables.kind(:), "number");
  k = find (isAlong & strcmp (d.variables.name(:), d.dimensions.name{dimension}), 1);
  if (isempty (k))
    k = find (isAlong & d.variables.mayBeAxis(:));
    if (numel (k) != 1)
      k = 0;
    endif
  endif

endfunction
