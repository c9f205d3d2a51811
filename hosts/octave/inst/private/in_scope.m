## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{k} =} in_scope (@var{d}, @var{group}, @var{name})
## Undocumented internal function: the variable of a name, or of a path, as attributes of variables in a group name it: in
## the group, or the nearest above; empty if there is none.
## @end deftypefn

function k = in_scope (d, group, name)

  k = find_variable (d, group, name);
  while (isempty (k) && group > 1)
    group = d.groups.parent(group);
    k = find_variable (d, group, name);
  endwhile

endfunction
