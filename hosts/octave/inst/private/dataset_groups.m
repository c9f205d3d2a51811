## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{names} =} dataset_groups (@var{self})
## Undocumented internal function: the method @code{groups} of @code{gridio_dataset}: the paths of all groups below.
## @end deftypefn

function names = dataset_groups (self)

  [file, group] = content (self);
  names = groups_below (file.d, group);

endfunction
