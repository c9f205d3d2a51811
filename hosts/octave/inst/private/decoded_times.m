## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{x} =} decoded_times (@var{file}, @var{number}, @var{x})
## Undocumented internal function: times as day numbers, where the variable has times and the calendar has such; all else
## unchanged.
## @end deftypefn

function x = decoded_times (file, number, x)

  if (! bitand (file.flags, 64))
    return;
  endif
  [units, calendar] = time_of (file, number);
  if (! isempty (units) && has_datenum (calendar))
    try
      x = convert_times ("timesToDatenum", double (x), units, calendar);
    catch failure
      error (failure.identifier, "variable '%s': %s\nIts numbers as stored: ds(\"%s\").raw(:)", ...
             visible_text (file.d.variables.path{number}), failure.message, visible_text (file.d.variables.path{number}));
    end_try_catch
  endif

endfunction
