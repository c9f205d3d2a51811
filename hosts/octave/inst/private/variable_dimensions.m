## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{names} =} variable_dimensions (@var{self})
## Undocumented internal function: the method @code{dimensions} of @code{gridio_variable}: names in the order of the array.
## @end deftypefn

function names = variable_dimensions (self)

  [file, number] = inside (self);
  names = file.d.dimensions.name(variable_shape (file, number).dimensions);
  names = names(:);

endfunction
