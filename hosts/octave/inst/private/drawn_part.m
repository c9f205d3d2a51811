## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{x}, @var{at}] =} drawn_part (@var{v}, @var{selection})
## Undocumented internal function: the values of a variable to draw, and their coordinates: those of a selection, and of more
## than two dimensions the two that make a map or a section, at the first position along the others.
## @end deftypefn

function [x, at] = drawn_part (v, selection)

  [file, number] = inside (v);
  shape = variable_shape (file, number);
  plan = select_positions (file, number, parse_selection (selection));
  wide = find (block_size (plan.lists, shape.lengths) > 1);
  for place = setdiff (wide, picture_dimensions (file, number, shape, wide))
    first = plan.lists{place}(1);
    if (ischar (first))
      first = 1;
    endif
    selection = [selection, {"index", file.d.dimensions.name{shape.dimensions(place)}, first}];
  endfor
  [x, at] = variable_at (v, selection{:});

endfunction

## The places of the dimensions to draw along: of a map, of a section, or of a field over time; else the fastest varying.
function kept = picture_dimensions (file, number, shape, wide)

  kept = wide;
  if (numel (wide) <= 2)
    return;
  endif
  roles = repmat ({""}, 1, numel (shape.lengths));
  for k = coordinates_of (file.d, number)
    role = axis_role (file.d.variables.attributes{k}, file.d.variables.name{k});
    mine = find (ismember (shape.dimensions, variable_shape (file, k).dimensions));
    if (numel (mine) == 2 && any (strcmp (role, {"lon", "lat"})) && all (ismember (mine, wide)))
      kept = mine;
      return;
    elseif (isscalar (mine) && isempty (roles{mine}))
      roles{mine} = role;
    endif
  endfor
  roles = roles(wide);
  for pair = {"lon", "lat", "level", "level", "level", "time"; "lat", "level", "lon", "time", "", "lat"}
    first = find (strcmp (roles, pair{1}), 1);
    second = setdiff (find (strcmp (roles, pair{2})), first);
    if (! isempty (first) && ! isempty (second))
      kept = wide(sort ([first, second(1)]));
      return;
    endif
  endfor
  kept = wide(1:2);

endfunction
