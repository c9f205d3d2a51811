% SPDX-License-Identifier: BSD-3-Clause

% slabShape (START, LENGTHS, CHUNK, BYTES, LIMIT): the shape of the part of a variable to copy next:
% whole chunks, so that each is packed and unpacked once, as many of them as fit into LIMIT bytes, along
% the fastest varying dimension first. BYTES is the size of a value, and may differ from part to part.
function slab = slabShape (start, lengths, chunk, bytes, limit)
  slab = chunk;
  for d = 1:numel (lengths)
    fit = floor (limit / (prod (slab) * bytes));
    slab(d) = min (lengths(d) - start(d), slab(d) * max (1, fit));
    if (start(d) > 0 || slab(d) < lengths(d))
      return;
    endif
  endfor
endfunction
