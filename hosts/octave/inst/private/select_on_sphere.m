## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{plan}, @var{done}] =} select_on_sphere (@var{file}, @var{shape}, @var{plan}, @var{requests}, @var{axes})
## Undocumented internal function: selections by longitude and latitude together, where they lie along the same dimensions:
## the nearest point, and the smallest block around a box.  The second result says which selections are done.
## @end deftypefn

function [plan, done] = select_on_sphere (file, shape, plan, requests, axes)

  done = false (1, numel (requests));
  [lon, lat] = pair_of (requests, axes);
  if (isempty (lon) && isempty (lat))
    return;
  endif
  [lonAxis, latAxis] = both_axes (file, axes, lon, lat);
  lonAsked = asked_of (lonAxis, requests, lon);
  latAsked = asked_of (latAxis, requests, lat);
  dimensions = latAxis.dimensions;
  places = arrayfun (@(k) find (shape.dimensions == k), dimensions);
  if (strcmp (lonAsked.kind, "near") && strcmp (latAsked.kind, "near"))
    within = [requests([lon, lat]).within];
    plan = nearest_points (plan, places, lonAxis, latAxis, lonAsked.points, latAsked.points, within);
  elseif (any (strcmp ("near", {lonAsked.kind, latAsked.kind})))
    fail ("badSelection", ["'%s' and '%s' lie along the same dimensions: select a point by a number for each, or a box by a" ...
                           " range for each"], visible_text (lonAxis.name), visible_text (latAxis.name));
  else
    plan = box_on_sphere (plan, places, lonAxis, latAxis, lonAsked, latAsked);
  endif
  done([lon, lat]) = true;

endfunction

## Which selections are by a longitude and a latitude that cannot be taken one by one: along two dimensions, or both along
## the same one.
function [lon, lat] = pair_of (requests, axes)

  roles = cellfun (@(axis) role_of (axis), axes, "UniformOutput", false);
  lon = find (strcmp (roles, "lon"), 1);
  lat = find (strcmp (roles, "lat"), 1);
  ranks = cellfun (@(axis) numel (axis.dimensions), axes([lon, lat]));
  isPair = ! isempty (lon) && ! isempty (lat) && isequal (axes{lon}.dimensions, axes{lat}.dimensions) ...
           && ! isempty (axes{lon}.dimensions);
  if (! isPair && ! any (ranks >= 2))
    lon = lat = [];
  endif

endfunction

function role = role_of (axis)

  role = "";
  if (! isempty (axis))
    role = axis.role;
  endif

endfunction

## The other coordinate of a pair is the one along the same dimensions.
function [lonAxis, latAxis] = both_axes (file, axes, lon, lat)

  if (isempty (lon))
    latAxis = axes{lat};
    lonAxis = partner (file, latAxis, "lon");
  elseif (isempty (lat))
    lonAxis = axes{lon};
    latAxis = partner (file, lonAxis, "lat");
  else
    lonAxis = axes{lon};
    latAxis = axes{lat};
  endif
  if (! isequal (lonAxis.dimensions, latAxis.dimensions))
    fail ("badSelection", "'%s' and '%s' lie along different dimensions", visible_text (lonAxis.name), ...
          visible_text (latAxis.name));
  endif

endfunction

function other = partner (file, axis, role)

  d = file.d;
  numbers = coordinates_of (d, axis.number);
  isIt = arrayfun (@(k) strcmp (axis_role (d.variables.attributes{k}, d.variables.name{k}), role) ...
                        && isequal (variable_shape (file, k).dimensions, axis.dimensions), numbers);
  if (sum (isIt) != 1)
    fail ("badSelection", "'%s' has several dimensions, and nothing says which variable is the other coordinate", ...
          visible_text (axis.name));
  endif
  other = coordinate_axis (file, numbers(isIt));

endfunction

function asked = asked_of (axis, requests, which)

  asked = struct ("kind", "all");
  if (! isempty (which))
    asked = asked_points (axis, requests(which));
  endif

endfunction
