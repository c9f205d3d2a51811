## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{times} =} encode_times (@var{values}, @var{encoding})
## Undocumented internal function: day numbers, as of @code{datenum}, or texts such as "2013-05-01 18:00", in the units and
## the calendar of a variable.
## @end deftypefn

function times = encode_times (values, encoding)

  try
    if (ischar (values) || iscell (values))
      values = cellstr (values);
      times = cellfun (@(text) moment (text, encoding), values);
    elseif (! has_datenum (lower (encoding.calendar)))
      times = double (values); # as they are read
    else
      times = reshape (gridio_native ("datenumToTimes", values(:), encoding.units, encoding.calendar), size (values));
    endif
  catch failure
    raise (failure.identifier, sprintf ("the times of '%s': %s", shown_text (encoding.name), failure.message));
  end_try_catch

endfunction

## The first moment of the period that a text names.
function time = moment (text, encoding)

  time = gridio_native ("periodToTimes", text, encoding.units, encoding.calendar)(1);

endfunction
