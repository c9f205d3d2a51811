## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{texts} =} variable_labels (@var{self}, @var{values})
## Undocumented internal function: the method @code{labels} of @code{gridio_variable}: what values mean by the variable's
## enumeration, or by its attributes flag_values, flag_masks and flag_meanings; without values a table of both.
## @end deftypefn

function texts = variable_labels (self, values)

  [file, number] = inside (self);
  flags = flags_of (file, number);
  if (nargin < 2)
    texts = flag_table (flags);
    return;
  elseif (! (isnumeric (values) || islogical (values)))
    fail ("badLabels", "labels takes values of the variable, numbers, not %s", shown_text (values));
  endif
  values = double (values);
  [distinct, ~, which] = unique (values(:));
  found = arrayfun (@(value) label_of (flags, value), distinct, "UniformOutput", false);
  texts = reshape (found(which), size (values));

endfunction

function text = label_of (flags, value)

  if (isnan (value))
    isMeant = false (size (flags.meanings));
  elseif (isempty (flags.masks))
    isMeant = flags.values == value;
  elseif (isempty (flags.values))
    isMeant = masked (value, flags.masks) != 0;
  else
    isMeant = masked (value, flags.masks) == flags.values;
  endif
  text = strjoin (flags.meanings(isMeant), ", ");

endfunction

function bits = masked (value, masks)

  wrapped = mod ([value, masks], 2 ^ 53);
  bits = bitand (wrapped(1), wrapped(2:end));

endfunction

function table = flag_table (flags)

  numbers = flags.values;
  if (isempty (numbers))
    numbers = flags.masks;
  endif
  table = [num2cell(numbers(:)), flags.meanings(:)];

endfunction
