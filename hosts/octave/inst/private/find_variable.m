## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{k} =} find_variable (@var{d}, @var{group}, @var{name})
## Undocumented internal function: the variable of a name in a group, or of a path from it, or from the root with a slash
## ahead; empty if there is none.
## @end deftypefn

function k = find_variable (d, group, name)

  slash = find (name == "/", 1, "last");
  if (! isempty (slash))
    ahead = name(1:slash-1);
    if (isempty (ahead))
      group = 1;
    else
      group = find_group (d, group, ahead);
    endif
    name = name(slash+1:end);
  endif
  k = [];
  if (! isempty (group))
    k = find (d.variables.group == group & strcmp (d.variables.name, name), 1);
  endif

endfunction
