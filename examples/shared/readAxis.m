% SPDX-License-Identifier: BSD-3-Clause

% [AXIS, VALUES] = readAxis (NCID, DIMID, START, COUNT, STRIDE, VALUES): what lies along a dimension,
% a struct with label and values: those of its coordinate variable, else the indices. They ascend;
% the rows of VALUES are reversed with them where they did not.
function [axis_, values] = readAxis (ncid, dimid, start, count, stride, values)
  name = gridio ("inqDim", ncid, dimid);
  axis_ = struct ("label", name, "values", start + stride * (0:count - 1));
  [group, varid] = findCoordinate (ncid, dimid, name);
  if (isempty (varid))
    return;
  endif
  coordinates = readValues (group, varid, start, count, stride).';
  steps = sign (diff (coordinates));
  if (any (isnan (coordinates)) || any (steps == 0) || any (steps != steps(1:min (1, end))))
    return;
  endif
  axis_ = struct ("label", [name unitsText(group, varid)], "values", coordinates);
  if (any (steps < 0))
    axis_.values = fliplr (coordinates);
    values = flipud (values);
  endif
endfunction

% The variable of a dimension's name over just that dimension, in this group or one above.
function [ncid, varid] = findCoordinate (ncid, dimid, name)
  varid = [];
  while (true)
    for id = gridio ("inqVarIDs", ncid)
      [variable, xtype, dimids] = gridio ("inqVar", ncid, id);
      if (strcmp (variable, name) && isequal (dimids, dimid) && xtype != gridio ("parameter", "NC_CHAR"))
        varid = id;
        return;
      endif
    endfor
    try
      ncid = gridio ("inqGrpParent", ncid);
    catch
      return;  % this was the root group, or a format without groups
    end_try_catch
  endwhile
endfunction
