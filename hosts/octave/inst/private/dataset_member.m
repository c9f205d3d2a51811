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
  unknown_member (d, group, name);

endfunction

function unknown_member (d, group, name)

  slash = find (name == "/", 1, "last");
  if (isempty (slash))
    names = [d.variables.name(d.variables.group == group); attribute_names(d, group); groups_below(d, group)];
  else
    ## What lies elsewhere by this name is what was meant.
    names = d.variables.path(strcmp (d.variables.name, name(slash+1:end)));
    if (! isempty (names))
      fail ("unknownName", "no variable '%s'; did you mean %s?", shown_text (name), ...
            strjoin (strcat ("/", names(1:min (3, end)))(:)', " or "));
    endif
    [~, names] = variables_with (d, group);
  endif
  unknown_name ("unknownName", "variable or attribute", name, names);

endfunction

function names = attribute_names (d, group)

  names = cell (0, 1);
  if (! isempty (d.groups.attributes{group}))
    names = d.groups.attributes{group}(:,1);
  endif

endfunction
