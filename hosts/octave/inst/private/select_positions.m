## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{plan} =} select_positions (@var{file}, @var{number}, @var{requests})
## Undocumented internal function: the positions that selections mean, as a list for each dimension of the values; of boxes
## of two-dimensional coordinates also which places in them belong to the box; and longitudes as the selections count them.
## @end deftypefn

function plan = select_positions (file, number, requests)

  shape = variable_shape (file, number);
  plan = struct ("lists", {repmat({":"}, 1, numel (shape.lengths))}, "mask", [], "maskPlaces", [], ...
                 "coordinates", [], "values", {{}}, "asked", {{}}, "used", []);
  [axes, places] = axes_of_requests (file, number, requests);
  [plan, done] = select_on_sphere (file, shape, plan, requests, axes);
  for k = find (! done)
    if (requests(k).isIndex || isempty (axes{k}))
      positions = by_index (file, number, requests(k), places(k));
      plan = narrowed (file, shape, plan, places(k), positions, requests(k));
    else
      [positions, values] = select_on_axis (file, axes{k}, requests(k));
      place = find (shape.dimensions == axes{k}.dimensions);
      plan = with_values (plan, axes{k}, values, positions, place);
      plan = narrowed (file, shape, plan, place, positions, requests(k));
    endif
  endfor
  for k = find (! cellfun (@isempty, axes))
    plan.used(end+1) = axes{k}.number;
    if (! strcmp (axes{k}.name, requests(k).name))
      plan.asked(end+1,:) = {requests(k).name, axes{k}.name};
    endif
  endfor

endfunction

## The coordinate that each selection is by, empty for positions.
function [axes, places] = axes_of_requests (file, number, requests)

  axes = cell (1, numel (requests));
  places = zeros (1, numel (requests));
  for k = 1:numel (requests)
    [variable, place] = find_coordinate (file, number, requests(k).name);
    if (requests(k).isIndex)
      places(k) = place_of_index (file, number, requests(k).name, place, variable);
    elseif (variable == 0)
      if (! is_all (requests(k).value))
        fail ("noCoordinate", "dimension '%s' has no coordinates; \"index\", \"%s\" takes positions", ...
              visible_text (requests(k).name), visible_text (requests(k).name));
      endif
      places(k) = place;
    else
      axes{k} = coordinate_axis (file, variable);
    endif
  endfor

endfunction

function place = place_of_index (file, number, name, place, variable)

  if (isempty (place))
    dimensions = variable_shape (file, variable).dimensions;
    if (numel (dimensions) != 1)
      fail ("badSelection", "\"index\" takes the name of a dimension, and '%s' has %d", visible_text (name), ...
            numel (dimensions));
    endif
    place = find (variable_shape (file, number).dimensions == dimensions);
  endif

endfunction

function yes = is_all (value)

  yes = ischar (value) && strcmp (value, ":");

endfunction

function positions = by_index (file, number, request, place)

  len = variable_shape (file, number).lengths(place);
  positions = checked_positions (file, number, request.value, len, place);
  if (ischar (positions))
    positions = 1:len;
  elseif (isempty (positions))
    fail ("emptySelection", "no position of '%s' is selected", visible_text (request.name));
  endif

endfunction

## The longitudes of a coordinate as a selection counts them, for all positions along its dimension.
function plan = with_values (plan, axis, values, positions, place)

  if (! isempty (values))
    all = axis.values;
    all(positions) = values;
    plan.coordinates(end+1) = axis.number;
    plan.values{end+1} = all;
  endif

endfunction

## What several selections of one dimension have in common.
function plan = narrowed (file, shape, plan, place, positions, request)

  if (! ischar (plan.lists{place}))
    before = plan.lists{place};
    positions = before(ismember (before, positions));
  endif
  if (isempty (positions))
    fail ("emptySelection", "'%s' and the selections before it have no point of dimension '%s' in common", ...
          visible_text (request.name), visible_text (file.d.dimensions.name{shape.dimensions(place)}));
  endif
  plan.lists{place} = positions(:)';

endfunction
