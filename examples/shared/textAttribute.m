% SPDX-License-Identifier: BSD-3-Clause

% textAttribute (NCID, VARID, NAME): empty if there is no such attribute, or one of another kind.
function text = textAttribute (ncid, varid, name)
  try
    text = gridio ("getAttText", ncid, varid, name);
  catch
    text = "";
  end_try_catch
endfunction
