## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{words} =} many_words (@var{file})
## Undocumented internal function: what a dataset of many files is in the first line of its printout: how many files, from
## when to when, and what is missing or there twice.
## @end deftypefn

function words = many_words (file)

  words = "";
  many = file.many;
  if (isempty (many))
    return;
  endif
  count = numel (many.paths);
  words = sprintf (", %s %s", grouped (count), merge (count == 1, "file", "files"));
  if (many.coordinate > 0 && ! many.isNew && ! isempty (many.values))
    words = [words ", " strrep(range_words (file, many.coordinate), " ... ", " to ")];
  endif
  if (! isempty (many.missing))
    words = [words ", " many.missing];
  endif
  if (! isempty (many.overlaps))
    words = sprintf ("%s, %s overlap", words, grouped (rows (many.overlaps)));
  endif
  bad = sum (! cellfun (@isempty, many.refused));
  if (bad > 0)
    words = sprintf ("%s, %s not one in all files", words, merge (bad == 1, "a variable is", sprintf ("%d variables are", bad)));
  endif

endfunction
