% SPDX-License-Identifier: BSD-3-Clause
% Remote data through gridio against the same data in a local file, and what failures leave behind.
% Arguments: the server's address, the local file, a port without a server.

1;

function check (claim, holds)
  global passed failed
  if (holds)
    passed++;
  else
    failed++;
    printf ("FAILED: %s\n", claim);
  end
end

function check_raises (claim, identifier, first_line, varargin)
  try
    gridio (varargin{:});
    check ([claim " (nothing raised)"], false);
  catch err
    line = strsplit (err.message, "\n"){1};
    check (sprintf ("%s (%s: %s)", claim, err.identifier, line),
           ! isempty (regexp (err.identifier, ["^Ovard:gridio:netcdf:" identifier "$"]))
           && ! isempty (regexp (line, ["^" first_line])));
  end
end

function check_session_is_healthy (where, local)
  ncid = gridio ("open", local, "nowrite");
  values = gridio ("getVarDouble", ncid, gridio ("inqVarID", ncid, "temp"));
  gridio ("close", ncid);
  check (["the session is healthy after " where], isequal (size (values), [5 3 4]));
end

function compare_inquiries (remote, local)
  [ndims, nvars] = gridio ("inq", remote);
  [ndims_local, nvars_local] = gridio ("inq", local);
  check ("inq: the same dimensions", ndims == ndims_local);
  check ("inq: the same variables", nvars == nvars_local);
  for id = gridio ("inqDimIDs", local, false)
    [name, length] = gridio ("inqDim", local, id);
    [~, length_remote] = gridio ("inqDim", remote, gridio ("inqDimID", remote, name));
    check (["inqDim: length of " name], length == length_remote);
  end
  for id = gridio ("inqVarIDs", local)
    [name, xtype, dimids] = gridio ("inqVar", local, id);
    varid = gridio ("inqVarID", remote, name);
    [~, xtype_remote, dimids_remote] = gridio ("inqVar", remote, varid);
    check (["inqVar: rank of " name], numel (dimids) == numel (dimids_remote));
    % DAP2 has an unsigned byte only, which the library presents as NC_BYTE.
    check (["inqVar: type of " name], xtype == xtype_remote || (xtype == 7 && xtype_remote == 1));
  end
end

function compare_values (remote, local)
  suffixes = {"Double", "Float", "Int64", "Int", "Short"};
  subset = {[1 0 1], [2 2 2], [2 2 2]};
  for name = {"temp", "wind", "packed"}
    there = gridio ("inqVarID", remote, name{1});
    here = gridio ("inqVarID", local, name{1});
    for suffix = suffixes
      same = @(form, varargin) isequal (
        gridio (["get" form suffix{1}], remote, there, varargin{:}),
        gridio (["get" form suffix{1}], local, here, varargin{:}));
      what = [name{1} " as " suffix{1}];
      check (["whole read of " what], same ("Var"));
      check (["block read of " what], same ("Vara", subset{1:2}));
      check (["strided read of " what], same ("Vars", subset{:}));
      check (["single value of " what], same ("Var1", [4 2 3]));
    end
  end
  flags = gridio ("getVarUchar", remote, gridio ("inqVarID", remote, "flag"));
  check ("bytes above 127", isequal (flags, gridio ("getVarUchar", local, gridio ("inqVarID", local, "flag"))));
  varid = gridio ("inqVarID", remote, "temp");
  check ("text attribute", strcmp (gridio ("getAttText", remote, varid, "units"), "K"));
  check ("numeric attribute", isequal (gridio ("getAttDouble", remote, varid, "valid_range"), [-100.5 100.5]));
  check ("global attribute", strcmp (gridio ("getAttText", remote, -1, "title"), "gridio"));
end

