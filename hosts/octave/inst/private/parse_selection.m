## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{requests} =} parse_selection (@var{given})
## Undocumented internal function: selections as they were given, as a column of structs: the name of a dimension or
## coordinate, what was asked of it, whether that is positions, and how far the nearest point may be.
## @end deftypefn

function requests = parse_selection (given)

  requests = struct ("name", {}, "value", {}, "isIndex", {}, "within", {});
  k = 1;
  while (k <= numel (given))
    isIndex = is_word (given{k}, "index");
    k += isIndex;
    if (k < numel (given) && is_word (given{k}, "within") && ! isempty (requests) && ! isIndex)
      requests(end).within = checked_within (given{k+1});
    elseif (k < numel (given) && ischar (given{k}))
      requests(end+1,1) = struct ("name", given{k}, "value", {given(k+1)}, "isIndex", isIndex, "within", []);
      requests(end).value = given{k+1};
    elseif (k <= numel (given) && ischar (given{k}))
      fail ("badSelection", "no selection is given for '%s'", shown_text (given{k}));
    else
      fail ("badSelection", "%s", ["selections are pairs of a name and what to select of it: " ...
                                   "at (\"time\", \"2013-05\", \"lat\", [40 60])"]);
    endif
    k += 2;
  endwhile

endfunction

function yes = is_word (value, word)

  yes = ischar (value) && strcmp (value, word);

endfunction

function within = checked_within (within)

  if (! (isnumeric (within) && isreal (within) && isscalar (within) && within >= 0))
    fail ("badSelection", "\"within\" takes a number that is not negative, not %s", shown_text (within));
  endif
  within = double (within);

endfunction
