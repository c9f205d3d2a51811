## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@dots{}] =} convert_times (@var{operation}, @var{values}, @var{units}, @var{calendar})
## Undocumented internal function: a conversion of times by gridio_native.  Behind the calendar and a bar may stand how
## months and years are taken.
## @end deftypefn

function varargout = convert_times (operation, values, units, calendar)

  varargout = cell (1, max (nargout, 1));
  [calendar, long] = strtok (calendar, "|");
  if (! isempty (long))
    [varargout{:}] = gridio_native (operation, values, units, calendar, long(2:end));
    return;
  endif
  try
    [varargout{:}] = gridio_native (operation, values, units, calendar);
  catch failure
    cure = "";
    if (! isempty (strfind (failure.message, "UDUNITS lengths")))
      cure = [" The option \"months\" of gridio_dataset says how: \"calendar\" or \"udunits\"; \"times\", false leaves" ...
              " the numbers as they are."];
    endif
    raise (failure.identifier, [failure.message cure]);
  end_try_catch

endfunction
