## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{code} =} code_only (@var{text})
## Undocumented internal function: the text of a program with blanks in place of what is in strings and comments, so that
## names and brackets can be searched for.  The places of the rest stay.
## @end deftypefn

function code = code_only (text)

  code = text;
  ends = [find(text == "\n"), numel(text) + 1];
  depth = 0; # of brackets in which a blank separates elements
  inBlock = 0;
  at = 1;
  for stop = ends
    line = strtrim (text(at:stop-1));
    if (any (strcmp (line, {"%{", "#{"})))
      inBlock++;
    endif
    if (inBlock > 0)
      code(at:stop-1) = " ";
      inBlock -= any (strcmp (line, {"%}", "#}"}));
    else
      [code(at:stop-1), depth] = line_only (text(at:stop-1), depth);
    endif
    at = stop + 1;
  endfor

endfunction

function [line, depth] = line_only (line, depth)

  k = 1;
  while (k <= numel (line))
    c = line(k);
    last = k;
    if (any (c == "%#"))
      last = numel (line);
      line(k:last) = " ";
    elseif (c == "\"" || (c == "'" && ! is_transpose (line, k, depth)))
      last = end_of_string (line, k);
      line(k+1:last-1) = " ";
    elseif (any (c == "[{"))
      depth++;
    elseif (any (c == "]}"))
      depth--;
    endif
    k = last + 1;
  endwhile

endfunction

function yes = is_transpose (line, k, depth)

  yes = k > 1 && (isalnum (line(k-1)) || any (line(k-1) == "_)]}'.\""));
  if (! yes && depth == 0 && k > 1 && isspace (line(k-1)))
    before = strtrim (line(1:k-1));
    yes = ! isempty (before) && (isalnum (before(end)) || any (before(end) == "_)]}'"));
    yes = yes && isempty (regexp (before, '(^|\W)(case|if|while|until|switch|return)$', "once"));
  endif

endfunction

function last = end_of_string (line, k)

  quote = line(k);
  last = k + 1;
  while (last <= numel (line))
    if (quote == "\"" && line(last) == "\\")
      last++;
    elseif (line(last) == quote)
      if (last == numel (line) || line(last+1) != quote)
        return;
      endif
      last++;
    endif
    last++;
  endwhile
  last = numel (line);

endfunction
