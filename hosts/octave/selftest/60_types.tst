## SPDX-License-Identifier: BSD-3-Clause
## Operations on values of any type.

%!## A netCDF-4 file in define mode with the dimension "x" of length 2, and a variable of a type over it.
%!function [ncid, varid, path] = new_typed (define)
%!  [ncid, path] = new_file ();
%!  xtype = define (ncid);
%!  varid = gridio ("defVar", ncid, "v", xtype, gridio ("defDim", ncid, "x", 2));
%!endfunction

%!function xtype = new_sky (ncid)
%!  xtype = gridio_any ("defEnum", ncid, "byte", "sky");
%!  gridio_any ("insertEnum", ncid, xtype, "clear", 0);
%!  gridio_any ("insertEnum", ncid, xtype, "cloudy", 3);
%!endfunction

%!function xtype = new_place (ncid)
%!  xtype = gridio_any ("defCompound", ncid, 16, "place");
%!  gridio_any ("insertCompound", ncid, xtype, "name", 0, "string");
%!  gridio_any ("insertArrayCompound", ncid, xtype, "at", 8, "float", 2);
%!endfunction

%!## "unknownLabel" and the like, with the message.
%!function [name, message] = failure_of (varargin)
%!  name = message = "none";
%!  try
%!    gridio_any (varargin{:});
%!  catch err
%!    name = regexp (err.identifier, '\w+$', "match", "once");
%!    message = err.message;
%!  end_try_catch
%!endfunction

%!test # strings, whole and in parts
%! [ncid, v, path] = new_typed (@(ncid) gridio_any ("inqTypeID", ncid, "string"));
%! gridio_any ("putVar", ncid, v, {"Oslo", "caf\303\251"});
%! assert (gridio_any ("getVar", ncid, v), {"Oslo"; "caf\303\251"});
%! gridio_any ("putVar1", ncid, v, 1, "");
%! assert (size (gridio_any ("getVar1", ncid, v, 1)), [1 0]);
%! gridio_any ("putVara", ncid, v, 0, 2, {"a"; "b"});
%! assert (gridio_any ("getVara", ncid, v, 1, 1), "b");
%! gridio_any ("putVars", ncid, v, 0, 1, 2, "c");
%! assert (gridio_any ("getVars", ncid, v, 0, 2, 1), {"c"; "b"});
%! finish (ncid, path);

%!test # enumerations
%! [ncid, v, path] = new_typed (@new_sky);
%! gridio_any ("putVar", ncid, v, {"cloudy", "clear"});
%! [values, labels] = gridio_any ("getVar", ncid, v);
%! assert (values, int8 ([3; 0]));
%! assert (labels, {"cloudy"; "clear"});
%! [name, base, bytes, members] = gridio_any ("inqEnum", ncid, "sky");
%! assert ({name, base, bytes, members}, {"sky", nc("BYTE"), 1, 2});
%! [name, value] = gridio_any ("inqEnumMember", ncid, "sky", 1);
%! assert ({name, value}, {"cloudy", int8(3)});
%! assert (gridio_any ("inqEnumIdent", ncid, "sky", 0), "clear");
%! [name, message] = failure_of ("putVar", ncid, v, {"clear", "foggy"});
%! assert (name, "unknownLabel");
%! for part = {"element 2", "foggy", "clear, cloudy"}
%!   assert (! isempty (strfind (message, part{1})));
%! endfor
%! finish (ncid, path);

%!test # compound types
%! [ncid, v, path] = new_typed (@new_place);
%! values = struct ("name", {{"Oslo"; "Rome"}}, "at", single ([59 41; 10 12]));
%! gridio_any ("putVar", ncid, v, values);
%! assert (gridio_any ("getVar", ncid, v), values);
%! [name, bytes, fields] = gridio_any ("inqCompound", ncid, "place");
%! assert ({name, bytes, fields}, {"place", 16, 2});
%! [name, offset, xtype, lengths] = gridio_any ("inqCompoundField", ncid, "place", 1);
%! assert ({name, offset, xtype, lengths}, {"at", 8, nc("FLOAT"), 2});
%! [name, message] = failure_of ("putVar", ncid, v, setfield (values, "at", [1 2; 3 0.1]));
%! assert (name, "valueDoesNotFit");
%! assert (! isempty (strfind (message, "field 2 'at', element 4")));
%! finish (ncid, path);

