## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{x} =} decoded_times (@var{file}, @var{number}, @var{x})
## Undocumented internal function: times as day numbers, where the variable has times and the calendar has such; all else
## unchanged.
## @end deftypefn

function x = decoded_times (file, number, x)

  if (! bitand (file.flags, 64) || ! file.d.variables.mayBeAxis(number)) # a quick look first
    return;
  endif
  [units, calendar] = time_of (file, number);
  if (! isempty (units) && has_datenum (calendar))
    try
      x = convert_times ("timesToDatenum", double (x), units, calendar);
    catch failure
      path = visible_text (file.d.variables.path{number});
      cure = sprintf ("ds(\"%s\").raw(:)", path);
      if (! isempty (strfind (failure.identifier, "unrepresentableTime")))
        cure = sprintf ("%s; its dates: ds(\"%s\").text ()", cure, path);
      endif
      error (failure.identifier, "variable '%s': %s\nIts numbers as stored: %s", path, failure.message, cure);
    end_try_catch
  endif

endfunction
