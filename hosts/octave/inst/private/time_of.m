## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{units}, @var{calendar}] =} time_of (@var{file}, @var{number})
## Undocumented internal function: the units and the calendar of a variable whose values are times; empty units if they are
## not, or if the rules of decoding leave times alone.
## @end deftypefn

function [units, calendar] = time_of (file, number)

  units = "";
  calendar = "standard";
  if (! strcmp (file.d.variables.kind{number}, "number"))
    return;
  endif
  attributes = file.d.variables.attributes{number};
  text = attribute_text (attributes, "units");
  if (isempty (regexpi (text, '^[a-z]+\s+(since|after|from|ref|@)\s', "once")))
    return;
  endif
  units = text;
  named = attribute_text (attributes, "calendar");
  if (! isempty (named))
    calendar = lower (named);
  endif
  if (! strcmp (file.months, "refused"))
    calendar = [calendar "|" file.months];
  endif

endfunction
