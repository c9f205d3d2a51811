## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{fill} =} stored_fill (@var{encoding})
## Undocumented internal function: the fill value in the class of the stored type.
## @end deftypefn

function fill = stored_fill (encoding)

  fill = encoding.fill;
  if (encoding.isUnsigned)
    fill = typecast (fill, encoding.class(2:end));
  endif

endfunction
