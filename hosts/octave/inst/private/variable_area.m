## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{areas} =} variable_area (@var{self})
## Undocumented internal function: the method @code{area} of @code{gridio_variable}: the areas of its cells on the Earth in
## square metres, by longitude and latitude.
## @end deftypefn

function areas = variable_area (self)

  [file, number] = inside (self);
  areas = cell_areas (file, number);

endfunction
