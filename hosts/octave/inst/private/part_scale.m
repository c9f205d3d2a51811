## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{units}, @var{calendar}] =} part_scale (@var{file}, @var{number}, @var{part})
## Undocumented internal function: the units and calendar of times of a variable in one of many files, where they are not those
## of the first; else empty.
## @end deftypefn

function [units, calendar] = part_scale (file, number, part)

  units = calendar = "";
  many = file.many;
  if (number == many.coordinate || number == many.bounds)
    own = {many.units{part}, many.calendars{part}};
    first = {many.units{many.first}, many.calendars{many.first}};
    own(2:2:2*isempty (own{2})) = {"standard"};
    first(2:2:2*isempty (first{2})) = {"standard"};
    if (! isempty (own{1}) && ! isequal (own, first))
      [units, calendar] = own{:};
    endif
  elseif (! isempty (many.times{number,many.forms(part)}))
    [units, calendar] = many.times{number,many.forms(part)}{:};
  endif

endfunction
