## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{x} =} fetch (@var{source}, @var{lengths}, @var{lists}, @var{flags}, @var{is_opaque})
## Undocumented internal function: the values of a variable as gridio_native reads them, at lists of positions from 1, in as
## few reads as it takes without reading much that is not wanted.  @var{source} has the first arguments of the read.
## @end deftypefn

function x = fetch (source, lengths, lists, flags, isOpaque)

  dims = numel (lengths);
  start = zeros (1, dims);
  count = lengths;
  stride = ones (1, dims);
  pick(1:max (dims, 2)) = {":"};
  waste = ones (1, dims);
  for k = 1:dims
    list = lists{k};
    if (ischar (list))
      continue;
    elseif (isscalar (list))
      start(k) = list - 1;
      count(k) = 1;
      continue;
    elseif (isempty (list))
      count(k) = 0;
      continue;
    endif
    [start(k), count(k), stride(k), pick{k}] = range_of (list);
    waste(k) = count(k) / numel (list);
  endfor
  if (all (count > 0) && any (waste > 2))
    x = fetch_in_runs (source, lengths, lists, flags, isOpaque, find (waste == max (waste), 1, "last"));
    return;
  endif
  x = gridio_native (source{:}, start, count, stride, flags);
  if (! all (strcmp (pick, ":")))
    bytes = repmat ({":"}, 1, isOpaque); # of each value, ahead of the dimensions
    x = x(bytes{:}, pick{:});
  endif

endfunction

## The range that has all positions of a list, and where they are in it.
function [start, count, stride, pick] = range_of (list)

  first = min (list);
  stride = 1;
  steps = diff (list);
  pick = ":";
  if (steps(1) > 0 && all (steps == steps(1)))
    stride = steps(1);
    count = numel (list);
  elseif (steps(1) < 0 && all (steps == steps(1)))
    stride = -steps(1);
    count = numel (list);
    pick = count:-1:1;
  else
    count = max (list) - first + 1;
    pick = list - first + 1;
  endif
  start = first - 1;

endfunction

## Reads stretches of neighbouring positions of dimension k by themselves.
function x = fetch_in_runs (source, lengths, lists, flags, isOpaque, k)

  [sorted, ~, places] = unique (lists{k});
  ends = [find(diff (sorted) > 4), numel(sorted)];
  first = 1;
  parts = cell (1, numel (ends));
  for r = 1:numel (ends)
    lists{k} = sorted(first:ends(r));
    parts{r} = fetch (source, lengths, lists, flags, isOpaque);
    first = ends(r) + 1;
  endfor
  x = cat (k + isOpaque, parts{:});
  bytes = repmat ({":"}, 1, isOpaque);
  pick = repmat ({":"}, 1, max (numel (lengths), 2));
  pick{k} = places;
  x = x(bytes{:}, pick{:});

endfunction
