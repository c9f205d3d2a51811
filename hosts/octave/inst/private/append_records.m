## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} append_records (@var{ncid}, @var{name}, @var{values}, @dots{})
## Undocumented internal function: append values to variables along the unlimited dimension that they share, its coordinate
## variable among them.  All checks come before the file is changed.
## @end deftypefn

function append_records (ncid, varargin)

  names = varargin(1:2:end);
  if (isempty (names) || mod (numel (varargin), 2) == 1 || ! iscellstr (names) || numel (unique (names)) < numel (names))
    fail ("badCall", "append takes pairs of a variable's name and its values: ds.append (\"time\", t, \"sst\", x)");
  endif
  variables = cellfun (@(name) variable_of (ncid, name), names, "UniformOutput", false);
  variables = [variables{:}];
  record = record_dimension (variables);
  [dimension, length] = gridio ("inqDim", ncid, record);
  require_coordinate (ncid, dimension, record, names);

  counts = zeros (size (names));
  for i = 1:numel (names)
    [stored{i}, counts(i)] = prepared (ncid, variables(i), varargin{2*i});
  endfor
  if (any (counts != counts(1)))
    fail ("shapeDoesNotFit", "append takes as many values of each variable along '%s', not %s", shown_text (dimension), ...
          strjoin (arrayfun (@(n) sprintf ("%d", n), counts, "UniformOutput", false), " and "));
  endif
  for i = 1:numel (names)
    try
      fixed = variables(i).lengths(1:end-1);
      write_block (ncid, variables(i).varid, [zeros(size (fixed)), length], [fixed, counts(i)], stored{i});
    catch failure
      raise (failure.identifier, sprintf ("the records from %d on are not whole, from '%s' on: %s", length + 1, ...
                                          shown_text (names{i}), failure.message));
    end_try_catch
  endfor

endfunction

function variable = variable_of (ncid, name)

  try
    varid = gridio ("inqVarID", ncid, name);
  catch
    all = arrayfun (@(id) gridio ("inqVar", ncid, id), gridio ("inqVarIDs", ncid), "UniformOutput", false);
    unknown_name ("unknownName", "variable", name, all(:));
  end_try_catch
  [~, xtype, dimids] = gridio ("inqVar", ncid, varid);
  [~, unlimited] = gridio_any ("inqDimIDs", ncid, true);
  lengths = zeros (1, numel (dimids));
  for d = 1:numel (dimids)
    [~, lengths(d)] = gridio ("inqDim", ncid, dimids(d));
  endfor
  variable = struct ("name", name, "varid", varid, "dimids", dimids, "lengths", lengths, ...
                     "isChar", xtype == gridio ("parameter", "NC_CHAR"), "unlimited", intersect (dimids, unlimited));

endfunction

## The unlimited dimension, the slowest varying one of each variable.
function record = record_dimension (variables)

  for variable = variables
    if (isempty (variable.unlimited) || ! any (variable.dimids(end) == variable.unlimited))
      fail ("notUnlimited", "'%s' has no unlimited dimension in the last place, to append along", shown_text (variable.name));
    elseif (variable.dimids(end) != variables(1).dimids(end))
      fail ("notUnlimited", "'%s' and '%s' have different unlimited dimensions; append to one after the other", ...
            shown_text (variables(1).name), shown_text (variable.name));
    endif
  endfor
  record = variables(1).dimids(end);

endfunction

function require_coordinate (ncid, dimension, record, names)

  try
    varid = gridio ("inqVarID", ncid, dimension);
  catch
    return; # no coordinate variable
  end_try_catch
  [~, ~, dimids] = gridio ("inqVar", ncid, varid);
  if (isequal (dimids, record) && ! any (strcmp (dimension, names)))
    fail ("coordinateIsMissing", "the new records need values of '%s' too, the coordinate of their dimension", ...
          shown_text (dimension));
  endif

endfunction

## The values as they are stored, and how many records they are.
function [stored, count] = prepared (ncid, variable, values)

  fixed = variable.lengths(1:end-1);
  if (variable.isChar && (iscellstr (values) || (ischar (values) && isrow (values))) && ! isempty (fixed))
    values = text_values (cellstr (values)(:), fixed(1));
  elseif (ischar (values) && ! variable.isChar)
    values = cellstr (values);
  endif
  encoding = stored_encoding (ncid, variable.varid);
  stored = encode_values (values, encoding);
  count = numel (stored) / prod (fixed);
  given = size (stored);
  expected = [fixed, count];
  isVector = isempty (fixed) && isvector (stored);
  if (! (isVector || isequal (given(given != 1), expected(expected != 1))) || count == 0)
    fail ("shapeDoesNotFit", "the values of '%s' are of size %s; each record has size %s", shown_text (variable.name), ...
          strjoin (arrayfun (@(n) sprintf ("%d", n), given, "UniformOutput", false), "x"), ...
          strjoin (arrayfun (@(n) sprintf ("%d", n), [fixed, ones(1, 2 - numel (fixed))], "UniformOutput", false), "x"));
  endif

endfunction
