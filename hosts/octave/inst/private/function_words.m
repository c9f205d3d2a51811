## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{words} =} function_words (@var{text})
## Undocumented internal function: the names in the text of a function that may be functions: not its parameters, keywords,
## or fields.
## @end deftypefn

function words = function_words (text)

  code = code_only (text);
  words = unique (regexp (code, '(?<![\w.])[A-Za-z_]\w*', "match"));
  parameters = regexp (code, '@\s*\(([^)]*)\)', "tokens");
  parameters = regexp (strjoin ([parameters{:}, {""}], ","), '[A-Za-z_]\w*', "match");
  words = setdiff (words, [parameters, iskeyword()']);
  words = reshape (words, 1, []);

endfunction
