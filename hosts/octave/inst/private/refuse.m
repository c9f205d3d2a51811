## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} refuse (@var{what})
## Undocumented internal function: raise the error that objects cannot be @qcode{"saved"} or @qcode{"joined"}.
## @end deftypefn

function refuse (what)

  if (strcmp (what, "saved"))
    fail ("notSavable", "datasets and variables of files cannot be saved; save the values that are read from them");
  else
    fail ("notJoinable", ["datasets and variables of files cannot be concatenated; put them into a cell array, or concatenate " ...
                          "values: [v(:), w(:)]"]);
  endif

endfunction
