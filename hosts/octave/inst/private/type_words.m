## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{words} =} type_words (@var{d}, @var{k})
## Undocumented internal function: the type of a variable as users meet it: with "packed" where values are scaled, and
## "text" for characters of texts.
## @end deftypefn

function words = type_words (d, k)

  words = visible_text (d.variables.type{k});
  attributes = d.variables.attributes{k};
  names = {""};
  if (! isempty (attributes))
    names = attributes(:,1);
  endif
  if (any (strcmp (names, "scale_factor")) || any (strcmp (names, "add_offset")))
    words = [words " packed"];
  endif

endfunction
