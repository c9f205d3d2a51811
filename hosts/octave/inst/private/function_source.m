## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{source} =} function_source (@var{name}, @var{files})
## Undocumented internal function: the definition of a function that was defined in a script or at the prompt, as a text
## that defines it again.  It is cut out of the scripts @var{files} if it is in one, and else as the interpreter prints it,
## which is not always the same program; so what the text defines is compared, and an error raised if it differs.
## @end deftypefn

function source = function_source (name, files)

  printed = printed_function (name);
  for k = 1:numel (files)
    source = definition_in (fileread (files{k}), name);
    if (! isempty (source) && is_same (source, name, printed))
      return;
    endif
  endfor
  source = printed;
  if (! is_same (source, name, printed))
    fail ("cannotTravel", ["the text of the function '%s' is not known well enough to define it in another process; " ...
                           "put it into a file of its own"], name);
  endif

endfunction

function printed = printed_function (name)

  printed = evalc (["type -q " name]);

endfunction

## Defines the function under another name, to see whether the interpreter then prints the same.
function yes = is_same (source, name, printed)

  other = "__gridio_travelling__";
  pattern = ['(?<![\w.])' name '(?!\w)'];
  try
    eval (regexprep (source, pattern, other));
    yes = strcmp (printed_function (other), regexprep (printed, pattern, other));
    clear ("-f", other);
  catch
    yes = false;
  end_try_catch

endfunction

## From its "function" to the "end" that closes it; empty where none does.
function source = definition_in (text, name)

  source = "";
  code = code_only (text);
  start = regexp (code, ['(?<=^|\n)[ \t]*function\s+([^=\n]*=\s*)?' name '\s*(?![\w.])'], "start", "once");
  if (isempty (start))
    return;
  endif
  rest = code(start:end);
  [words, at] = regexp (rest, ['(?<![\w.@])(function|if|for|parfor|while|do|switch|try|unwind_protect|' ...
                               'until|end\w*)(?!\w)'], "match", "start");
  bracket = cumsum (any (rest == "([{"', 1)) - cumsum (any (rest == ")]}"', 1));
  depth = 0;
  for k = 1:numel (words)
    if (bracket(at(k)) > 0)
      continue; # the last index of an array
    endif
    if (strcmp (words{k}, "until") || strncmp (words{k}, "end", 3))
      depth -= iskeyword (words{k});
    else
      depth++;
    endif
    if (depth == 0)
      source = [text(start:start + at(k) + numel (words{k}) - 2), "\n"];
      return;
    endif
  endfor

endfunction
