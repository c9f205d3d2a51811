% SPDX-License-Identifier: BSD-3-Clause

% isControl (TEXT): which bytes a terminal may take for commands: the control characters of ASCII
% and the C1 codes (128 to 159), as UTF-8 or as bytes on their own.
function yes = isControl (text)
  bytes = double (text);
  yes = bytes < 32 | bytes == 127;
  next = 1;
  for k = find (bytes > 127)
    if (k < next)
      continue;  % inside a character that has been looked at
    endif
    count = characterLength (bytes(k:min (k + 3, end)));
    if (count == 0)
      yes(k) = bytes(k) < 160;
    elseif (bytes(k) == 194)
      yes(k:k + 1) = bytes(k + 1) < 160;
    endif
    next = k + max (count, 1);
  endfor
endfunction

% The number of bytes of the UTF-8 character that the bytes begin with; 0 if they begin with none.
function count = characterLength (bytes)
  lead = bytes(1);
  count = 2 + (lead > 223) + (lead > 239);
  if (lead < 194 || lead > 244 || count > numel (bytes) || any (fix (bytes(2:count) / 64) != 2))
    count = 0;
    return;
  endif
  % Longer forms of shorter characters, surrogates, and what is beyond the last character.
  value = [lead - [192 224 240](count - 1), bytes(2:count) - 128] * 64 .^ (count - 1:-1:0)';
  if (value < [128 2048 65536](count - 1) || (value > 55295 && value < 57344) || value > 1114111)
    count = 0;
  endif
endfunction
