## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} show_dataset (@var{file}, @var{group})
## Undocumented internal function: print what a group of a file has: dimensions, coordinates with their ranges, variables,
## groups, attributes; of many the first.
## @end deftypefn

function show_dataset (file, group)

  d = file.d;
  where = "";
  if (group > 1)
    where = sprintf (", group /%s", d.groups.path{group});
  endif
  printf ("dataset %s (%s%s)\n", visible_text (file.path), format_words (file), visible_text (where));
  show_dimensions (d, group);
  mine = find (d.variables.group == group)(:)';
  isCoordinate = are_coordinates (d, mine);
  show_list ("Coordinates", mine(isCoordinate), 30, @(k) coordinate_row (file, k), "variables ()");
  show_list ("Variables", mine(! isCoordinate), 40, @(k) variable_row (file, k), "variables ()");
  [~, below] = groups_below (d, group);
  show_list ("Groups", below(:)', 30, @(k) group_row (d, group, k), "groups ()");
  attributes = d.groups.attributes{group};
  show_list ("Attributes", 1:rows (attributes), 20, @(k) attribute_row (attributes, k), "attributes");

endfunction

function words = format_words (file)

  words = [file.d.format many_words(file)];
  if (! strcmp (file.mode, "read"))
    words = [words ", open for writing"];
  endif

endfunction

function show_dimensions (d, group)

  mine = find (d.dimensions.group == group)(:)';
  if (isempty (mine))
    return;
  endif
  most = 24;
  words = arrayfun (@(k) dimension_words (d, k), mine(1:min (most, end)), "UniformOutput", false);
  if (numel (mine) > most)
    words{end+1} = sprintf ("and %d more: dimensions ()", numel (mine) - most);
  endif
  puts ("\nDimensions\n");
  puts (filled (words));

endfunction

function words = dimension_words (d, k)

  words = sprintf ("%s %d", visible_text (d.dimensions.name{k}), d.dimensions.length(k));
  if (d.dimensions.isUnlimited(k))
    words = [words " (unlimited)"];
  endif

endfunction

## Items in lines that are no wider than the screen.
function text = filled (words)

  width = screen_width () - 2;
  text = " ";
  used = 1;
  for k = 1:numel (words)
    word = [" " words{k} merge(k < numel (words), ",", "")];
    if (used + columns (word) > width && used > 1)
      text = [text "\n "];
      used = 1;
    endif
    text = [text word];
    used += columns (word);
  endfor
  text = [text "\n"];

endfunction

## Coordinates are what a dimension is named after, what the attribute coordinates of another variable names, and what says
## that it is a longitude, latitude or time.
function yes = are_coordinates (d, numbers)

  listed = ostrsplit (strjoin (unique (d.variables.coordinates(:)'), " "), " \t\r\n", true);
  listed = regexprep (listed, '^.*/', "");
  yes = ismember (d.variables.name(numbers), listed)(:)';
  isOwn = ismember (d.variables.name(numbers), d.dimensions.name)(:)';
  for k = find (! yes & (isOwn | d.variables.mayBeAxis(numbers)(:)'))
    [role, stage] = axis_role (d.variables.attributes{numbers(k)}, d.variables.name{numbers(k)});
    yes(k) = is_of_own_dimension (d, numbers(k)) || (stage < 3 && ! strcmp (role, "level"));
  endfor

endfunction

function row = coordinate_row (file, k)

  row = {member_words(file.d.variables.name{k}), shape_words(file, k), range_words(file, k)};

endfunction

function row = variable_row (file, k)

  d = file.d;
  attributes = d.variables.attributes{k};
  units = attribute_text (attributes, "units");
  what = title_of (attributes);
  if (! isempty (units))
    what = sprintf ("[%s] %s", units, what);
  endif
  row = {member_words(d.variables.name{k}), shape_words(file, k), type_words(d, k), strtrim(visible_text (what))};

endfunction

## A name as it stands behind the dataset: in parentheses where a method is in the way, or the name is no identifier.
function words = member_words (name)

  words = visible_text (name);
  if (! isempty (method_of ("dataset", name)) || ! isvarname (name))
    words = sprintf ("(\"%s\")", words);
  endif

endfunction

function row = group_row (d, group, k)

  skipped = numel (d.groups.path{group}) + (group > 1);
  count = sum (d.variables.group == k);
  row = {visible_text(d.groups.path{k}(skipped+1:end)), sprintf("%d %s", count, merge (count == 1, "variable", "variables"))};

endfunction
