% SPDX-License-Identifier: BSD-3-Clause

% dated (NCID, DIMID, AXIS): the axis that readAxis gave, with dates as its values if its coordinate
% variable is a time that dateNumbers understands.
function axis_ = dated (ncid, dimid, axis_)
  name = gridio ("inqDim", ncid, dimid);
  try
    varid = gridio ("inqVarID", ncid, name);
  catch
    return;  % the values are indices
  end_try_catch
  days = dateNumbers (ncid, varid, axis_.values);
  if (! isempty (days) && strncmp (axis_.label, [name " ("], numel (name) + 2))
    axis_ = struct ("label", name, "values", days, "dates", true);
  endif
endfunction
