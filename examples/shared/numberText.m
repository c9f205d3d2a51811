% SPDX-License-Identifier: BSD-3-Clause

% numberText (VALUE): a number as CDL writes it among the values of vlens and compound types.
% numberText (VALUE, SUFFIX): as CDL writes it in an attribute, where the type's suffix follows, such
% as "s" of "3s", and numbers with a fraction have their point.
function text = numberText (value, suffix)
  if (isa (value, "uint64"))
    text = strtrim (disp (value));  % exact; printf goes through double
  elseif (isinteger (value))
    text = sprintf ("%d", value);
  elseif (isnan (value))
    text = "NaN";
  elseif (isinf (value))
    text = {"Infinity", "-Infinity"}{1 + (value < 0)};
  elseif (nargin > 1)
    text = regexprep (sprintf ("%#.*g", digits (value), value), '\.(\d*?)0+(?=e|$)', '.$1');
  else
    text = sprintf ("%.*g", digits (value), value);
  endif
  if (nargin > 1)
    text = [text suffix];
  elseif (isa (value, "single") && ! isfinite (value))
    text = [text "f"];
  endif
endfunction

function count = digits (value)
  count = merge (isa (value, "single"), 7, 15);
endfunction
