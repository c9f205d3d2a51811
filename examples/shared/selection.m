% SPDX-License-Identifier: BSD-3-Clause

% selection (WORDS): what "at" takes, from words of a command line: NAME VALUE pairs, where a value is a
% number, the two ends of a range with a comma between, or, of times, a date such as 2013-05 or two of them.
function list = selection (words)
  if (mod (numel (words), 2) == 1)
    error ("selections are pairs of a NAME and a VALUE; %s has none", words{end});
  endif
  list = words;
  for i = 2:2:numel (words)
    parts = strsplit (words{i}, ",");
    numbers = str2double (parts);
    if (! strcmp (words{i - 1}, "time") && ! any (isnan (numbers)))
      list{i} = numbers;
    elseif (numel (parts) > 1)
      list{i} = parts;
    endif
  endfor
endfunction
