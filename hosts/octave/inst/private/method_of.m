## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{method}, @var{most}] =} method_of (@var{class_}, @var{name})
## Undocumented internal function: the function that does what a method of @qcode{"dataset"}s or @qcode{"variable"}s does, empty if
## there is no method of that name, and how many results it has.
## @end deftypefn

function [method, most] = method_of (class_, name)

  persistent dataset = {
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
  persistent variable = {
    "attributes", @variable_attributes, 1
    "name",       @variable_name,       1
    "dimensions", @variable_dimensions, 1
    "at",         @variable_at,         2
    "text",       @variable_text,       1
    "parts",      @variable_parts,      1
    "labels",     @variable_labels,     1
    "area",       @variable_area,       1
    "mean",       @mean,                2
    "sum",        @sum,                 2
    "min",        @min,                 2
    "max",        @max,                 2
    "std",        @std,                 2
    "var",        @var,                 2
    "count",      @count,               2
    "median",     @median,              2
    "plot",       @gridio_plot,         1
  };
  methods = dataset;
  if (strcmp (class_, "variable"))
    methods = variable;
  endif
  method = [];
  most = 0;
  row = find (strcmp (name, methods(:,1)));
  if (! isempty (row))
    [method, most] = methods{row,2:3};
  endif

endfunction
