## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{axis}, @var{positions}] =} even_axis (@var{axis})
## Undocumented internal function: an axis with evenly spaced, ascending values, at most 1000, and the position in the
## original of each.  Where the values are uneven, each takes the space half way to its neighbours.
## @end deftypefn

function [axis, positions] = even_axis (axis)

  [values, order] = sort (axis.values(:));
  n = numel (values);
  steps = diff (values);
  isEven = max (steps) - min (steps) <= 0.02 * mean (steps);
  if (isEven && n <= 1000)
    positions = order;
    axis.values = linspace (values(1), values(end), n)';
    return;
  endif
  edges = [values(1) - steps(1) / 2; (values(1:end-1) + values(2:end)) / 2; values(end) + steps(end) / 2];
  cells_ = min (max (2 * n, min (1000, ceil (4 * (edges(end) - edges(1)) / min (steps)))), 1000);
  width = (edges(end) - edges(1)) / cells_;
  axis.values = edges(1) + width * ((1:cells_)' - 0.5);
  positions = order(min (max (lookup (edges, axis.values), 1), n));

endfunction
