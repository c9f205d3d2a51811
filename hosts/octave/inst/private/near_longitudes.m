## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{values} =} near_longitudes (@var{values}, @var{points})
## Undocumented internal function: longitudes counted so that each is within 180 degrees of its point.
## @end deftypefn

function values = near_longitudes (values, points)

  turns = round ((points - values) / 360);
  values(turns != 0) += 360 * (turns .* ones (size (values)))(turns != 0);

endfunction
