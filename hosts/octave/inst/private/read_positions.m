## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{x} =} read_positions (@var{file}, @var{number}, @var{subs})
## Undocumented internal function: the values at positions that are given as for an array: numbers from 1, logical masks, or
## ":"; fewer than there are dimensions, where the last counts through all that are left.
## @end deftypefn

function x = read_positions (file, number, subs)

  shape = variable_shape (file, number);
  lengths = shape.lengths;
  count = numel (subs);
  dims = numel (lengths);
  if (count == 0)
    subs(1:dims) = {":"};
    count = dims;
  endif
  extents = [lengths, ones(1, max (0, count - dims))];
  extents = [extents(1:min (count, 1) * (count - 1)), prod(extents(max (count, 1):end))](1:count);
  lists = cell (1, count);
  for k = 1:count
    lists{k} = checked_positions (file, number, subs{k}, extents(k), k);
  endfor
  if (count >= dims)
    x = read_block (file, number, lists(1:dims), shape);
    if (count > dims)
      x = repeated (x, lists(dims+1:end), dims);
    endif
    if (dims <= 1 && count == 1 && isnumeric (subs{1}) && ! isvector (subs{1}))
      x = reshape (x, size (subs{1}));
    endif
  elseif (strcmp (file.d.variables.kind{number}, "opaque"))
    fail ("badIndex", "opaque values are bytes along a dimension of their own: '%s' takes %d indexes", ...
          visible_text (file.d.variables.path{number}), dims);
  else
    x = read_counted_through (file, number, lengths, lists, subs);
  endif

endfunction

## Beyond its dimensions a variable has length 1, and as everywhere that may be taken any number of times.
function x = repeated (x, lists, dims)

  isOne = cellfun (@(list) ischar (list) || isequal (list, 1), lists);
  if (! all (isOne))
    x = x(repmat ({":"}, 1, max (dims, 1)){:}, lists{max (1, 2 - dims):end});
  endif

endfunction

function x = read_counted_through (file, number, lengths, lists, subs)

  count = numel (lists);
  last = lists{count};
  before = lists(1:count-1);
  folded = lengths(count:end);
  if (ischar (last))
    x = read_block (file, number, [before, repmat({":"}, 1, numel (folded))]);
    x = reshape (x, [block_size(before, lengths(1:count-1)), prod(folded), 1]);
    return;
  endif
  [box, within] = box_around (folded, last);
  x = read_block (file, number, [before, box]);
  x = reshape (x, [block_size(before, lengths(1:count-1)), prod(cellfun (@numel, box)), 1]);
  x = x(repmat ({":"}, 1, count - 1){:}, within);
  if (count == 1)
    x = reshape (x, size (positions_in (subs{1})));
  endif

endfunction

function positions = positions_in (index)

  positions = index;
  if (islogical (index))
    positions = find (index);
  endif

endfunction

## The smallest box of positions in these dimensions that has all those that count through them, and their places in it.
function [box, within] = box_around (lengths, positions)

  at = cell (1, numel (lengths));
  [at{:}] = ind2sub ([lengths, 1], positions(:)');
  box = cellfun (@(p) min (p):max (p), at, "UniformOutput", false);
  within = ones (1, numel (positions));
  step = 1;
  for k = 1:numel (lengths)
    within += (at{k} - min ([at{k}, Inf])) * step;
    step *= numel (box{k});
  endfor

endfunction
