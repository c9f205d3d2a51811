% SPDX-License-Identifier: BSD-3-Clause

% nextStart (START, SLAB, LENGTHS): where the part after this one begins. Counts up like an odometer, the
% fastest varying dimension first; past the end after the last part.
function start = nextStart (start, slab, lengths)
  for d = 1:numel (lengths)
    start(d) += slab(d);
    if (start(d) < lengths(d))
      return;
    endif
    if (d < numel (lengths))
      start(d) = 0;
    endif
  endfor
endfunction
