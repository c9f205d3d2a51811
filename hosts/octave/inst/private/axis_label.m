## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{label} =} axis_label (@var{about})
## Undocumented internal function: the name of a coordinate with its units; dates need none.
## @end deftypefn

function label = axis_label (about)

  label = about.long_name;
  if (isempty (label))
    label = about.name;
  endif
  if (! isempty (about.units) && ! about.isDatenum)
    label = sprintf ("%s (%s)", label, about.units);
  endif

endfunction