function check_failing_reads (server, local)
  % What the path answers, and the statuses that the library may make of it.
  cases = {"garbage", "librarydapFailure", "getVarDouble: NC_EDATADDS: ";
           "error",   "librarydapFailure", "getVarDouble: NC_EDAPSVC: ";
           "hangup",  "librarydapFailure", "getVarDouble: NC_(EIO|ECURL|EDAPSVC): ";
           "broken",  "libraryFailure",    "getVarDouble: NC_EINVALCOORDS: "};
  for row = cases'
    ncid = gridio ("open", [server "/" row{1}], "nowrite");
    varid = gridio ("inqVarID", ncid, "temp");
    check_raises (["reading from /" row{1}], row{2:3}, "getVarDouble", ncid, varid);
    gridio ("close", ncid);
    check_session_is_healthy (["reading from /" row{1}], local);
  end
end

function check_failing_opens (server, local, dead_port)
  gone = sprintf ("http://127.0.0.1:%s/good", dead_port);
  check_raises ("a server that is gone", "librarydapFailure", "open: NC_(EIO|ECURL|EDAPSVC): ", "open", gone, "nowrite");
  check_session_is_healthy ("a server that is gone", local);
  check_raises ("a host that is not there", "librarydapFailure", "open: NC_(EIO|ECURL|EDAPSVC): ",
                "open", "http://host.invalid/good", "nowrite");
  check_session_is_healthy ("a host that is not there", local);
  check_raises ("a data set that is not there", "library(dap)?Failure", "open: (NC_\\w+|-90): ", "open", [server "/none"], "nowrite");
  check_session_is_healthy ("a data set that is not there", local);
  % The library has a status of its own for this, -77, which is named by its digits.
  check_raises ("a wrong constraint", "libraryFailure", "open: -77: Access failure", "open", [server "/good?nosuch"], "nowrite");
  check_session_is_healthy ("a wrong constraint", local);

  ncid = gridio ("open", [server "/good"], "write");
  varid = gridio ("inqVarID", ncid, "time");
  check_raises ("writing to remote data", "libraryFailure", "putVarInt: NC_EPERM: ", "putVarInt", ncid, varid, int32 (1:4));
  gridio ("close", ncid);
  check_session_is_healthy ("writing to remote data", local);
end

% The library keeps such data in a folder, which it names by address.
function check_zarr (folder)
  for mode = {"nczarr,file", "zarr,file"}
    url = ["file://" folder "/" strrep(mode{1}, ",", "_") ".store#mode=" mode{1}];
    values = reshape (1:12, 4, 3) / 8;
    ncid = gridio ("create", url, "nc_netcdf4");
    dimids = [gridio("defDim", ncid, "x", 4), gridio("defDim", ncid, "y", 3)];
    varid = gridio ("defVar", ncid, "field", gridio ("parameter", "NC_DOUBLE"), dimids);
    gridio ("putAttText", ncid, varid, "units", "m");
    gridio ("endDef", ncid);
    gridio ("putVarDouble", ncid, varid, values);
    gridio ("close", ncid);

    ncid = gridio ("open", url, "nowrite");
    varid = gridio ("inqVarID", ncid, "field");
    check (["whole read of " mode{1}], isequal (gridio ("getVarDouble", ncid, varid), values));
    check (["block read of " mode{1}], isequal (gridio ("getVaraDouble", ncid, varid, [1 1], [2 2]), values(2:3, 2:3)));
    check (["strided read of " mode{1}], isequal (gridio ("getVarsDouble", ncid, varid, [0 0], [2 2], [2 2]), values(1:2:3, 1:2:3)));
    check (["attribute of " mode{1}], strcmp (gridio ("getAttText", ncid, varid, "units"), "m"));
    gridio ("close", ncid);
  end
end

global passed = 0 failed = 0
[server, file, dead_port] = argv (){:};

local = gridio ("open", file, "nowrite");
remote = gridio ("open", [server "/good"], "nowrite");
compare_inquiries (remote, local);
compare_values (remote, local);
gridio ("close", remote);
gridio ("close", local);
check_failing_reads (server, file);
check_failing_opens (server, file, dead_port);
check_zarr (fileparts (file));

printf ("%d passed, %d failed\n", passed, failed);
exit (failed > 0);
