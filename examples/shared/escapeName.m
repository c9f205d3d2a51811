% SPDX-License-Identifier: BSD-3-Clause

% escapeName (NAME): a name as CDL writes it: special characters behind a backslash, control
% characters as numbers.
function text = escapeName (name)
  if (all ((isalnum (name) | name == "_") & name < 128) && ! isdigit ([name "x"](1)))
    text = name;
    return;
  endif
  text = "";
  control = isControl (name);
  for k = 1:numel (name)
    c = name(k);
    if (control(k))
      text = [text sprintf("\\%%%02x", c)];
    elseif (any (c == " !\"#$&'()*,:;<=>?[\\]^`{|}~"))
      text = [text "\\" c];
    else
      text = [text c];
    endif
  endfor
  if (! isempty (name) && isdigit (name(1)))
    text = ["\\" text];
  endif
endfunction
