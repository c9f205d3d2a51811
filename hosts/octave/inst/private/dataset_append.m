## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} dataset_append (@var{self}, @var{name}, @var{values}, @dots{})
## Undocumented internal function: the method @code{append} of a dataset.
## @end deftypefn

function dataset_append (self, varargin)

  [file, group] = content (self);
  writable (file);
  change_file (self, @append_records, file.d.groups.ncid(group), varargin{:});

endfunction
