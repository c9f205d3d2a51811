## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{numbers}, @var{ranks}] =} coordinates_of (@var{d}, @var{number})
## Undocumented internal function: the coordinates of a variable, and how each is known: 1 by the name of a dimension, 2 by
## its attribute coordinates, 3 as a variable along some of its dimensions that serves as an axis.
## @end deftypefn

function [numbers, ranks] = coordinates_of (d, number)

  dimensions = double (d.variables.dimensions{number}(:)');
  group = d.variables.group(number);
  numbers = [];
  ranks = [];
  for dimension = dimensions
    k = in_scope (d, group, d.dimensions.name{dimension});
    if (! isempty (k) && isequal (along (d, k), dimension))
      numbers(end+1) = k;
      ranks(end+1) = 1;
    endif
  endfor
  listed = ostrsplit (attribute_text (d.variables.attributes{number}, "coordinates"), " \t\r\n", true);
  for name = listed(! cellfun (@isempty, listed))(:)'
    k = in_scope (d, group, name{1});
    if (! isempty (k) && k != number && all (ismember (along (d, k), dimensions)))
      numbers(end+1) = k;
      ranks(end+1) = 2;
    endif
  endfor
  others = find (d.variables.group == group & d.variables.mayBeAxis);
  others = others(cellfun (@(list) is_among (list, dimensions), d.variables.dimensions(others)))(:)';
  for k = setdiff (others, numbers)(:)'
    [role, stage] = axis_role (d.variables.attributes{k}, d.variables.name{k});
    if (! isempty (role) && (stage < 3 || ! strcmp (role, "level")))
      numbers(end+1) = k;
      ranks(end+1) = 3;
    endif
  endfor
  [numbers, first] = unique (numbers, "first");
  [ranks, order] = sort (ranks(first));
  numbers = numbers(order);

endfunction

## The dimensions of a coordinate's values; those of its texts' characters do not count.
function dimensions = along (d, k)

  dimensions = double (d.variables.dimensions{k}(:)');
  if (strcmp (d.variables.kind{k}, "char") && ! isempty (dimensions) && d.dimensions.isTextLength(dimensions(1)))
    dimensions(1) = [];
  endif

endfunction

function yes = is_among (list, dimensions)

  yes = ! isempty (list) && all (any (double (list(:)) == dimensions, 2));

endfunction
