## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{line} =} shell_words (@var{words})
## Undocumented internal function: words as the shell reads them, whatever is in them.
## @end deftypefn

function line = shell_words (words)

  words = cellfun (@(word) ["'" strrep(word, "'", "'\\''") "'"], words, "UniformOutput", false);
  line = strjoin (words, " ");

endfunction
