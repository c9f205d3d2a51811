## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{s} =} variable_attributes (@var{self})
## Undocumented internal function: the method @code{attributes} of @code{gridio_variable}.
## @end deftypefn

function s = variable_attributes (self)

  [file, number] = inside (self);
  s = attributes_struct (file.d.variables.attributes{number});

endfunction
