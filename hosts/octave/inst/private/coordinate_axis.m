## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{axis} =} coordinate_axis (@var{file}, @var{k})
## Undocumented internal function: a coordinate with all that selecting along it takes: its values, times as numbers of
## their units, texts as a column of them, longitudes and latitudes in degrees.
## @end deftypefn

function axis = coordinate_axis (file, k)

  d = file.d;
  attributes = d.variables.attributes{k};
  axis = struct ("number", k, "name", d.variables.name{k}, "role", axis_role (attributes, d.variables.name{k}), ...
                 "isText", false, "isTime", false, "units", "", "calendar", "", "bounds", [], "tolerance", 0);
  axis.dimensions = variable_shape (file, k).dimensions;
  [units, axis.calendar] = time_of (file, k);
  axis.isTime = ! isempty (units);
  axis.units = attribute_text (attributes, "units");
  file.flags = bitand (bitor (file.flags, 128 + 31), 255 - 64 - 32);
  axis.values = read_positions (file, k, {});
  axis.isText = iscell (axis.values) || ischar (axis.values);
  if (axis.isText)
    axis.values = cellstr (axis.values);
  elseif (isnumeric (axis.values))
    axis.tolerance = 4 * spacing (axis.values);
    axis.values = in_degrees (double (axis.values), axis.role, axis.units);
  endif

endfunction

## Of the numbers of their class, at the largest of the values.
function step = spacing (values)

  step = 0;
  if (isfloat (values))
    step = double (eps (max (abs ([values(isfinite (values)); 0]))));
  endif

endfunction
