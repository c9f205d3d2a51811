## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{shown} =} shown_point (@var{axis}, @var{point})
## Undocumented internal function: a number of a coordinate, for a message; times as dates.
## @end deftypefn

function shown = shown_point (axis, point)

  if (axis.isTime)
    shown = convert_times ("timesToText", point, axis.units, axis.calendar){1};
  else
    shown = sprintf ("%.8g", point);
  endif

endfunction
