## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{axis} =} plot_axis (@var{at}, @var{dimension})
## Undocumented internal function: what is drawn along a dimension: its coordinate, or its positions.  A struct with the
## column of values, label, role, and whether they are day numbers, and are drawn downwards.
## @end deftypefn

function axis = plot_axis (at, dimension)

  about = at.about.coordinates;
  isOne = arrayfun (@(one) isequal (one.dimensions, {dimension}) && isnumeric (at.(one.name)), about);
  about = about(isOne);
  ## The coordinate variable comes first, then times, and then places.
  rank = arrayfun (@(one) [find(strcmp (one.role, {"time", "level", "lon", "lat"})), 5](1), about) ...
         - 9 * strcmp ({about.name}, dimension);
  [~, order] = sort (rank);
  for one = about(order)
    values = double (at.(one.name)(:));
    steps = sign (diff (values));
    if (all (isfinite (values)) && all (steps != 0) && (isempty (steps) || all (steps == steps(1))))
      axis = struct ("values", values, "label", axis_label (one), "role", one.role, "isDate", one.isDatenum, ...
                     "isDown", goes_down (one), "name", one.name);
      return;
    endif
  endfor
  axis = struct ("values", (1:numel (at.(dimension)))', "label", dimension, "role", "", "isDate", false, ...
                 "isDown", false, "name", dimension);

endfunction
