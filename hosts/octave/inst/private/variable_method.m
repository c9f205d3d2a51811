## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{method}, @var{most}] =} variable_method (@var{name})
## Undocumented internal function: the function that does what a method of variables does, empty if there is none, and how
## many results it has.
## @end deftypefn

function [method, most] = variable_method (name)

  persistent methods = {
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
  method = [];
  most = 0;
  row = find (strcmp (name, methods(:,1)));
  if (! isempty (row))
    [method, most] = methods{row,2:3};
  endif

endfunction
