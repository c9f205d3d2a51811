## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{names} =} dataset_dimensions (@var{self})
## Undocumented internal function: the method @code{dimensions} of @code{gridio_dataset}: the names of the group's
## dimensions.
## @end deftypefn

function names = dataset_dimensions (self)

  [file, group] = content (self);
  d = file.d;
  names = d.dimensions.name(d.dimensions.group == group);
  names = names(:);

endfunction
