## SPDX-License-Identifier: BSD-3-Clause
## Constants, the chunk cache, and calls that are no calls.

%!assert (gridio ("parameter", "NC_DOUBLE"), 6)
%!assert (gridio ("parameter", "NC_UNLIMITED"), 0)
%!assert (gridio ("parameter", "NC_GLOBAL"), -1)
%!assert (gridio ("parameter", "NC_NOWRITE"), 0)
%!assert (gridio ("parameter", "NC_WRITE"), 1)
%!assert (gridio ("parameter", "NC_NETCDF4"), 4096)
%!assert (refusal_of ("parameter", "NC_NOTHING"), "unrecognizedCharParameter")
%!assert (numel (gridio ("getConstantNames")), 114)

%!test
%! for name = gridio ("getConstantNames")'
%!   assert (isscalar (gridio ("parameter", name{1})), name{1});
%! endfor

%!test
%! [bytes, slots, preemption] = gridio ("getChunkCache");
%! unwind_protect
%!   gridio ("setChunkCache", 1e6, 521, single (0.5));
%!   [a, b, c] = gridio ("getChunkCache");
%!   assert ([a b c], [1e6 521 0.5]);
%! unwind_protect_cleanup
%!   gridio ("setChunkCache", bytes, slots, single (preemption));
%! end_unwind_protect

%!assert (refusal_of (), "unrecognizedOperation")
%!assert (refusal_of (""), "unrecognizedOperation")
%!assert (refusal_of ("help"), "unrecognizedOperation")
%!assert (refusal_of ("Open", "x", "nowrite"), "unrecognizedOperation")
%!assert (refusal_of (7), "unrecognizedOperation")
%!assert (refusal_of ("open"), "wrongNumberOfInputs")
%!assert (refusal_of ("open", "x", "nowrite", 1), "wrongNumberOfInputs")

%!test
%! ## Every operation of gridio_help exists here, and refuses a number of arguments that no operation takes.
%! parts = strsplit (fileread (file_in_loadpath ("gridio_operations.txt")), "\n@@ ")(2:end);
%! names = strtok (parts, "\n");
%! names(find (strcmp (names, "getVar"), 1):end) = [];  # those of gridio_any, which 60_types.tst calls
%! assert (numel (names), 162);
%! for name = names
%!   assert (refusal_of (name{1}, 1, 2, 3, 4, 5, 6, 7), "wrongNumberOfInputs", name{1});
%! endfor

%!demo
%! ## A field is written, looked at, and read back in part.
%! path = [tempname() ".nc"];
%! ncid = gridio ("create", path, "netcdf4");
%! lon = gridio ("defDim", ncid, "lon", 4);
%! lat = gridio ("defDim", ncid, "lat", 3);
%! sst = gridio ("defVar", ncid, "sst", gridio ("parameter", "NC_DOUBLE"), [lon lat]);
%! gridio ("endDef", ncid);
%! gridio ("putVarDouble", ncid, sst, 14 + reshape (0:11, 4, 3) / 10);
%! gridio_open_files ()
%! second_row = gridio ("getVaraDouble", ncid, sst, [0 1], [4 1])
%! gridio ("close", ncid);
%! delete (path);
