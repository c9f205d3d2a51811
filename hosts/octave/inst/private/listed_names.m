## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{list} =} listed_names (@var{names})
## Undocumented internal function: names as one text, of many the first.
## @end deftypefn

function list = listed_names (names)

  most = 40;
  count = numel (names);
  names = cellfun (@visible_text, names(1:min (count, most))(:)', "UniformOutput", false);
  list = strjoin (names, ", ");
  if (count > most)
    list = sprintf ("%s and %d more", list, count - most);
  endif

endfunction
