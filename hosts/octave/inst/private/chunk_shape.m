## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{shape} =} chunk_shape (@var{lengths}, @var{isUnlimited}, @var{bytes})
## Undocumented internal function: chunk lengths for a variable with dimensions of these lengths, as many values along each
## as are written at first, and values of so many bytes.  A chunk has about 1 MiB; a map and a series at a point meet about
## the same number of chunks.
## @end deftypefn

function shape = chunk_shape (lengths, isUnlimited, bytes)

  most = 2 ^ 20 / bytes;
  shape = max (lengths, 1);
  ## A chunk of several records where they are small, but not many more than there are: they would be stored unused.
  record = prod (shape(! isUnlimited));
  few = max (floor (most / record), 1);
  shape(isUnlimited) = max (min (few, max (shape(isUnlimited), ceil (8192 / (record * bytes)))), 1);
  while (prod (shape) > most && any (shape > 1))
    pieces = lengths ./ shape;
    pieces(shape == 1) = Inf;
    [~, fewest] = min (fliplr (pieces));
    at = numel (shape) + 1 - fewest;
    shape(at) = ceil (shape(at) / 2);
  endwhile
  ## Chunks of equal lengths, so that the last one is not nearly empty.
  isFixed = ! isUnlimited & lengths > 0;
  shape(isFixed) = ceil (lengths(isFixed) ./ ceil (lengths(isFixed) ./ shape(isFixed)));

endfunction
