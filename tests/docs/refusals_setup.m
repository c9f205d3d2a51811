% SPDX-License-Identifier: BSD-3-Clause
% The files that the calls of refusals.txt are made on: each has the dimensions x and time, the variables v and text, and
% the text attribute a.
nc = @(name) gridio ("parameter", name);
function ncid = made (name, mode)
  nc = @(name) gridio ("parameter", name);
  ncid = gridio ("create", name, mode);
  x = gridio ("defDim", ncid, "x", 3);
  gridio ("defDim", ncid, "time", 0);
  gridio ("defVar", ncid, "v", nc ("NC_DOUBLE"), x);
  gridio ("defVar", ncid, "text", nc ("NC_CHAR"), x);
  gridio ("putAttText", ncid, -1, "a", "abc");
end
classic = made ("classic.nc", "nc_clobber");
data = made ("data.nc", "nc_clobber");
gridio ("endDef", data);
gridio ("putVarDouble", data, 0, [1 1e6 1]);
nc4 = made ("nc4.nc", "nc_netcdf4");
group = gridio ("defGrp", nc4, "group");
% Types: the enumeration sky has the member clear, the compound type pair has space for a second int after the field a.
gridio_any ("defEnum", nc4, "byte", "sky");
gridio_any ("insertEnum", nc4, "sky", "clear", 0);
gridio_any ("defCompound", nc4, 8, "pair");
gridio_any ("insertCompound", nc4, "pair", "a", 0, "int");
gridio_any ("defOpaque", nc4, 4, "blob");
typed = gridio ("defVar", nc4, "typed", gridio_any ("inqTypeID", nc4, "blob"), 0);
model = made ("model.nc", nc ("NC_NETCDF4") + nc ("NC_CLASSIC_MODEL"));
gridio ("close", made ("readonly.nc", "nc_clobber"));
readonly = gridio ("open", "readonly.nc", "nc_nowrite");
readonly4 = made ("readonly4.nc", "nc_netcdf4");
gridio ("defGrp", readonly4, "group");
gridio ("close", readonly4);
readonly4 = gridio ("open", "readonly4.nc", "nc_nowrite");
fclose (fopen ("other.txt", "w"));
[v, text] = deal (0, 1);
