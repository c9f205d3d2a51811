% SPDX-License-Identifier: BSD-3-Clause

% [NCID, VARID] = findVariable (NCID, PATH): the group and identifier of a variable such as "t" or
% "model/run/t".
function [ncid, varid] = findVariable (ncid, path)
  names = strsplit (path, "/");
  for group = names(1:end - 1)
    if (! isempty (group{1}))
      ncid = gridio ("inqNcid", ncid, group{1});
    endif
  endfor
  varid = gridio ("inqVarID", ncid, names{end});
endfunction
