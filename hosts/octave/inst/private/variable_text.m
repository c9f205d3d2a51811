## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{texts} =} variable_text (@var{self}, @dots{})
## Undocumented internal function: the method @code{text} of @code{gridio_variable}: times as texts.
## @end deftypefn

function texts = variable_text (self, varargin)

  [values, units, calendar] = time_values (self, varargin{:});
  texts = convert_times ("timesToText", values, units, calendar);
  texts = reshape (texts, size (values));

endfunction
