## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{at} =} coordinates_at (@var{file}, @var{number}, @var{plan})
## Undocumented internal function: the coordinates of what a selection gives: a field for each, and in the field "about"
## what they are.
## @end deftypefn

function at = coordinates_at (file, number, plan)

  d = file.d;
  shape = variable_shape (file, number);
  [numbers, ranks] = coordinates_of (d, number);
  numbers = unique ([numbers(ranks < 3 | serves(d, numbers, ranks)), plan.used], "stable");
  at = struct ();
  about = axis_about (file, numbers);
  for n = 1:numel (numbers)
    [at.(d.variables.name{numbers(n)}), isStored] = values_at (file, numbers(n), shape, plan);
    about(n).isDatenum &= ! isStored;
  endfor
  for place = 1:numel (shape.dimensions)
    name = d.dimensions.name{shape.dimensions(place)};
    if (! isfield (at, name))
      at.(name) = positions_at (plan.lists{place}, shape.lengths(place));
    endif
  endfor
  for k = 1:rows (plan.asked)
    at.(plan.asked{k,1}) = at.(plan.asked{k,2});
  endfor
  attributes = d.variables.attributes{number};
  at.about = struct ("variable", d.variables.name{number}, "units", attribute_text (attributes, "units"), ...
                     "long_name", attribute_text (attributes, "long_name"), ...
                     "standard_name", attribute_text (attributes, "standard_name"), ...
                     "dimensions", {{d.dimensions.name{shape.dimensions}}}, "coordinates", about);

endfunction

## Coordinates that no attribute names count where they alone serve best as an axis.
function yes = serves (d, numbers, ranks)

  [roles, stages] = cellfun (@axis_role, d.variables.attributes(numbers), d.variables.name(numbers), ...
                             "UniformOutput", false);
  stages = [stages{:}];
  yes = false (size (numbers));
  for k = find (ranks == 3)
    rivals = strcmp (roles, roles{k})(:)';
    yes(k) = ! any (rivals & ranks < 3) && sum (rivals & stages <= stages(k)) == 1;
  endfor

endfunction

## Times that have no day numbers, as those before 1582-10-15 in calendar standard, are numbers as stored.
function [values, isStored] = values_at (file, k, shape, plan)

  held = find (plan.coordinates == k, 1, "last");
  mine = variable_shape (file, k).dimensions;
  lists = cell (1, numel (mine));
  for n = 1:numel (mine)
    lists{n} = plan.lists{shape.dimensions == mine(n)};
  endfor
  isStored = false;
  if (isempty (held))
    [values, isStored] = read_times_or_stored (file, k, lists);
    if (isnumeric (values) && ! isempty (file.d.variables.attributes{k}))
      attributes = file.d.variables.attributes{k};
      values = in_degrees (values, axis_role (attributes, file.d.variables.name{k}), attribute_text (attributes, "units"));
    endif
  else
    values = plan.values{held};
    values = values(lists{:}, 1);
  endif

endfunction

function [values, isStored] = read_times_or_stored (file, k, lists)

  isStored = false;
  try
    values = read_block (file, k, lists);
  catch failure
    isStored = ! isempty (regexp (failure.identifier, ':(unrepresentableTime|unreadableTime)$', "once"));
    if (! isStored)
      rethrow (failure);
    endif
    file.flags = bitand (file.flags, 63);
    values = read_block (file, k, lists);
  end_try_catch

endfunction

function positions = positions_at (list, len)

  positions = (1:len)';
  if (! ischar (list))
    positions = list(:);
  endif

endfunction

function about = axis_about (file, numbers)

  d = file.d;
  about = struct ("name", {}, "dimensions", {}, "role", {}, "units", {}, "long_name", {}, "calendar", {}, "isDatenum", {}, ...
                  "positive", {});
  for k = numbers
    attributes = d.variables.attributes{k};
    [units, calendar] = time_of (file, k);
    isTime = ! isempty (units);
    about(end+1) = struct ("name", d.variables.name{k}, ...
                           "dimensions", {{d.dimensions.name{variable_shape(file, k).dimensions}}}, ...
                           "role", axis_role (attributes, d.variables.name{k}), ...
                           "units", attribute_text (attributes, "units"), ...
                           "long_name", attribute_text (attributes, "long_name"), ...
                           "calendar", merge (isTime, strtok (calendar, "|"), ""), ...
                           "isDatenum", isTime && has_datenum (calendar) && bitand (file.flags, 64) > 0, ...
                           "positive", attribute_text (attributes, "positive"));
  endfor

endfunction
