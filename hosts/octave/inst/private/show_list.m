## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} show_list (@var{title}, @var{numbers}, @var{most}, @var{row_of}, @var{hint})
## Undocumented internal function: print the first of numbered things under a title, one in a line, in columns; nothing if
## there are none.
## @end deftypefn

function show_list (title, numbers, most, row_of, hint)

  count = numel (numbers);
  if (count == 0)
    return;
  endif
  table = cell (0);
  for k = numbers(1:min (most, count))
    row = row_of (k);
    table(end+1,1:numel (row)) = row;
  endfor
  table(cellfun (@isempty, table)) = {""};
  printf ("\n%s\n", title);
  puts (columns_of (table));
  if (count > most)
    printf ("  and %d more: %s\n", count - most, hint);
  endif

endfunction

## Columns are as wide as their longest text; the last one ends where the screen does.
function text = columns_of (table)

  width = screen_width ();
  lines = repmat ({""}, rows (table), 1);
  for k = 1:columns (table) - 1
    lines = strcat (lines, {"  "}, padded (table(:,k)));
  endfor
  left = max (32, width - characters (lines{1}) - 2);
  text = "";
  for k = 1:rows (table)
    line = deblank ([lines{k} "  " shortened(table{k,end}, left)]);
    text = [text line "\n"];
  endfor

endfunction

## The texts of a column, none wider than is good for the others.
function texts = padded (texts)

  texts = cellfun (@(text) shortened (text, 40), texts, "UniformOutput", false);
  widths = cellfun (@characters, texts);
  texts = cellfun (@(text, width) [text, repmat(" ", 1, max (widths) - width)], texts, num2cell (widths), ...
                   "UniformOutput", false);

endfunction

function count = characters (text)

  count = sum (bitand (double (text), 192) != 128);

endfunction
