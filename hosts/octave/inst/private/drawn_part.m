## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{x}, @var{at}] =} drawn_part (@var{v}, @var{selection})
## Undocumented internal function: the values of a variable to draw, and their coordinates: those of a selection, and of more
## than two dimensions the two that make a map or a section, at the first position along the others.  "along" in the
## selection names a variable that is to be drawn along where the coordinates are in doubt.
## @end deftypefn

function [x, at] = drawn_part (v, selection)

  [along, selection] = along_option (selection);
  [file, number] = inside (v);
  shape = variable_shape (file, number);
  plan = select_positions (file, number, parse_selection (selection));
  wide = find (block_size (plan.lists, shape.lengths) > 1);
  for place = setdiff (wide, picture_dimensions (file, number, shape, wide))(:)'
    first = plan.lists{place}(1);
    if (ischar (first))
      first = 1;
    endif
    selection = [selection, {"index", file.d.dimensions.name{shape.dimensions(place)}, first}];
    plan.lists{place} = first;
  endfor
  [x, at] = variable_at (v, selection{:});
  if (! isempty (along))
    at = with_coordinate (file, number, shape, plan, at, along);
  endif

endfunction

function [along, selection] = along_option (selection)

  along = "";
  at = find (cellfun (@(word) ischar (word) && strcmp (word, "along"), selection(1:2:end)), 1);
  if (! isempty (at) && 2 * at <= numel (selection))
    along = selection{2*at};
    selection([2*at-1, 2*at]) = [];
  endif

endfunction

## The variable takes the place of all other coordinates of its dimensions but times and places.
function at = with_coordinate (file, number, shape, plan, at, name)

  d = file.d;
  k = find_variable (d, d.variables.group(number), name);
  if (isempty (k))
    unknown_name ("unknownName", "variable", name, d.variables.name(d.variables.group == d.variables.group(number)));
  endif
  mine = variable_shape (file, k).dimensions;
  if (isempty (mine) || ! all (ismember (mine, shape.dimensions)))
    fail ("badSelection", "'%s' does not lie along dimensions of '%s'", shown_text (name), shown_text (at.about.variable));
  endif
  lists = arrayfun (@(one) plan.lists(shape.dimensions == one), mine);
  at.(name) = read_block (file, k, lists);
  attributes = d.variables.attributes{k};
  about = at.about.coordinates;
  about(strcmp ({about.name}, name) | strcmp ({about.role}, "level")) = [];
  about(end+1) = struct ("name", name, "dimensions", {{d.dimensions.name{mine}}}, "role", "level", ...
                         "units", attribute_text (attributes, "units"), ...
                         "long_name", attribute_text (attributes, "long_name"), "calendar", "", "isDatenum", false, ...
                         "positive", attribute_text (attributes, "positive"));
  at.about.coordinates = about;

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
