## SPDX-License-Identifier: BSD-3-Clause
## Attributes.

%!## What reading gives of values that were written, with the attribute's type and length, in a file of that mode.
%!function [values, xtype, count] = attribute (type, xtype, values, mode = "netcdf4")
%!  [ncid, path] = new_file (mode);
%!  if (strcmp (type, "Text"))
%!    gridio ("putAttText", ncid, -1, "a", values);
%!  else
%!    gridio (["putAtt" type], ncid, -1, "a", nc (xtype), values);
%!  endif
%!  gridio ("close", ncid);
%!  ncid = gridio ("open", path, "nowrite");
%!  [xtype, count] = gridio ("inqAtt", ncid, -1, "a");
%!  values = gridio (["getAtt" type], ncid, -1, "a");
%!  finish (ncid, path);
%!endfunction

%!assert (attribute ("Double", "DOUBLE", [pi -Inf 1e300]), [pi -Inf 1e300])
%!assert (attribute ("Float", "FLOAT", single ([pi NaN 3e38])), single ([pi NaN 3e38]))
%!assert (attribute ("Int64", "INT64", [intmin("int64") intmax("int64")]), [intmin("int64") intmax("int64")])
%!assert (attribute ("Uint64", "UINT64", [uint64(0) intmax("uint64")]), [uint64(0) intmax("uint64")])
%!assert (attribute ("Int", "INT", [intmin("int32") intmax("int32")]), [intmin("int32") intmax("int32")])
%!assert (attribute ("Uint", "UINT", [uint32(0) intmax("uint32")]), [uint32(0) intmax("uint32")])
%!assert (attribute ("Short", "SHORT", [intmin("int16") intmax("int16")]), [intmin("int16") intmax("int16")])
%!assert (attribute ("Ushort", "USHORT", [uint16(0) intmax("uint16")]), [uint16(0) intmax("uint16")])
%!assert (attribute ("Schar", "BYTE", [intmin("int8") intmax("int8")]), [intmin("int8") intmax("int8")])
%!assert (attribute ("Uchar", "UBYTE", uint8 ([0 255])), uint8 ([0 255]))
%!assert (attribute ("Ubyte", "UBYTE", uint8 ([0 255])), uint8 ([0 255]))
%!assert (attribute ("Text", "CHAR", "degrees_north"), "degrees_north")
%!assert (attribute ("Text", "CHAR", char (1:255)), char (1:255))
%!assert (attribute ("Double", "DOUBLE", [1 2], "clobber"), [1 2])
%!assert (attribute ("Float", "FLOAT", single ([1 2]), "clobber"), single ([1 2]))
%!assert (attribute ("Int", "INT", int32 ([1 2]), "clobber"), int32 ([1 2]))
%!assert (attribute ("Short", "SHORT", int16 ([1 2]), "clobber"), int16 ([1 2]))
%!assert (attribute ("Schar", "BYTE", int8 ([1 -2]), "clobber"), int8 ([1 -2]))
%!assert (attribute ("Int64", "INT64", int64 ([1 -2^60]), 32), int64 ([1 -2^60]))
%!assert (attribute ("Uint64", "UINT64", uint64 ([1 2^60]), 32), uint64 ([1 2^60]))
%!assert (attribute ("Uint", "UINT", uint32 ([1 2]), 32), uint32 ([1 2]))
%!assert (attribute ("Ushort", "USHORT", uint16 ([1 2]), 32), uint16 ([1 2]))
%!assert (nthargout (2:3, @attribute, "Double", "SHORT", [1 2 3]), {nc("SHORT"), 3})
%!assert (nthargout (2:3, @attribute, "Text", "CHAR", "abc"), {nc("CHAR"), 3})

%!test
%! ## Text stands byte by byte in a classic file.
%! [ncid, path] = new_file ("clobber");
%! gridio ("putAttText", ncid, -1, "units", "\303\251 C");
%! gridio ("close", ncid);
%! assert (strfind (char (bytes_of (path)), ["units" char([0 0 0 0 0 0 2 0 0 0 4 195 169]) " C"]));
%! delete (path);

%!test
%! ## The catalogue of attributes.
%! [ncid, varid, path] = new_variable ("INT", 2, "clobber");
%! gridio ("redef", ncid);
%! gridio ("putAttText", ncid, varid, "units", "m");
%! gridio ("putAttInt", ncid, varid, "range", nc ("INT"), int32 ([0 9]));
%! assert (gridio ("inqAttName", ncid, varid, 1), "range");
%! assert (gridio ("inqAttID", ncid, varid, "range"), 1);
%! gridio ("renameAtt", ncid, varid, "range", "limits");
%! gridio ("copyAtt", ncid, varid, "limits", ncid, -1);
%! assert (gridio ("getAttInt", ncid, -1, "limits"), int32 ([0 9]));
%! gridio ("delAtt", ncid, varid, "units");
%! assert (gridio ("inqAttID", ncid, varid, "limits"), 0);
%! assert (status_of ("inqAtt", ncid, varid, "units"), "NC_ENOTATT");
%! assert (status_of ("delAtt", ncid, 5, "units"), "NC_ENOTVAR");
%! assert (status_of ("getAttText", ncid, -1, "limits"), "NC_ECHAR");
%! finish (ncid, path);

%!test
%! ## A value that does not fit is an error, and so are values of another class.
%! [ncid, path] = new_file ();
%! assert (status_of ("putAttDouble", ncid, -1, "a", nc ("BYTE"), 1000), "NC_ERANGE");
%! assert (refusal_of ("putAttDouble", ncid, -1, "a", nc ("DOUBLE"), single (1)), "dataSizeMismatch");
%! assert (refusal_of ("putAttText", ncid, -1, 5, "t"), "argumentWasNotChar");
%! varid = gridio ("defVar", ncid, "v", nc ("INT"), []);
%! assert (refusal_of ("putAttInt", ncid, varid, "_FillValue", nc ("INT"), int32 (1)),
%!         "postCreationFillValueDefinition");
%! finish (ncid, path);
