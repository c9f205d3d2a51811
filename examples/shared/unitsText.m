% SPDX-License-Identifier: BSD-3-Clause

% unitsText (NCID, VARID): " (UNITS)", or nothing if the variable has none.
function text = unitsText (ncid, varid)
  text = textAttribute (ncid, varid, "units");
  if (! isempty (text))
    text = sprintf (" (%s)", text);
  endif
endfunction
