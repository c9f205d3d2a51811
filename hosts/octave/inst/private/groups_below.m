## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{names}, @var{numbers}] =} groups_below (@var{d}, @var{group})
## Undocumented internal function: the paths, from a group, of all groups below it.
## @end deftypefn

function [names, numbers] = groups_below (d, group)

  ahead = d.groups.path{group};
  if (group == 1)
    numbers = (2:numel (d.groups.path))';
    names = d.groups.path(numbers);
  else
    ahead = [ahead "/"];
    numbers = find (strncmp (d.groups.path, ahead, numel (ahead)));
    names = cellfun (@(path) path(numel (ahead)+1:end), d.groups.path(numbers), "UniformOutput", false);
  endif
  names = names(:);

endfunction
