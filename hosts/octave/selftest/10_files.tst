## SPDX-License-Identifier: BSD-3-Clause
## Files: life cycle and inquiries.

%!function first = first_bytes (mode)
%!  [ncid, path] = new_file (mode);
%!  gridio ("close", ncid);
%!  first = bytes_of (path, 4);
%!  delete (path);
%!endfunction

%!assert (first_bytes ("clobber"), uint8 (["CDF" char(1)]))
%!assert (first_bytes ("64bit_offset"), uint8 (["CDF" char(2)]))
%!assert (first_bytes (32), uint8 (["CDF" char(5)]))
%!assert (first_bytes ("netcdf4"), uint8 ([char(137) "HDF"]))
%!assert (first_bytes (nc ("NETCDF4") + nc ("CLASSIC_MODEL")), uint8 ([char(137) "HDF"]))

%!function name = format_of (mode)
%!  [ncid, path] = new_file (mode);
%!  name = gridio ("inqFormat", ncid);
%!  finish (ncid, path);
%!endfunction

%!assert (format_of ("nc_clobber"), "FORMAT_CLASSIC")
%!assert (format_of ("64BIT_OFFSET"), "FORMAT_64BIT")
%!assert (format_of ("NC_NETCDF4"), "FORMAT_NETCDF4")
%!assert (format_of (nc ("NETCDF4") + nc ("CLASSIC_MODEL")), "FORMAT_NETCDF4_CLASSIC")

%!test
%! ## What was closed can be opened, for reading and for writing.
%! [ncid, path] = new_file ();
%! gridio ("defDim", ncid, "x", 3);
%! gridio ("close", ncid);
%! ncid = gridio ("open", path, "nowrite");
%! assert (gridio ("inqDimID", ncid, "x"), 0);
%! assert (status_of ("defDim", ncid, "y", 2), "NC_EPERM");
%! gridio ("close", ncid);
%! ncid = gridio ("open", path, "write");
%! gridio ("defDim", ncid, "y", 2);
%! finish (ncid, path);

%!test
%! ## "noclobber" spares a file, "clobber" empties it.
%! [ncid, path] = new_file ();
%! gridio ("defDim", ncid, "x", 3);
%! gridio ("close", ncid);
%! assert (status_of ("create", path, "noclobber"), "NC_EEXIST");
%! ncid = gridio ("create", path, "clobber");
%! assert (gridio ("inq", ncid), 0);
%! finish (ncid, path);

%!test
%! path = [tempname() ".nc"];
%! [chunk, ncid] = gridio ("pCreate", path, "clobber", 0, 8192);
%! assert (chunk, 8192);
%! gridio ("close", ncid);
%! [chunk, ncid] = gridio ("pOpen", path, "nowrite", 16384);
%! assert (chunk, 16384);
%! finish (ncid, path);

%!test
%! ## "abort" leaves nothing of a new file, and undoes new definitions.
%! [ncid, path] = new_file ("clobber");
%! gridio ("abort", ncid);
%! assert (! exist (path, "file"));
%! [ncid, path] = new_file ("clobber");
%! gridio ("close", ncid);
%! ncid = gridio ("open", path, "write");
%! gridio ("redef", ncid);
%! gridio ("defDim", ncid, "x", 3);
%! gridio ("abort", ncid);
%! ncid = gridio ("open", path, "nowrite");
%! assert (gridio ("inq", ncid), 0);
%! finish (ncid, path);

%!test
%! ## Define mode and data mode of a classic file.
%! [ncid, path] = new_file ("clobber");
%! assert (status_of ("redef", ncid), "NC_EINDEFINE");
%! gridio ("endDef", ncid);
%! assert (status_of ("defDim", ncid, "x", 3), "NC_ENOTINDEFINE");
%! gridio ("redef", ncid);
%! gridio ("defDim", ncid, "x", 3);
%! gridio ("pEndDef", ncid, 4096, 4, 0, 4);
%! assert (status_of ("endDef", ncid), "NC_ENOTINDEFINE");
%! finish (ncid, path);

%!test
%! ## "sync" lets another reader see what was written.
%! [ncid, varid, path] = new_variable ("INT", 2, "clobber");
%! gridio ("putVarInt", ncid, varid, int32 ([258 -2]));
%! gridio ("sync", ncid);
%! assert (bytes_of (path)(end-7:end), uint8 ([0 0 1 2 255 255 255 254]));
%! finish (ncid, path);

%!test
%! [ncid, path] = new_file ("clobber");
%! assert (gridio ("setFill", ncid, nc ("NOFILL")), nc ("FILL"));
%! assert (gridio ("setFill", ncid, nc ("FILL")), nc ("NOFILL"));
%! assert (status_of ("setFill", ncid, 7), "NC_EINVAL");
%! finish (ncid, path);

%!test
%! old = gridio ("setDefaultFormat", 3);
%! unwind_protect
%!   assert (format_of ("clobber"), "FORMAT_NETCDF4");
%! unwind_protect_cleanup
%!   assert (gridio ("setDefaultFormat", old), 3);
%! end_unwind_protect

%!test
%! [ncid, path] = new_file ();
%! time = gridio ("defDim", ncid, "time", nc ("UNLIMITED"));
%! x = gridio ("defDim", ncid, "x", 3);
%! a = gridio ("defVar", ncid, "a", nc ("INT"), [x time]);
%! b = gridio ("defVar", ncid, "b", nc ("INT"), []);
%! gridio ("putAttText", ncid, -1, "title", "t");
%! [ndims, nvars, natts, unlimited] = gridio ("inq", ncid);
%! assert ([ndims nvars natts unlimited], [2 2 1 time]);
%! assert (gridio ("inqDimIDs", ncid, false), [time x]);
%! assert (gridio ("inqVarIDs", ncid), [a b]);
%! assert (gridio ("inqUnlimDims", ncid), time);
%! finish (ncid, path);

%!assert (regexp (gridio ("inqLibVers"), '^\d+\.\d+'))

%!test
%! ## A file that was left open is closed when gridio goes, with a warning.
%! path = [tempname() ".nc"];
%! ncid = gridio ("create", path, "clobber");
%! gridio ("putAttText", ncid, -1, "title", "kept");
%! lastwarn ("", "");
%! evalc ("clear gridio gridio_any gridio_native");  # all of them keep gridio.oct loaded
%! assert (nthargout (2, @lastwarn), "Ovard:gridio:netcdf:closingFileHandle");
%! ncid = gridio ("open", path, "nowrite");
%! assert (gridio ("getAttText", ncid, -1, "title"), "kept");
%! finish (ncid, path);

%!assert (status_of ("open", [tempname() ".nc"], "nowrite"), "2")
%!assert (status_of ("open", which ("gridio_help"), "nowrite"), "NC_ENOTNC")
%!assert (status_of ("close", 987 * 65536), "NC_EBADID")
%!assert (status_of ("inqFormat", 987 * 65536), "NC_EBADID")
%!assert (refusal_of ("open", 5, "nowrite"), "argumentWasNotChar")
%!assert (refusal_of ("open", "x.nc", "append"), "unrecognizedFileMode")
%!assert (refusal_of ("open", "x.nc", ""), "argumentIsEmptySet")
%!assert (refusal_of ("open", "x.nc", single (0)), "badModeDatatype")
%!assert (refusal_of ("close", NaN), "badScalarArgument")
%!assert (refusal_of ("close", 2^31), "argumentOutOfBounds")
%!assert (refusal_of ("inqDimIDs", 0, 1), "expectedLogicalType")
