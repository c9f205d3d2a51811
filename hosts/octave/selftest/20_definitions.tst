## SPDX-License-Identifier: BSD-3-Clause
## Groups, dimensions, variables, storage settings and fill values.

%!test
%! [ncid, path] = new_file ();
%! ocean = gridio ("defGrp", ncid, "ocean");
%! deep = gridio ("defGrp", ocean, "deep");
%! assert (gridio ("inqGrps", ncid), ocean);
%! assert (gridio ("inqGrpName", deep), "deep");
%! assert (gridio ("inqGrpNameFull", deep), "/ocean/deep");
%! assert (gridio ("inqGrpNameFull", ncid), "/");
%! assert (gridio ("inqGrpParent", deep), ocean);
%! assert (gridio ("inqNcid", ocean, "deep"), deep);
%! assert (status_of ("inqNcid", ncid, "deep"), "NC_ENOGRP");
%! assert (status_of ("inqGrpParent", ncid), "NC_ENOGRP");
%! assert (status_of ("defGrp", ncid, "ocean"), "NC_ENAMEINUSE");
%! finish (ncid, path);

%!test
%! ## A group sees the dimensions above it.
%! [ncid, path] = new_file ();
%! x = gridio ("defDim", ncid, "x", 3);
%! group = gridio ("defGrp", ncid, "g");
%! y = gridio ("defDim", group, "y", 2);
%! assert (gridio ("inqDimIDs", group, false), y);
%! assert (gridio ("inqDimIDs", group, true), [x y]);
%! varid = gridio ("defVar", group, "v", nc ("INT"), [x y]);
%! gridio ("putVarInt", group, varid, int32 (reshape (1:6, 3, 2)));
%! assert (gridio ("getVarInt", group, varid), int32 (reshape (1:6, 3, 2)));
%! assert (status_of ("inqVarID", ncid, "v"), "NC_ENOTVAR");
%! finish (ncid, path);

%!test
%! [ncid, path] = new_file ("clobber");
%! assert (status_of ("defGrp", ncid, "g"), "NC_ENOTNC4");
%! finish (ncid, path);

%!test
%! [ncid, path] = new_file ();
%! x = gridio ("defDim", ncid, "x", 3);
%! time = gridio ("defDim", ncid, "time", 0);
%! assert ([x time], [0 1]);
%! [name, length] = gridio ("inqDim", ncid, x);
%! assert ({name, length}, {"x", 3});
%! [name, length] = gridio ("inqDim", ncid, time);
%! assert ({name, length}, {"time", 0});
%! gridio ("renameDim", ncid, x, "lon");
%! assert (gridio ("inqDimID", ncid, "lon"), x);
%! assert (status_of ("inqDimID", ncid, "x"), "NC_EBADDIM");
%! assert (status_of ("inqDim", ncid, 2), "NC_EBADDIM");
%! assert (status_of ("defDim", ncid, "lon", 4), "NC_ENAMEINUSE");
%! assert (refusal_of ("defDim", ncid, "y", -1), "argumentOutOfBounds");
%! finish (ncid, path);

%!test
%! [ncid, path] = new_file ("clobber");
%! gridio ("defDim", ncid, "time", nc ("UNLIMITED"));
%! assert (status_of ("defDim", ncid, "time2", nc ("UNLIMITED")), "NC_EUNLIMIT");
%! finish (ncid, path);

%!test
%! [ncid, path] = new_file ();
%! x = gridio ("defDim", ncid, "x", 3);
%! y = gridio ("defDim", ncid, "y", 2);
%! varid = gridio ("defVar", ncid, "t", nc ("SHORT"), [x y]);
%! [name, xtype, dimids, natts] = gridio ("inqVar", ncid, varid);
%! assert ({name, xtype, dimids, natts}, {"t", nc("SHORT"), [x y], 0});
%! assert (gridio ("inqVarID", ncid, "t"), varid);
%! gridio ("renameVar", ncid, varid, "temp");
%! assert (gridio ("inqVar", ncid, varid), "temp");
%! assert (status_of ("defVar", ncid, "temp", nc ("INT"), x), "NC_ENAMEINUSE");
%! assert (status_of ("defVar", ncid, "v", nc ("INT"), 9), "NC_EBADDIM");
%! assert (refusal_of ("defVar", ncid, "v", nc ("INT"), int32 (x)), "badRowDatatype");
%! assert (refusal_of ("inqVar", ncid, -1), "inqVarNcGlobal");
%! finish (ncid, path);

%!test
%! ## The first dimension of an array varies fastest: the file has the opposite order.
%! [ncid, varid, path] = new_variable ("BYTE", [3 2], "clobber");
%! gridio ("putVarSchar", ncid, varid, int8 ([1 4; 2 5; 3 6]));
%! gridio ("close", ncid);
%! assert (bytes_of (path)(end-7:end-2), uint8 (1:6));
%! delete (path);

