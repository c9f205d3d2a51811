## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{names} =} dataset_variables (@var{self}, @dots{})
## Undocumented internal function: the method @code{variables} of @code{gridio_dataset}: names in the group, and paths of
## those in groups below, all or those with given attributes.
## @end deftypefn

function names = dataset_variables (self, varargin)

  [file, group] = content (self);
  [numbers, names] = variables_with (file.d, group, varargin{:});

endfunction
