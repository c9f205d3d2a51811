## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{numbers}, @var{names}] =} variables_with (@var{d}, @var{group}, @dots{})
## Undocumented internal function: the variables of a group and of those below it that have the attributes given, and their
## paths from there.
## @end deftypefn

function [numbers, names] = variables_with (d, group, varargin)

  if (mod (numel (varargin), 2) == 1 || ! iscellstr (varargin(1:2:end)))
    fail ("badCall", "attributes are given as names and values: \"units\", \"K\"");
  endif
  [~, below] = groups_below (d, group);
  numbers = find (ismember (d.variables.group, [group; below]));
  for k = 1:2:numel (varargin)
    [name, value] = varargin{k:k+1};
    numbers = numbers(cellfun (@(a) has_value (a, name, value), d.variables.attributes(numbers)));
  endfor
  skipped = numel (d.groups.path{group}) + (group > 1);
  names = cellfun (@(path) path(skipped+1:end), d.variables.path(numbers), "UniformOutput", false);
  names = names(:);

endfunction

function yes = has_value (attributes, name, value)

  [yes, found] = attribute_value (attributes, name);
  if (yes && ischar (value))
    yes = strcmp (attribute_text (attributes, name), strtrim (value));
  elseif (yes)
    yes = isequal (double_if_number (found), double_if_number (value));
  endif

endfunction

function value = double_if_number (value)

  if (isnumeric (value))
    value = double (value(:)');
  endif

endfunction
