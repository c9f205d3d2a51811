% SPDX-License-Identifier: BSD-3-Clause
% Operations of every family with every odd value in every position. Each call must succeed or raise
% gridio's own error, and the session must continue. Values of every class are written on purpose.
warning ("off", "Ovard:gridio:octave:rawBytes");
global impostorCalls
impostorCalls = {};
odd = {[], '', "", "text", "é", ["ab"; "cd"], {}, {1, "a"}, struct(), @sin, containers.Map(), Impostor(), ...
       impostor(), true, false, [true false], NaN, Inf, -Inf, -1, 0.5, 1e300, 2^63, -2^63, 2^31, single(3e38), ...
       1+2i, 1:5, 0:0, 1:0, sparse(3, 3), sparse(5), sparse(2^20, 2^20), eye(3), eye(3)([2 1 3], :), ...
       zeros(2, 0, 3), ones(2, 2, 2), int8(-128), uint64(18446744073709551615), intmin("int64"), ...
       int8(1:3), uint8([]), repmat("x", 1, 5000), ':', magic(4)(2, 3), char(0:255)};
[ncid, path] = new_file ("netcdf4");
x = gridio ("defDim", ncid, "x", 3);
t = gridio ("defDim", ncid, "t", gridio ("parameter", "NC_UNLIMITED"));
v = gridio ("defVar", ncid, "v", 6, [x t]);
w = gridio ("defVar", ncid, "w", 2, x);
s = gridio ("defVar", ncid, "s", 6, []);
gridio ("putAttText", ncid, v, "units", "m");
gridio ("endDef", ncid);
gridio ("putVaraDouble", ncid, v, [0 0], [3 1], 1:3);

% Each with arguments that it takes.
operations = {
  "inq", {ncid}; "inqFormat", {ncid}; "inqDimIDs", {ncid, false}; "inqUnlimDims", {ncid}; "inqVarIDs", {ncid}
  "inqLibVers", {}; "defGrp", {ncid, "g"}; "inqGrps", {ncid}; "inqGrpName", {ncid}; "inqGrpNameFull", {ncid}
  "inqGrpParent", {ncid}; "inqNcid", {ncid, "g"}; "defDim", {ncid, "z", 3}; "inqDim", {ncid, x}
  "inqDimID", {ncid, "x"}; "renameDim", {ncid, x, "x"}; "defVar", {ncid, "u", 6, [x t]}; "inqVarID", {ncid, "v"}
  "inqVar", {ncid, v}; "renameVar", {ncid, v, "v"}; "inqVarChunking", {ncid, v}; "inqVarDeflate", {ncid, v}
  "inqVarFletcher32", {ncid, v}; "inqVarFill", {ncid, v}; "defVarChunking", {ncid, w, "chunked", 3}
  "defVarDeflate", {ncid, w, true, true, 3}; "defVarFletcher32", {ncid, w, "fletcher32"}
  "defVarFill", {ncid, v, false, 7}; "inqAtt", {ncid, v, "units"}; "inqAttID", {ncid, v, "units"}
  "inqAttName", {ncid, v, 0}; "renameAtt", {ncid, v, "units", "units"}; "copyAtt", {ncid, v, "units", ncid, w}
  "getAttDouble", {ncid, v, "limit"}; "getAttText", {ncid, v, "units"}; "putAttDouble", {ncid, v, "limit", 6, 1}
  "putAttSchar", {ncid, v, "byte", 1, int8(1)}; "putAttText", {ncid, v, "units", "m"}; "delAtt", {ncid, v, "gone"}
  "getVarDouble", {ncid, v}; "getVarText", {ncid, w}; "getVar1Short", {ncid, v, [0 0]}
  "getVaraDouble", {ncid, v, [0 0], [3 1]}; "getVaraText", {ncid, w, 0, 3}
  "getVarsFloat", {ncid, v, [0 0], [2 1], [2 1]}; "putVarDouble", {ncid, s, 1}; "putVarInt64", {ncid, s, int64(1)}
  "putVarText", {ncid, w, "abc"}; "putVar1Double", {ncid, v, [0 0], 1}; "putVaraDouble", {ncid, v, [0 0], [3 1], 1:3}
  "putVaraText", {ncid, w, 0, 3, "abc"}; "putVarsShort", {ncid, v, [0 0], [2 1], [2 1], int16(1:2)}
  "sync", {ncid}; "redef", {ncid}; "endDef", {ncid}; "pEndDef", {ncid, 0, 4, 0, 4}; "setFill", {ncid, 0}
  "parameter", {"NC_GLOBAL"}; "getConstantNames", {}; "close", {-1}; "abort", {-1}; "open", {"nowhere", "nowrite"}
  "pOpen", {"nowhere", "nowrite", 4096}; "create", {"made.nc", "clobber"}; "pCreate", {"made.nc", "clobber", 0, 4096}
  "setDefaultFormat", {"NC_FORMAT_CLASSIC"}; "getChunkCache", {}; "setChunkCache", {2^24, 1009, single(0.75)}
};
calls = 0;
raised = 0;
foreign = {};
for k = 1:rows (operations)
  [name, usual] = operations{k, :};
  for place = 1:numel (usual)
    for j = 1:numel (odd)
      args = usual;
      args{place} = odd{j};
      calls++;
      try
        gridio (name, args{:});
      catch failure
        raised++;
        isOwn = strncmp (failure.identifier, "Ovard:gridio:", 13) ...
                && isempty (strfind (failure.identifier, ":host:internal"));
        if ! isOwn && isempty (strfind (failure.message, "out of memory"))
          foreign{end + 1} = sprintf ("%s, place %d, value %d: %s %s", name, place, j,
                                      failure.identifier, failure.message);
        end
      end
    end
  end
end
printf ("%d calls, %d errors\n", calls, raised);
printf ("%s\n", foreign{:});
check ("only gridio's own errors", isempty (foreign));
check ("most of it is refused", raised > calls / 2);
check ("no method of an object was called", isempty (impostorCalls));

% Any number of arguments.
for count = [1 2 7 15 16 17 40 1000]
  args = num2cell (ones (1, count));
  check_error (sprintf ("%d arguments", count), "netcdf:unrecognizedOperation", args{:});
  check_error (sprintf ("%d arguments after a name", count), "validate:wrongNumberOfInputs",
               "getChunkCache", args{:});
end
check ("the session still works", ischar (gridio ("inqLibVers")));
conclude ();
