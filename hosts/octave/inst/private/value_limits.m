## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{limits} =} value_limits (@var{values})
## Undocumented internal function: the smallest and the largest value; around a constant a tenth of it each way.
## @end deftypefn

function limits = value_limits (values)

  values = values(isfinite (values));
  limits = [min(values), max(values)];
  if (diff (limits) <= 4 * eps (max (abs (limits))))
    limits += [-1, 1] * merge (limits(1) == 0, 1, abs (limits(1)) / 10);
  endif

endfunction
