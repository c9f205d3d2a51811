## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{s} =} dataset_attributes (@var{self})
## Undocumented internal function: the method of that name of @code{gridio_dataset}.
## @end deftypefn

function s = dataset_attributes (self)

  [file, group] = content (self);
  s = attributes_struct (file.d.groups.attributes{group});

endfunction
