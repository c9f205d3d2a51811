## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{counts} =} block_size (@var{lists}, @var{lengths})
## Undocumented internal function: how many positions each list has, of dimensions of these lengths.
## @end deftypefn

function counts = block_size (lists, lengths)

  counts = lengths;
  for k = 1:numel (lists)
    if (! ischar (lists{k}))
      counts(k) = numel (lists{k});
    endif
  endfor

endfunction