%!test
%! [ncid, path] = new_file ();
%! dimids = [gridio("defDim", ncid, "x", 30), gridio("defDim", ncid, "y", 20)];
%! varid = gridio ("defVar", ncid, "v", nc ("INT"), dimids);
%! assert (gridio ("inqVarChunking", ncid, varid), "contiguous");
%! gridio ("defVarChunking", ncid, varid, nc ("CHUNKED"), [10 5]);
%! [storage, sizes] = gridio ("inqVarChunking", ncid, varid);
%! assert ({storage, sizes}, {"chunked", [10 5]});
%! assert (refusal_of ("defVarChunking", ncid, varid, 0, 10), "invalidChunkParameter");
%! assert (refusal_of ("defVarChunking", ncid, varid, 5, [10 5]), "unrecognizedChunkStorage");
%! assert (status_of ("defVarChunking", ncid, varid, 0, [31 5]), "NC_EBADCHUNK");
%! finish (ncid, path);

%!test
%! ## Compression makes the file smaller and loses nothing.
%! values = repmat (1:100, 100, 1);
%! lengths = zeros (1, 2);
%! for level = [0 9]
%!   [ncid, path] = new_file ();
%!   x = gridio ("defDim", ncid, "x", 100);
%!   y = gridio ("defDim", ncid, "y", 100);
%!   varid = gridio ("defVar", ncid, "v", nc ("DOUBLE"), [x y]);
%!   gridio ("defVarDeflate", ncid, varid, true, level > 0, level);
%!   [shuffle, deflate, found] = gridio ("inqVarDeflate", ncid, varid);
%!   assert ({shuffle, deflate, found}, {true, level > 0, level});
%!   gridio ("putVarDouble", ncid, varid, values);
%!   gridio ("close", ncid);
%!   ncid = gridio ("open", path, "nowrite");
%!   assert (gridio ("getVarDouble", ncid, varid), values);
%!   lengths(1 + (level > 0)) = dir (path).bytes;
%!   finish (ncid, path);
%! endfor
%! assert (lengths(2) < lengths(1) / 4);

%!test
%! [ncid, path] = new_file ();
%! varid = gridio ("defVar", ncid, "v", nc ("INT"), gridio ("defDim", ncid, "x", 4));
%! assert (gridio ("inqVarFletcher32", ncid, varid), "NOCHECKSUM");
%! gridio ("defVarFletcher32", ncid, varid, nc ("FLETCHER32"));
%! assert (gridio ("inqVarFletcher32", ncid, varid), "FLETCHER32");
%! assert (status_of ("defVarDeflate", ncid, varid, false, true, 10), "NC_EINVAL");
%! assert (refusal_of ("defVarDeflate", ncid, varid, 1, true, 1), "expectedLogicalType");
%! finish (ncid, path);

%!test
%! [ncid, varid, path] = new_variable ("INT", 4, "clobber");
%! assert (refusal_of ("inqVarChunking", ncid, varid), "attemptedChunkingInquiryOnNetcdf3File");
%! assert (refusal_of ("inqVarFletcher32", ncid, varid), "attemptedChecksumInquiryOnNetcdf3File");
%! assert (status_of ("defVarDeflate", ncid, varid, false, true, 1), "NC_ENOTNC4");
%! finish (ncid, path);

%!test
%! ## What is not written reads as the fill value.
%! [ncid, path] = new_file ();
%! x = gridio ("defDim", ncid, "x", 3);
%! varid = gridio ("defVar", ncid, "v", nc ("SHORT"), x);
%! gridio ("defVarFill", ncid, varid, false, -7);
%! [off, value] = gridio ("inqVarFill", ncid, varid);
%! assert ({off, value}, {false, int16(-7)});
%! gridio ("endDef", ncid);
%! gridio ("putVar1Short", ncid, varid, 1, int16 (5));
%! assert (gridio ("getVarShort", ncid, varid), int16 ([-7 5 -7])(:));
%! assert (status_of ("defVarFill", ncid, varid, false, 1), "NC_ELATEDEF");
%! finish (ncid, path);

%!test
%! [ncid, path] = new_file ();
%! varid = gridio ("defVar", ncid, "v", nc ("INT"), []);
%! gridio ("defVarFill", ncid, varid, true, []);
%! assert (gridio ("inqVarFill", ncid, varid), true);
%! assert (refusal_of ("defVarFill", ncid, varid, 1, 0), "expectedLogicalType");
%! assert (refusal_of ("defVarFill", ncid, varid, false, "a"), "badScalarArgument");
%! assert (refusal_of ("defVarFill", ncid, varid, false, 2^31), "argumentOutOfBounds");
%! finish (ncid, path);

%!function value = default_fill (xtype)
%!  [ncid, varid, path] = new_variable (xtype, [], "netcdf4");
%!  [~, value] = gridio ("inqVarFill", ncid, varid);
%!  finish (ncid, path);
%!endfunction

%!assert (default_fill ("BYTE"), int8 (-127))
%!assert (default_fill ("UBYTE"), uint8 (255))
%!assert (default_fill ("CHAR"), char (0))
%!assert (default_fill ("SHORT"), int16 (-32767))
%!assert (default_fill ("USHORT"), uint16 (65535))
%!assert (default_fill ("INT"), int32 (-2147483647))
%!assert (default_fill ("UINT"), uint32 (4294967295))
%!assert (default_fill ("INT64"), intmin ("int64") + 2)
%!assert (default_fill ("UINT64"), intmax ("uint64") - 1)
%!assert (default_fill ("FLOAT"), single (9.9692099683868690e+36))
%!assert (default_fill ("DOUBLE"), 9.9692099683868690e+36)
