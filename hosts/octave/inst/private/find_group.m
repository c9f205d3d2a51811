## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{g} =} find_group (@var{d}, @var{group}, @var{name})
## Undocumented internal function: the group of a path from a group, or from the root with a slash ahead; empty if there is
## none.
## @end deftypefn

function g = find_group (d, group, name)

  if (strcmp (name, "/"))
    g = 1;
    return;
  endif
  ahead = d.groups.path{group};
  name = regexprep (name, '/$', "");
  if (strncmp (name, "/", 1))
    name = name(2:end);
  elseif (! isempty (ahead))
    name = [ahead "/" name];
  endif
  g = find (strcmp (d.groups.path, name) & ! strcmp (d.groups.path, ""), 1);

endfunction
