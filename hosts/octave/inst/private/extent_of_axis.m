## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{words} =} extent_of_axis (@var{axis})
## Undocumented internal function: from where to where the values of a coordinate go, in words.
## @end deftypefn

function words = extent_of_axis (axis)

  values = axis.values(! isnan (axis.values));
  if (isempty (values))
    words = "nowhere: all its values are missing";
  else
    words = sprintf ("from %s to %s", shown_point (axis, min (values)), shown_point (axis, max (values)));
  endif

endfunction
