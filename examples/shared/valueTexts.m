% SPDX-License-Identifier: BSD-3-Clause

% valueTexts (TYPE, VALUES, COUNT): values of a type, as gridio_any reads them, in CDL: a cell array of
% one text each. TYPE is what typeTree gives; the texts are those that stand within the braces of vlens
% and compound types.
function texts = valueTexts (type, values, count)
  texts = cell (1, count);
  switch (type.class)
    case "string"
      if (count == 1)
        values = {values};
      endif
      for k = 1:count
        texts{k} = "NIL";  % no string at all, which reads as 0-by-0
        if (rows (values{k}) > 0)
          texts{k} = quotedText (values{k});
        endif
      endfor
    case "char"
      for k = 1:count
        texts{k} = quotedText (values(k))(2:end - 1);
      endfor
    case "enum"
      texts = memberNames (type, values);
    case "opaque"
      values = reshape (values, type.bytes, count);
      for k = 1:count
        texts{k} = ["0X" sprintf("%.2X", values(:, k))];
      endfor
    case "vlen"
      for k = 1:count
        elements = valueTexts (type.base, values{k}, elementCount (type.base, values{k}));
        texts{k} = ["{" strjoin(elements, ", ") "}"];
      endfor
    case "compound"
      all = cell (numel (type.fields), count);
      for k = 1:numel (type.fields)
        all(k, :) = fieldTexts (type.fields(k), values.(type.fields(k).name), count);
      endfor
      for k = 1:count
        texts{k} = ["{" strjoin(all(:, k)', ", ") "}"];
      endfor
    otherwise
      for k = 1:count
        texts{k} = numberText (values(k));
      endfor
  endswitch
endfunction

% The texts of a field; those of an array stand in braces of their own.
function texts = fieldTexts (field, values, count)
  inner = prod (field.lengths);
  perElement = inner;
  if (strcmp (field.type.class, "char"))
    width = [field.lengths, 1](1);
    perElement = inner / width;
    rows = reshape (values, width, []);
    texts = arrayfun (@(k) charsText (rows(:, k)'), 1:columns (rows), "UniformOutput", false);
  else
    texts = valueTexts (field.type, values, inner * count);
  endif
  if (! isempty (field.lengths))
    texts = reshape (texts, perElement, count);
    texts = arrayfun (@(k) ["{" strjoin(texts(:, k)', ", ") "}"], 1:count, "UniformOutput", false);
  endif
endfunction

% A row of characters without the NULs at its end. Bytes beyond ASCII are escaped too.
function text = charsText (row)
  text = quotedText (row(1:max ([0, find(row != 0)])));
  high = text > 127;
  if (any (high))
    pieces = num2cell (text);
    pieces(high) = arrayfun (@(c) sprintf ("\\%03o", c), text(high), "UniformOutput", false);
    text = [pieces{:}];
  endif
endfunction

function names = memberNames (type, values)
  names = cell (1, numel (values));
  for k = 1:numel (values)
    at = find ([type.members.value] == values(k), 1);
    if (! isempty (at))
      names{k} = type.members(at).name;
    elseif (values(k) == 0)
      names{k} = "_UNDEFINED";  % the library's name for it
    else
      names{k} = numberText (values(k));
    endif
  endfor
endfunction

% How many values an element of a vlen variable holds.
function count = elementCount (type, values)
  switch (type.class)
    case "string"
      count = merge (ischar (values), 1, numel (values));
    case "opaque"
      count = numel (values) / type.bytes;
    case "compound"
      field = type.fields(1);
      count = elementCount (field.type, values.(field.name)) / prod (field.lengths);
    otherwise
      count = numel (values);
  endswitch
endfunction
