## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{k} =} axis_of_group (@var{d}, @var{group}, @var{name})
## Undocumented internal function: the coordinate of a group that serves as lat, lon, time, or level; empty if there is
## none.
## @end deftypefn

function k = axis_of_group (d, group, name)

  k = [];
  if (! any (strcmp (name, {"lat", "lon", "time", "level"})))
    return;
  endif
  numbers = find (d.variables.group == group & d.variables.mayBeAxis)(:)';
  if (isempty (numbers))
    return;
  endif
  [roles, stages] = cellfun (@axis_role, d.variables.attributes(numbers), d.variables.name(numbers), ...
                             "UniformOutput", false);
  isIt = strcmp (roles, name)(:)';
  stages = [stages{:}];
  isOwn = arrayfun (@(k) is_of_own_dimension (d, k), numbers);
  numbers = numbers(isIt & isOwn | isIt & ! any (isIt & isOwn));
  stages = stages(isIt & isOwn | isIt & ! any (isIt & isOwn));
  k = numbers(stages == min ([stages, Inf]));
  if (numel (k) > 1)
    fail ("ambiguousName", "'%s' may be any of %s; name one of them", name, listed_names (d.variables.name(k)));
  endif

endfunction
