% SPDX-License-Identifier: BSD-3-Clause

% quotedText (TEXT): text as CDL writes it, in quotes and with escapes.
% quotedText (TEXT, LINEBREAK): with LINEBREAK in place of "\n".
function text = quotedText (text, lineBreak = "\\n")
  text = strrep (text, "\\", "\\\\");
  escapes = {"\b", "\\b"; "\f", "\\f"; "\r", "\\r"; "\t", "\\t"; "\v", "\\v"; "'", "\\'"; "\"", "\\\""};
  for escape = escapes'
    text = strrep (text, escape{1}, escape{2});
  endfor
  control = isControl (text) & text != "\n";
  if (any (control))
    pieces = num2cell (text);
    pieces(control) = arrayfun (@(c) sprintf ("\\%03o", c), text(control), "UniformOutput", false);
    text = [pieces{:}];
  endif
  text = ["\"" strrep(text, "\n", lineBreak) "\""];
endfunction