%!test # vlens and opaque types
%! [ncid, v, path] = new_typed (@(ncid) gridio_any ("defVlen", ncid, "levels", "short"));
%! gridio_any ("putVar", ncid, v, {[1 2 3], []});
%! assert (gridio_any ("getVar", ncid, v), {int16([1; 2; 3]); zeros(0, 1, "int16")});
%! [name, ~, base] = gridio_any ("inqVlen", ncid, "levels");
%! assert ({name, base}, {"levels", nc("SHORT")});
%! blob = gridio_any ("defOpaque", ncid, 3, "blob");
%! [name, bytes] = gridio_any ("inqOpaque", ncid, blob);
%! assert ({name, bytes}, {"blob", 3});
%! gridio_any ("putAtt", ncid, v, "key", "blob", uint8 ([1 2 3]));
%! assert (gridio_any ("getAtt", ncid, v, "key"), uint8 ([1; 2; 3]));
%! assert (numel (gridio_any ("inqTypeIDs", ncid)), 2);
%! [name, bytes, ~, ~, class] = gridio_any ("inqUserType", ncid, blob);
%! assert ({name, bytes, class}, {"blob", 3, "opaque"});
%! [name, bytes] = gridio_any ("inqType", ncid, nc ("DOUBLE"));
%! assert ({name, bytes}, {"double", 8});
%! assert (! gridio_any ("inqTypeEqual", ncid, "int", ncid, "double"));
%! finish (ncid, path);

%!test # storage settings
%! [ncid, v, path] = new_typed (@(ncid) nc ("FLOAT"));
%! gridio_any ("defVarChunking", ncid, v, "chunked", 2);
%! [storage, sizes] = gridio_any ("inqVarChunking", ncid, v);
%! assert ({storage, sizes}, {"chunked", 2});
%! gridio_any ("defVarEndian", ncid, v, "big");
%! assert (gridio_any ("inqVarEndian", ncid, v), "big");
%! gridio_any ("defVarQuantize", ncid, v, "BitGroom", 3);
%! [mode, digits] = gridio_any ("inqVarQuantize", ncid, v);
%! assert ({mode, digits}, {"BitGroom", 3});
%! assert (gridio_any ("inqFilterAvail", ncid, 1));
%! gridio_any ("defVarFilter", ncid, v, 1, 6);
%! [ids, parameters] = gridio_any ("inqVarFilters", ncid, v);
%! assert ({ids, parameters}, {1, {6}});
%! [options, pixels] = gridio_any ("inqVarSzip", ncid, v);
%! assert ([options pixels], [0 0]);
%! gridio_any ("setVarChunkCache", ncid, v, 64e6, 4133, 0.5);
%! [size, slots, preemption] = gridio_any ("getVarChunkCache", ncid, v);
%! assert ([size slots preemption], [64e6 4133 0.5]);
%! gridio_any ("defVarFill", ncid, v, false, -1);
%! [no_fill, value] = gridio_any ("inqVarFill", ncid, v);
%! assert ({no_fill, value}, {false, single(-1)});
%! finish (ncid, path);

%!test # files and groups
%! [ncid, path] = new_file ();
%! assert (gridio_any ("inqFormatExtended", ncid), "FORMATX_NC_HDF5");
%! assert (gridio_any ("inqPath", ncid), path);
%! t = gridio ("defDim", ncid, "t", 0);
%! group = gridio ("defGrp", ncid, "old");
%! gridio_any ("renameGrp", group, "new");
%! assert (gridio_any ("inqGrpFullNcid", ncid, "/new"), group);
%! [dimids, unlimited] = gridio_any ("inqDimIDs", group, true);
%! assert ([dimids unlimited], [t t]);
%! finish (ncid, path);
