## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{shape} =} variable_shape (@var{file}, @var{number})
## Undocumented internal function: the dimensions of a variable as its values have them, their lengths, and whether a
## dimension of characters ahead of them holds texts.
## @end deftypefn

function shape = variable_shape (file, number)

  d = file.d;
  dimensions = double (d.variables.dimensions{number}(:)');
  shape.isText = bitand (file.flags, 128) && strcmp (d.variables.kind{number}, "char") && ! isempty (dimensions) ...
                 && d.dimensions.isTextLength(dimensions(1));
  shape.dimensions = dimensions(1+shape.isText:end);
  shape.lengths = double (d.dimensions.length(shape.dimensions)(:)');

endfunction
