## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{member} =} dataset_member (@var{self}, @var{name})
## Undocumented internal function: the variable, group, or attribute of a name or path, or else the coordinate that serves as
## @qcode{"lat"}, @qcode{"lon"}, @qcode{"time"}, or @qcode{"level"}.
## @end deftypefn

function member = dataset_member (self, name)

  [file, group] = content (self);
  d = file.d;
  variable = find_variable (d, group, name);
  if (! isempty (variable))
    member = gridio_variable (self, variable);
    return;
  endif
  below = find_group (d, group, name);
  if (! isempty (below))
    member = gridio_dataset (self, below);
    return;
  endif
  [hasIt, member] = attribute_value (d.groups.attributes{group}, name);
  if (hasIt)
    return;
  endif
  variable = axis_of_group (d, group, name);
  if (! isempty (variable))
    member = gridio_variable (self, variable);
    return;
  endif
  names = [d.variables.name(d.variables.group == group); d.groups.attributes{group}(:,1); groups_below(d, group)];
  unknown_name ("unknownName", "variable or attribute", name, names);

endfunction
