## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{at} =} coordinates_of_reduced (@var{file}, @var{number}, @var{plan}, @var{is_reduced}, @var{groups})
## Undocumented internal function: the coordinates of a reduction's result: those of the dimensions that are left, and of
## the groups.
## @end deftypefn

function at = coordinates_of_reduced (file, number, plan, isReduced, groups)

  d = file.d;
  shape = variable_shape (file, number);
  at = coordinates_at (file, number, plan);
  gone = shape.dimensions(isReduced);
  dropped = d.dimensions.name(gone)(:)';
  for k = coordinates_of (d, number)
    if (any (ismember (variable_shape (file, k).dimensions, gone)))
      dropped{end+1} = d.variables.name{k};
    endif
  endfor
  for k = 1:rows (plan.asked)
    if (any (strcmp (plan.asked{k,2}, dropped)))
      dropped{end+1} = plan.asked{k,1};
    endif
  endfor
  dropped = dropped(isfield (at, dropped));
  about = at.about;
  at = rmfield (at, unique ([dropped, "about"]));
  isKept = ! ismember ({about.coordinates.name}, dropped);
  times = about.coordinates(strcmp ({about.coordinates.name}, group_name (d, groups)));
  about.coordinates = about.coordinates(isKept);
  about.reduced = {d.dimensions.name{gone}};
  if (groups.place > 0)
    name = groups.by;
    if (groups.isEach)
      name = times.name;
      about.coordinates(end+1) = times;
    endif
    at.(name) = groups.labels;
  endif
  at.about = about;

endfunction

function name = group_name (d, groups)

  name = "";
  if (groups.place > 0)
    name = d.variables.name{groups.number};
  endif

endfunction
