## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{value} =} unpack_value (@var{bytes})
## Undocumented internal function: what @code{pack_value} made bytes of.
## @end deftypefn

function value = unpack_value (bytes)

  value = value_at (bytes, 1);

endfunction

function [value, at] = value_at (bytes, at)

  [kind, lengths, at] = header_at (bytes, at);
  switch (kind)
    case "sparse"
      [parts, at] = value_at (bytes, at);
      value = sparse (parts.rows, parts.columns, parts.entries, parts.size(1), parts.size(2));
    case "cell"
      [value, at] = values_at (bytes, at, lengths);
    case "struct"
      [names, at] = value_at (bytes, at);
      fields = [names(:)'; cell(1, numel (names))];
      for k = 1:numel (names)
        [fields{2, k}, at] = values_at (bytes, at, lengths);
      endfor
      value = struct (fields{:});
      if (isempty (names))
        value = repmat (struct (), lengths);
      endif
    case "function"
      [carried, at] = value_at (bytes, at);
      value = carried_function (carried);
    otherwise
      [value, at] = array_at (bytes, at, strrep (kind, "*", ""), lengths);
      if (kind(end) == "*")
        [imaginary, at] = array_at (bytes, at, kind(1:end-1), lengths);
        value = complex (value, imaginary);
      endif
  endswitch

endfunction

function [kind, lengths, at] = header_at (bytes, at)

  last = at + find (bytes(at:min (end, at + 400)) == 10, 1) - 1;
  words = strsplit (char (bytes(at:last-1)), " ");
  kind = words{1};
  lengths = str2double (words(2:end));
  at = last + 1;

endfunction

function [values, at] = values_at (bytes, at, lengths)

  values = cell (lengths);
  for k = 1:prod (lengths)
    [values{k}, at] = value_at (bytes, at);
  endfor

endfunction

function [value, at] = array_at (bytes, at, kind, lengths)

  width = numel (typecast (cast (0, strrep (strrep (kind, "char", "uint8"), "logical", "uint8")), "uint8"));
  count = width * prod (lengths);
  value = bytes(at:at+count-1);
  at += count;
  if (strcmp (kind, "char"))
    value = char (value);
  elseif (strcmp (kind, "logical"))
    value = logical (value);
  else
    value = typecast (value, kind);
  endif
  value = reshape (value, lengths);

endfunction
