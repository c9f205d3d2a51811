## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{values} =} plain_values (@var{arguments})
## Undocumented internal function: arguments with the values of variables in their place, and without dimensions of length 1
## ahead of others, as functions of arrays take them.
## @end deftypefn

function values = plain_values (arguments)

  values = arguments;
  for k = 1:numel (values)
    if (isa (values{k}, "gridio_variable"))
      values{k} = subsref (values{k}, substruct ("()", repmat ({":"}, 1, max (1, numel (variable_dimensions (values{k}))))));
    endif
    if (isnumeric (values{k}) && ndims (values{k}) > 2)
      values{k} = squeeze (values{k});
    endif
  endfor

endfunction
