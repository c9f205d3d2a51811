## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{parts} =} variable_parts (@var{self}, @dots{})
## Undocumented internal function: the method @code{parts} of @code{gridio_variable}: times as rows of year, month, day,
## hour, minute, second.
## @end deftypefn

function parts = variable_parts (self, varargin)

  [values, units, calendar] = time_values (self, varargin{:});
  parts = convert_times ("timesToParts", values(:), units, calendar);

endfunction
