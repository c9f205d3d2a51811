## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{method}, @var{most}] =} dataset_method (@var{name})
## Undocumented internal function: the function that does what a method of datasets does, empty if there is none, and how many
## results it has.
## @end deftypefn

function [method, most] = dataset_method (name)

  persistent methods = {
    "attributes", @dataset_attributes, 1
    "variables",  @dataset_variables,  1
    "dimensions", @dataset_dimensions, 1
    "groups",     @dataset_groups,     1
    "group",      @dataset_group,      1
    "find",       @dataset_find,       1
    "bounds",     @dataset_bounds,     1
    "files",      @dataset_files,      1
    "put",        @dataset_put,        0
    "append",     @dataset_append,     0
    "close",      @close,              0
  };
  method = [];
  most = 0;
  row = find (strcmp (name, methods(:,1)));
  if (! isempty (row))
    [method, most] = methods{row,2:3};
  endif

endfunction
