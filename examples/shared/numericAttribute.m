% SPDX-License-Identifier: BSD-3-Clause

% numericAttribute (NCID, VARID, NAME, TYPE): a row of the class that getAtt<TYPE> returns; empty if
% there is no such attribute.
function values = numericAttribute (ncid, varid, name, operation)
  try
    values = gridio (["getAtt" operation], ncid, varid, name);
  catch
    values = [];
  end_try_catch
endfunction
