## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{name} =} variable_name (@var{self})
## Undocumented internal function: the method @code{name} of @code{gridio_variable}.
## @end deftypefn

function name = variable_name (self)

  [file, number] = inside (self);
  name = file.d.variables.name{number};

endfunction
