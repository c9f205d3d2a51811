## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{values}, @var{units}, @var{calendar}] =} time_values (@var{self}, @dots{})
## Undocumented internal function: the times of a variable as numbers of its units: all, or those at positions.
## @end deftypefn

function [values, units, calendar] = time_values (self, varargin)

  [file, number] = inside (self);
  [units, calendar] = time_of (file, number);
  if (isempty (units))
    fail ("notATime", "variable '%s' has no times: its units are \"%s\", and those of times are like \"days since 2000-01-01\"", ...
          visible_text (file.d.variables.path{number}), ...
          visible_text (attribute_text (file.d.variables.attributes{number}, "units")));
  endif
  file.flags = bitand (file.flags, 63 - 32);
  values = double (read_positions (file, number, varargin));

endfunction
