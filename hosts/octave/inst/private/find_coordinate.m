## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{k}, @var{place}] =} find_coordinate (@var{file}, @var{number}, @var{name})
## Undocumented internal function: the coordinate of a variable that a user's name means: a dimension's name, a
## coordinate's, or lat, lon, time, or level, or a standard_name.  It is 0 for a dimension without coordinates, whose place
## the second result has.
## @end deftypefn

function [k, place] = find_coordinate (file, number, name)

  d = file.d;
  if (! ischar (name))
    fail ("badSelection", "the name of a dimension or coordinate must be a text, not %s", shown_text (name));
  endif
  dimensions = variable_shape (file, number).dimensions;
  [numbers, ranks] = coordinates_of (d, number);
  place = find (strcmp (d.dimensions.name(dimensions), name), 1);
  k = numbers(strcmp (d.variables.name(numbers), name));
  if (isempty (k) && ! isempty (place))
    k = only_along (file, numbers(ranks < 3), dimensions(place));
  elseif (isempty (k))
    k = by_meaning (d, number, numbers, ranks, name);
  endif
  if (isempty (k) && isempty (place))
    k = along_it (file, number, dimensions, name);
  endif
  k = k(1:min (1, end));
  if (isempty (k) && isempty (place))
    unknown_name ("unknownName", "dimension or coordinate", name, ...
                  unique ([d.dimensions.name(dimensions)(:); d.variables.name(numbers)(:)]), ...
                  sprintf (" of variable '%s'", visible_text (d.variables.path{number})));
  elseif (isempty (k))
    k = 0;
  endif

endfunction

## A variable that nothing says is a coordinate, but whose values lie along dimensions of this one.
function k = along_it (file, number, dimensions, name)

  k = in_scope (file.d, file.d.variables.group(number), name);
  if (! isempty (k))
    mine = variable_shape (file, k).dimensions;
    if (isempty (mine) || ! all (ismember (mine, dimensions)))
      k = [];
    endif
  endif

endfunction

## The only coordinate of a dimension that has no coordinate variable.
function k = only_along (file, numbers, dimension)

  isIt = arrayfun (@(k) isequal (variable_shape (file, k).dimensions, dimension), numbers);
  k = numbers(isIt);
  if (numel (k) > 1)
    k = [];
  endif

endfunction

function k = by_meaning (d, number, numbers, ranks, name)

  k = [];
  for known = {ranks < 3, ranks == 3}
    among = numbers(known{1});
    stages = arrayfun (@(k) stage_of (d, k, name), among);
    best = min ([stages, Inf]);
    k = among(stages == best & isfinite (stages));
    if (! isempty (k))
      break;
    endif
  endfor
  if (numel (k) > 1 && ranks(numbers == k(1)) == 1 && sum (ismember (numbers(ranks == 1), k)) == 1)
    k = k(1);
  elseif (numel (k) > 1)
    fail ("ambiguousName", "'%s' of variable '%s' may be any of %s; name one of them", visible_text (name), ...
          visible_text (d.variables.path{number}), listed_names (d.variables.name(k)));
  endif

endfunction

## By what a coordinate is what the name means; Inf if it is not.
function stage = stage_of (d, k, name)

  attributes = d.variables.attributes{k};
  [role, stage] = axis_role (attributes, d.variables.name{k});
  if (! strcmp (role, role_named (name)))
    stage = Inf;
  endif
  if (strcmp (attribute_text (attributes, "standard_name"), name))
    stage = min (stage, 2);
  elseif (strcmp (attribute_text (attributes, "bounds"), name))
    stage = min (stage, 6);
  endif

endfunction
