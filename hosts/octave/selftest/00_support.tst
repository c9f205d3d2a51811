## SPDX-License-Identifier: BSD-3-Clause
## What the tests of the installed package share; the files of this folder are joined in the order of their names.

%!function value = nc (name)
%!  value = gridio ("parameter", ["NC_" name]);
%!endfunction

%!## An empty file in define mode.
%!function [ncid, path] = new_file (mode = "netcdf4")
%!  path = [tempname() ".nc"];
%!  ncid = gridio ("create", path, mode);
%!endfunction

%!function finish (ncid, path)
%!  gridio ("close", ncid);
%!  delete (path);
%!endfunction

%!## A file with one variable "v", its dimensions "d1", "d2", ... from the fastest; in data mode.
%!function [ncid, varid, path] = new_variable (xtype, lengths, mode = "netcdf4")
%!  [ncid, path] = new_file (mode);
%!  dimids = zeros (1, numel (lengths));
%!  for i = 1:numel (lengths)
%!    dimids(i) = gridio ("defDim", ncid, sprintf ("d%d", i), lengths(i));
%!  endfor
%!  varid = gridio ("defVar", ncid, "v", nc (xtype), dimids);
%!  gridio ("endDef", ncid);
%!endfunction

%!## "NC_EEDGE" and the like from the error of a call.
%!function status = status_of (varargin)
%!  status = "none";
%!  try
%!    gridio (varargin{:});
%!  catch err
%!    assert (err.identifier, "Ovard:gridio:netcdf:libraryFailure");
%!    status = regexp (err.message, ['^' varargin{1} ': (\w+): '], "tokens", "once"){1};
%!  end_try_catch
%!endfunction

%!## The last word of the identifier of a call's error.
%!function word = refusal_of (varargin)
%!  warning ("off", "Ovard:gridio:octave:rawBytes", "local"); # some values are of another class on purpose
%!  word = "none";
%!  try
%!    gridio (varargin{:});
%!  catch err
%!    word = strsplit (err.identifier, ":"){end};
%!  end_try_catch
%!endfunction

%!function bytes = bytes_of (path, count = Inf)
%!  fid = fopen (path, "r", "ieee-be");
%!  bytes = fread (fid, count, "uint8=>uint8")';
%!  fclose (fid);
%!endfunction
