% SPDX-License-Identifier: BSD-3-Clause
% Results of every kind can be used and cleared after gridio.oct is unloaded.
1;

function results = of_every_kind ()
  [ncid, path] = new_file ("netcdf4");
  x = gridio ("defDim", ncid, "x", 2);
  gridio_any ("putAtt", ncid, -1, "texts", "string", {"a", "longer"});
  gridio ("putAttText", ncid, -1, "text", "some text");
  v = gridio ("defVar", ncid, "v", gridio ("parameter", "NC_DOUBLE"), x);
  gridio ("endDef", ncid);
  gridio ("putVarDouble", ncid, v, [1 2]);
  results = {gridio_any("getAtt", ncid, -1, "texts"), gridio_any("getAtt", ncid, -1, "text"), ...
             gridio("getAttText", ncid, -1, "text"), gridio("getVarDouble", ncid, v), gridio("getVarInt", ncid, v), ...
             gridio_any("inqTypeIDs", ncid), gridio_open_files(), gridio_version(), gridio("inqVar", ncid, v), ...
             gridio_native("describe", ncid), gridio_native("timesToText", [1 2], "days since 2000-01-01", "standard")};
  gridio ("close", ncid);
end

results = of_every_kind ();
clear gridio gridio_any gridio_native
check ("the module is unloaded", isempty (strfind (fileread ("/proc/self/maps"), "gridio.oct")));
check ("texts can be used", isequal (results{1}(:)', {"a", "longer"}) && strcmp ([results{1}{2} "!"], "longer!"));
count = numel (results);
for k = 1:count
  results{k} = [];
end
check ("each can be cleared", numel (results) == count);
conclude ();
