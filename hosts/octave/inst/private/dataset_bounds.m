## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{bounds} =} dataset_bounds (@var{self}, @var{name})
## Undocumented internal function: the method @code{bounds} of @code{gridio_dataset}: the bounds of a coordinate's cells, as
## stored or else half way between the values.
## @end deftypefn

function bounds = dataset_bounds (self, name)

  [file, group] = content (self);
  if (nargin < 2 || ! ischar (name))
    fail ("badName", "bounds takes the name of a coordinate, a text");
  endif
  number = find_variable (file.d, group, name);
  if (isempty (number))
    number = axis_of_group (file.d, group, name);
  endif
  if (isempty (number))
    unknown_name ("unknownName", "variable", name, file.d.variables.name(file.d.variables.group == group));
  endif
  bounds = bounds_of (file, number);
  [units, calendar] = time_of (file, number);
  if (! isempty (units) && has_datenum (calendar) && bitand (file.flags, 64))
    bounds = convert_times ("timesToDatenum", bounds, units, calendar);
  endif

endfunction
