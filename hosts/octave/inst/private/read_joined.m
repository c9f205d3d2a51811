## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{x} =} read_joined (@var{file}, @var{number}, @var{place}, @var{lengths}, @var{lists}, @var{is_opaque})
## Undocumented internal function: the values of a variable whose files are joined along one of its dimensions, at lists of
## positions from 1.
## @end deftypefn

function x = read_joined (file, number, place, lengths, lists, isOpaque)

  many = file.many;
  list = lists{place};
  if (ischar (list))
    list = 1:lengths(place);
  endif
  if (number == many.coordinate)
    x = coordinate_values (file, number, list);
    return;
  elseif (isempty (list))
    lists{place} = 1;
    x = one_part (file, number, place, many.first, 1, lengths, lists, isOpaque);
    none = repmat ({":"}, 1, max (2, isOpaque + numel (lengths)));
    none{place+isOpaque} = [];
    x = x(none{:});
    return;
  endif
  [parts, order] = sort (lookup (many.offsets, list - 1));
  list = list(order);
  begins = find ([true, diff(parts) > 0]);
  ends = [begins(2:end) - 1, numel(parts)];
  pieces = cell (1, numel (begins));
  for n = 1:numel (begins)
    part = parts(begins(n));
    positions = list(begins(n):ends(n)) - many.offsets(part);
    pieces{n} = one_part (file, number, place, part, positions, lengths, lists, isOpaque);
  endfor
  x = cat (place + isOpaque, of_one_class (pieces){:});
  if (! issorted (order))
    back = repmat ({":"}, 1, max (2, isOpaque + numel (lengths)));
    back{place+isOpaque}(order) = 1:numel (order);
    x = x(back{:});
  endif

endfunction

## Those of the joining coordinate are known.
function x = coordinate_values (file, number, list)

  x = file.many.values(list(:));
  if (iscell (x))
    return;
  endif
  types = number_types ();
  type = types(strcmp (file.d.variables.type{number}, {types.name})).class;
  isPacked = bitand (file.flags, 16) && any (ismember ({"scale_factor", "add_offset"}, ...
                                                       file.d.variables.attributes{number}(:,1)));
  if (! isPacked && ! strcmp (type, "double") && isequal (double (cast (x, type)), x))
    x = cast (x, type);
  endif

endfunction

function x = one_part (file, number, place, part, positions, lengths, lists, isOpaque)

  many = file.many;
  lengths(place) = many.lengths(part);
  lists{place} = positions;
  if (many.isNew)
    lengths(place) = [];
    lists(place) = [];
  endif
  path = many.paths{part};
  source = {"readPart", many.owner, path, file.d.variables.path{number}, lengths};
  try
    x = fetch (source, lengths, lists, bitand (file.flags, 63), isOpaque);
    [units, calendar] = part_scale (file, number, part);
    if (! isempty (units))
      [toUnits, toCalendar] = joined_scale (file, number);
      x = gridio_native ("timesToTimes", double (x), units, calendar, toUnits, toCalendar, file.months);
    endif
  catch failure
    isOurs = strncmp (failure.identifier, "Ovard:gridio:", 13);
    isNumber = any (strcmp (file.d.variables.kind{number}, {"number", "enum"}));
    if (! isOurs)
      rethrow (failure);
    elseif (! (many.isSkipping && isNumber))
      fail ("badFile", "\"%s\" cannot be read: %s", shown_text (path), failure.message);
    endif
    warning (error_identifier ("badFile"), "\"%s\" cannot be read, so that its values are missing: %s", ...
             shown_text (path), failure.message);
    x = NaN ([block_size(lists, lengths), 1, 1]);
  end_try_catch
  if (many.isNew && numel (positions) > 1)
    x = repmat (x, [ones(1, place - 1), numel(positions)]);
  endif

endfunction

## Parts whose integers are of several classes, or in part unpacked, are doubles.
function pieces = of_one_class (pieces)

  classes = unique (cellfun (@class, pieces, "UniformOutput", false));
  if (numel (classes) > 1 && all (cellfun (@isnumeric, pieces)))
    pieces = cellfun (@double, pieces, "UniformOutput", false);
  endif

endfunction
