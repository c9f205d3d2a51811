## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{values} =} follow (@var{value}, @var{way}, @var{count})
## Undocumented internal function: what the rest of a chain of indexes makes of a value, as a cell row of results.
## @end deftypefn

function values = follow (value, way, count)

  if (isempty (way))
    values = {value};
  elseif (isa (value, "gridio_variable"))
    values = variable_subsref (value, way, count);
  elseif (isa (value, "gridio_dataset"))
    values = dataset_subsref (value, way, count);
  else
    values = cell (1, max (count, 1));
    [values{:}] = subsref (value, way);
  endif

endfunction
