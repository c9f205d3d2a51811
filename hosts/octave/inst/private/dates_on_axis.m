## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} dates_on_axis (@var{axes}, @var{which}, @var{axis})
## Undocumented internal function: label the axis "x" or "y" with dates if its values are day numbers.
## @end deftypefn

function dates_on_axis (axes_, which, axis)

  if (axis.isDate && numel (axis.values) > 1)
    [ticks, texts] = date_ticks (sort (axis.values([1 end])'));
    set (axes_, [which "tick"], ticks, [which "ticklabel"], texts);
  endif

endfunction
