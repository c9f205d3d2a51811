## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} dataset_put (@var{self}, @var{name}, @var{values}, @var{dimensions}, @var{attribute}, @var{value}, @dots{})
## Undocumented internal function: the method @code{put} of a dataset.
## @end deftypefn

function dataset_put (self, name, values, varargin)

  if (nargin < 3)
    fail ("badCall", "put takes a name, values, the names of their dimensions, and attributes: ds.put (\"t\", t, {\"x\", \"y\"}, \"units\", \"K\")");
  endif
  [file, group] = content (self);
  writable (file);
  change_file (self, @put_variable, file.d.groups.ncid(group), name, values, varargin{:});

endfunction
