## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{text} =} shortened (@var{text}, @var{most})
## Undocumented internal function: a text of at most so many characters, with dots where it was longer.
## @end deftypefn

function text = shortened (text, most)

  starts = find (bitand (double (text), 192) != 128); # of characters, which may take several bytes
  if (numel (starts) > most)
    text = [text(1:starts(most-2)-1) "..."];
  endif

endfunction
