% SPDX-License-Identifier: BSD-3-Clause

% titleText (NCID, VARID): the long name of a variable, or its name, with its units.
function text = titleText (ncid, varid)
  text = textAttribute (ncid, varid, "long_name");
  if (isempty (text))
    text = gridio ("inqVar", ncid, varid);
  endif
  text = [text unitsText(ncid, varid)];
endfunction
