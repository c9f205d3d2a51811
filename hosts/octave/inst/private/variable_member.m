## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{value} =} variable_member (@var{self}, @var{name})
## Undocumented internal function: an attribute of a variable.
## @end deftypefn

function value = variable_member (self, name)

  [file, number] = inside (self);
  attributes = file.d.variables.attributes{number};
  [hasIt, value] = attribute_value (attributes, name);
  if (! hasIt)
    unknown_name ("unknownName", "attribute", name, attributes(:,1), ...
                  sprintf (" of variable '%s'", visible_text (file.d.variables.path{number})));
  endif

endfunction
