## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{words} =} shape_words (@var{file}, @var{k})
## Undocumented internal function: the dimensions of a variable's values in the order of the interpreter: "longitude x
## latitude x time".
## @end deftypefn

function words = shape_words (file, k)

  names = file.d.dimensions.name(variable_shape (file, k).dimensions);
  words = visible_text (strjoin (names(:)', " x "));

endfunction
