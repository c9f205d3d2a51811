## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{width} =} screen_width ()
## Undocumented internal function: how many characters a line may have.
## @end deftypefn

function width = screen_width ()

  width = max (60, terminal_size ()(2));

endfunction
