## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{yes} =} has_datenum (@var{calendar})
## Undocumented internal function: whether day numbers as of datenum are exact in a calendar.
## @end deftypefn

function yes = has_datenum (calendar)

  yes = any (strcmp (strtok (calendar, "|"), {"standard", "gregorian", "proleptic_gregorian"}));

endfunction
