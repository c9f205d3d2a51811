## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{x}, @var{at}] =} variable_at (@var{self}, @dots{})
## Undocumented internal function: the method @code{at} of @code{gridio_variable}: the values at a selection by coordinates,
## and their coordinates.
## @end deftypefn

function [x, at] = variable_at (self, varargin)

  [file, number] = inside (self);
  plan = select_positions (file, number, parse_selection (varargin));
  x = read_block (file, number, plan.lists);
  x = without_outside (x, plan);
  if (nargout > 1)
    at = coordinates_at (file, number, plan);
  endif

endfunction

## Of a box of two-dimensional coordinates, what the smallest block around it has besides is missing.
function x = without_outside (x, plan)

  if (isempty (plan.mask) || ! isnumeric (x) || all (plan.mask(:)))
    return;
  elseif (! isfloat (x))
    x = double (x);
  endif
  counts = ones (1, max (2, numel (plan.lists)));
  counts(plan.maskPlaces) = size (plan.mask);
  isOutside = ! reshape (plan.mask, counts) & true (size (x));
  x(isOutside) = NaN;

endfunction
