% SPDX-License-Identifier: BSD-3-Clause
% [NCID, PATH] = new_file (MODE): a new file in the test's own folder, in define mode.
function [ncid, path] = new_file (mode = "clobber")
  path = [tempname(pwd ()) ".nc"];
  ncid = gridio ("create", path, mode);
end
