## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{groups} =} groups_by (@var{file}, @var{number}, @var{request})
## Undocumented internal function: the groups that parts of the time make of the indices of a dimension: the dimension's
## place, the group of each index, and what the groups are.
## @end deftypefn

function groups = groups_by (file, number, request)

  words = {"year", "month", "season", "day", "hour", "each month", "each season", "each day", "each hour"};
  if (! any (strcmp (request.by, words)))
    unknown_name ("badCall", "part of the time", request.by, words);
  endif
  k = time_coordinate (file, number, request);
  shape = variable_shape (file, number);
  axis = coordinate_axis (file, k);
  groups.place = find (shape.dimensions == axis.dimensions);
  groups.by = strrep (request.by, "each ", "");
  groups.isEach = strncmp (request.by, "each ", 5);
  groups.number = k;
  parts = convert_times ("timesToParts", axis.values(:), axis.units, axis.calendar);
  keys = keys_of (groups.by, groups.isEach, parts);
  isTime = all (isfinite (keys), 2);
  [groups.labels, ~, members] = unique (keys(isTime,:), "rows");
  groups.members = zeros (rows (keys), 1);
  groups.members(isTime) = members;
  if (groups.isEach)
    groups.labels = starts_of (groups.by, groups.labels, axis, file);
  elseif (strcmp (groups.by, "season"))
    groups.labels = {"DJF"; "MAM"; "JJA"; "SON"}(groups.labels + 1);
  endif

endfunction

function k = time_coordinate (file, number, request)

  shape = variable_shape (file, number);
  k = find_coordinate (file, number, "time");
  if (k == 0 || isempty (time_of (file, k)))
    fail ("notATime", "variable '%s' has no times to make groups by", visible_text (file.d.variables.path{number}));
  endif
  mine = variable_shape (file, k).dimensions;
  if (numel (mine) != 1 || ! request.isReduced(shape.dimensions == mine))
    fail ("badCall", "\"by\" needs the dimension of the times, which is not among those that are reduced");
  endif

endfunction

function keys = keys_of (by, isEach, parts)

  [year, month, day, hour] = num2cell (parts(:,1:4), 1){:};
  season = mod (floor (month / 3), 4);
  switch (by)
    case "year"
      keys = year;
    case "month"
      keys = chosen (isEach, [year, month], month);
    case "season"
      keys = chosen (isEach, [year + (month == 12), season], season);
    case "day"
      keys = chosen (isEach, [year, month, day], [month, day]);
    case "hour"
      keys = chosen (isEach, [year, month, day, hour], hour);
  endswitch

endfunction

## When each group begins, as the times of the file are read.
function starts = starts_of (by, labels, axis, file)

  parts = [labels, ones(rows (labels), 3)](:,1:3);
  hours = zeros (rows (labels), 1);
  switch (by)
    case "season"
      isWinter = labels(:,2) == 0;
      parts(:,1) -= isWinter;
      parts(:,2) = merge (isWinter, 12, 3 * labels(:,2));
      parts(:,3) = 1;
    case "hour"
      hours = labels(:,4);
  endswitch
  starts = convert_times ("partsToTimes", [parts, hours, zeros(rows (labels), 2)], axis.units, axis.calendar);
  if (has_datenum (axis.calendar) && bitand (file.flags, 64))
    try
      starts = convert_times ("timesToDatenum", double (starts), axis.units, axis.calendar);
    catch failure
      if (isempty (strfind (failure.identifier, "unrepresentableTime")))
        rethrow (failure);
      endif
    end_try_catch
  endif

endfunction

function keys = chosen (isEach, each, cyclic)

  keys = cyclic;
  if (isEach)
    keys = each;
  endif

endfunction
