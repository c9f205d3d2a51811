## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{units}, @var{calendar}] =} joined_scale (@var{file}, @var{number})
## Undocumented internal function: the units and calendar to which times of joined files are brought, those of the first file;
## empty if a variable has no times.  Bounds have those of their coordinate.
## @end deftypefn

function [units, calendar] = joined_scale (file, number)

  if (number == file.many.bounds)
    number = file.many.coordinate;
  endif
  [units, calendar] = time_of (file, number);
  calendar = strtok (calendar, "|");

endfunction
