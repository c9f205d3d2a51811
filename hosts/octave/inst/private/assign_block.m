## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} assign_block (@var{ncid}, @var{varid}, @var{index}, @var{values}, @var{isEncoded})
## Undocumented internal function: write decoded values, or stored ones, at positions counted from 1, a cell for each
## dimension.  One value goes to all positions.  Positions past the end of an unlimited dimension are appended.
## @end deftypefn

function assign_block (ncid, varid, index, values, isEncoded = true)

  [name, xtype, dimids] = gridio ("inqVar", ncid, varid);
  [values, isText] = as_texts (values, gridio_any ("inqType", ncid, xtype), numel (index) - numel (dimids));
  [lengths, isUnlimited] = shape_of (ncid, dimids);
  width = lengths(1:isText);
  index = positions (name, ncid, dimids(1+isText:end), index, lengths(1+isText:end), isUnlimited(1+isText:end));
  counts = cellfun (@numel, index);
  if (isText)
    values = text_values (values, width);
  elseif (isEncoded)
    values = encode_values (values, stored_encoding (ncid, varid));
  endif
  values = spread (name, values, counts, width);

  pieces = [repmat({[0; width; 1]}, 1, isText), cellfun(@runs, index, "UniformOutput", false)];
  try
    write_pieces (ncid, varid, pieces, values, [width, counts]);
  catch failure
    raise (failure.identifier, sprintf ("'%s' may be written in part: %s", shown_text (name), failure.message));
  end_try_catch

endfunction

## Whether values are texts for characters, which take the first dimension whole; a text may come without a cell.
function [values, isText] = as_texts (values, type, extra)

  if (ischar (values) && rows (values) <= 1 && (strcmp (type, "string") || (strcmp (type, "char") && extra == -1)))
    values = {values};
  endif
  isText = double (iscellstr (values) && strcmp (type, "char") && extra == -1);

endfunction

function [lengths, isUnlimited] = shape_of (ncid, dimids)

  [~, unlimited] = gridio_any ("inqDimIDs", ncid, true);
  lengths = zeros (1, numel (dimids));
  for d = 1:numel (dimids)
    [~, lengths(d)] = gridio ("inqDim", ncid, dimids(d));
  endfor
  isUnlimited = ismember (dimids, unlimited);

endfunction

## The positions along each dimension, from 0.
function index = positions (name, ncid, dimids, index, lengths, isUnlimited)

  if (numel (index) == 1 && numel (lengths) != 1 && ischar (index{1}) && strcmp (index{1}, ":"))
    index = repmat ({":"}, size (lengths));
  endif
  extra = index(numel (lengths)+1:end);
  if (numel (index) < numel (lengths) || ! all (cellfun (@(i) isequal (i, 1) || isequal (i, ":"), extra)))
    fail ("badIndex", "'%s' has %d dimensions, but %d positions are given", shown_text (name), numel (lengths), numel (index));
  endif
  index = index(1:numel (lengths));
  for d = 1:numel (lengths)
    list = index{d};
    if (ischar (list) && strcmp (list, ":"))
      list = 1:lengths(d);
    elseif (islogical (list))
      list = find (list);
    endif
    list = double (list(:)');
    if (! isnumeric (index{d}) && ! islogical (index{d}) && ! ischar (index{d}) || any (list < 1 | list != fix (list)))
      fail ("badIndex", "position %d of '%s' must be a whole number from 1, or \":\"", d, shown_text (name));
    elseif (! isUnlimited(d) && any (list > lengths(d)))
      fail ("badIndex", "'%s' has %d values along '%s', and position %d is past their end", shown_text (name), lengths(d), ...
            shown_text (gridio ("inqDim", ncid, dimids(d))), max (list));
    endif
    index{d} = list - 1;
  endfor

endfunction

## The values in the shape of the positions.
function values = spread (name, values, counts, width)

  shape = [width, counts, 1, 1];
  if (numel (values) == prod (width) && prod (counts) != 1)
    values = repmat (reshape (values, [width, 1, 1]), [ones(1, numel (width)), counts, 1]);
  endif
  given = size (values);
  if (numel (values) != prod (shape) || ! isequal (given(given != 1), shape(shape != 1)))
    fail ("shapeDoesNotFit", "the values of size %s do not fit the positions of size %s in '%s'", ...
          strjoin (arrayfun (@(n) sprintf ("%d", n), given, "UniformOutput", false), "x"), ...
          strjoin (arrayfun (@(n) sprintf ("%d", n), [counts, ones(1, 2 - numel (counts))], "UniformOutput", false), "x"), ...
          shown_text (name));
  endif
  values = reshape (values, shape);

endfunction

## Columns of start, count and stride that cover positions in their order.
function pieces = runs (list)

  pieces = zeros (3, 0);
  while (! isempty (list))
    step = 1;
    count = 1;
    if (numel (list) > 1 && list(2) > list(1))
      step = list(2) - list(1);
      count = [find(diff (list) != step, 1), numel(list)](1);
    endif
    pieces(:,end+1) = [list(1); count; step];
    list = list(count+1:end);
  endwhile

endfunction

function write_pieces (ncid, varid, pieces, values, counts)

  numbers = cellfun (@columns, pieces);
  for i = 1:prod (numbers)
    [at{1:numel (pieces)}] = ind2sub ([numbers, 1], i);
    piece = cellfun (@(all, k) all(:,k), pieces, at, "UniformOutput", false);
    within = cellfun (@(all, k) sum (all(2,1:k-1)) + (1:all(2,k)), pieces, at, "UniformOutput", false);
    piece = [piece{:}, zeros(3, 0)];
    write_block (ncid, varid, piece(1,:), piece(2,:), piece(3,:), values(within{:}));
  endfor

endfunction
