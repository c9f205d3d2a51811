## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{parts} =} joined_parts (@var{file}, @var{number}, @var{place}, @var{which})
## Undocumented internal function: the files of a variable as @code{gridio_native ("reduceParts", @dots{})} takes them: the
## files with the numbers @var{which}, in the order in which they are joined along the dimension @var{place}.
##
## Fields: @code{paths} in joined order, @code{lengths} along the joined dimension, @code{dimension} its place among the
## variable's dimensions, @code{isNew} whether it is not in the files, @code{name} the path of the variable in each file.
## @end deftypefn

function parts = joined_parts (file, number, place, which)

  many = file.many;
  parts = struct ("owner", many.owner, "paths", {many.paths(which)}, "name", file.d.variables.path{number}, ...
                  "dimension", place, "isNew", double (many.isNew), "lengths", many.lengths(which), ...
                  "isUsed", ones (1, numel (which)), "units", {{}}, "calendars", {{}}, "toUnits", "", "toCalendar", "", ...
                  "longUnits", file.months);
  [parts.toUnits, parts.toCalendar] = joined_scale (file, number);
  if (isempty (parts.toUnits))
    return;
  endif
  [units, calendars] = arrayfun (@(part) part_scale (file, number, part), which, "UniformOutput", false);
  isSame = cellfun (@isempty, units);
  if (! all (isSame))
    units(isSame) = {parts.toUnits};
    calendars(isSame) = {parts.toCalendar};
    [parts.units, parts.calendars] = deal (units, calendars);
  endif

endfunction
