## SPDX-License-Identifier: BSD-3-Clause
## Data: every type, as a whole, by element, by block and by strides, in a netCDF-4 and in a classic file.

%!## The values as a 2-by-3 array, written and read as a whole, with the file closed in between.
%!function read = whole (type, xtype, values, mode)
%!  [ncid, varid, path] = new_variable (xtype, [2 3], mode);
%!  gridio (["putVar" type], ncid, varid, reshape (values, 2, 3));
%!  gridio ("close", ncid);
%!  ncid = gridio ("open", path, "nowrite");
%!  read = gridio (["getVar" type], ncid, varid)(:)';
%!  finish (ncid, path);
%!endfunction

%!## Written and read one by one; two operations for writing have a name that the others would not lead to expect.
%!function read = single_values (type, xtype, values, mode)
%!  [ncid, varid, path] = new_variable (xtype, 6, mode);
%!  written = regexprep (type, "^Uint", "UInt");
%!  for i = 6:-1:1
%!    gridio (["putVar1" written], ncid, varid, i - 1, values(i));
%!  endfor
%!  for i = 6:-1:1
%!    read(i) = gridio (["getVar1" type], ncid, varid, i - 1);
%!  endfor
%!  finish (ncid, path);
%!endfunction

%!## Column 1 of 2-by-3 written as a block, then columns 2 and 3; read as rows.
%!function read = blocks (type, xtype, values, mode)
%!  [ncid, varid, path] = new_variable (xtype, [2 3], mode);
%!  gridio (["putVara" type], ncid, varid, [0 0], [2 1], values(1:2));
%!  gridio (["putVara" type], ncid, varid, [0 1], [2 2], values(3:6));
%!  for row = 2:-1:1
%!    read(row,:) = gridio (["getVara" type], ncid, varid, [row-1 0], [1 3]);
%!  endfor
%!  read = read(:)';
%!  finish (ncid, path);
%!endfunction

%!## Every other one written, then those between; read in steps of three.
%!function read = strides (type, xtype, values, mode)
%!  [ncid, varid, path] = new_variable (xtype, 6, mode);
%!  gridio (["putVars" type], ncid, varid, 0, 3, 2, values(1:2:5));
%!  gridio (["putVars" type], ncid, varid, 1, 3, 2, values(2:2:6));
%!  for first = 3:-1:1
%!    read([first first+3]) = gridio (["getVars" type], ncid, varid, first - 1, 2, 3);
%!  endfor
%!  finish (ncid, path);
%!endfunction

%!shared values
%! values = [-Inf 0.1 NaN pi 1e300 -5];
%!assert (whole ("Double", "DOUBLE", values, "netcdf4"), values)
%!assert (whole ("Double", "DOUBLE", values, "clobber"), values)
%!assert (single_values ("Double", "DOUBLE", values, "netcdf4"), values)
%!assert (single_values ("Double", "DOUBLE", values, "clobber"), values)
%!assert (blocks ("Double", "DOUBLE", values, "netcdf4"), values)
%!assert (blocks ("Double", "DOUBLE", values, "clobber"), values)
%!assert (strides ("Double", "DOUBLE", values, "netcdf4"), values)
%!assert (strides ("Double", "DOUBLE", values, "clobber"), values)
%!assert (class (whole ("Double", "DOUBLE", values, "netcdf4")), "double")

%!shared values
%! values = single ([-Inf 0.1 NaN pi 3e38 -5]);
%!assert (whole ("Float", "FLOAT", values, "netcdf4"), values)
%!assert (whole ("Float", "FLOAT", values, "clobber"), values)
%!assert (single_values ("Float", "FLOAT", values, "netcdf4"), values)
%!assert (single_values ("Float", "FLOAT", values, "clobber"), values)
%!assert (blocks ("Float", "FLOAT", values, "netcdf4"), values)
%!assert (blocks ("Float", "FLOAT", values, "clobber"), values)
%!assert (strides ("Float", "FLOAT", values, "netcdf4"), values)
%!assert (strides ("Float", "FLOAT", values, "clobber"), values)
%!assert (class (whole ("Float", "FLOAT", values, "netcdf4")), "single")

%!shared values
%! values = [intmin("int64") -1 0 1 2^53 intmax("int64")];
%!assert (whole ("Int64", "INT64", values, "netcdf4"), values)
%!assert (whole ("Int64", "INT64", values, 32), values)
%!assert (single_values ("Int64", "INT64", values, "netcdf4"), values)
%!assert (single_values ("Int64", "INT64", values, 32), values)
%!assert (blocks ("Int64", "INT64", values, "netcdf4"), values)
%!assert (blocks ("Int64", "INT64", values, 32), values)
%!assert (strides ("Int64", "INT64", values, "netcdf4"), values)
%!assert (strides ("Int64", "INT64", values, 32), values)
%!assert (class (whole ("Int64", "INT64", values, "netcdf4")), "int64")

%!shared values
%! values = [uint64(0) 1 2 3 2^53 intmax("uint64")];
%!assert (whole ("Uint64", "UINT64", values, "netcdf4"), values)
%!assert (whole ("Uint64", "UINT64", values, 32), values)
%!assert (single_values ("Uint64", "UINT64", values, "netcdf4"), values)
%!assert (single_values ("Uint64", "UINT64", values, 32), values)
%!assert (blocks ("Uint64", "UINT64", values, "netcdf4"), values)
%!assert (blocks ("Uint64", "UINT64", values, 32), values)
%!assert (strides ("Uint64", "UINT64", values, "netcdf4"), values)
%!assert (strides ("Uint64", "UINT64", values, 32), values)
%!assert (class (whole ("Uint64", "UINT64", values, "netcdf4")), "uint64")

%!shared values
%! values = [intmin("int32") -1 0 1 77777 intmax("int32")];
%!assert (whole ("Int", "INT", values, "netcdf4"), values)
%!assert (whole ("Int", "INT", values, "clobber"), values)
%!assert (single_values ("Int", "INT", values, "netcdf4"), values)
%!assert (single_values ("Int", "INT", values, "clobber"), values)
%!assert (blocks ("Int", "INT", values, "netcdf4"), values)
%!assert (blocks ("Int", "INT", values, "clobber"), values)
%!assert (strides ("Int", "INT", values, "netcdf4"), values)
%!assert (strides ("Int", "INT", values, "clobber"), values)
%!assert (class (whole ("Int", "INT", values, "netcdf4")), "int32")

%!shared values
%! values = [uint32(0) 1 2 3 77777 intmax("uint32")];
%!assert (whole ("Uint", "UINT", values, "netcdf4"), values)
%!assert (whole ("Uint", "UINT", values, 32), values)
%!assert (single_values ("Uint", "UINT", values, "netcdf4"), values)
%!assert (single_values ("Uint", "UINT", values, 32), values)
%!assert (blocks ("Uint", "UINT", values, "netcdf4"), values)
%!assert (blocks ("Uint", "UINT", values, 32), values)
%!assert (strides ("Uint", "UINT", values, "netcdf4"), values)
%!assert (strides ("Uint", "UINT", values, 32), values)
%!assert (class (whole ("Uint", "UINT", values, "netcdf4")), "uint32")

%!shared values
%! values = [intmin("int16") -1 0 1 777 intmax("int16")];
%!assert (whole ("Short", "SHORT", values, "netcdf4"), values)
%!assert (whole ("Short", "SHORT", values, "clobber"), values)
%!assert (single_values ("Short", "SHORT", values, "netcdf4"), values)
%!assert (single_values ("Short", "SHORT", values, "clobber"), values)
%!assert (blocks ("Short", "SHORT", values, "netcdf4"), values)
%!assert (blocks ("Short", "SHORT", values, "clobber"), values)
%!assert (strides ("Short", "SHORT", values, "netcdf4"), values)
%!assert (strides ("Short", "SHORT", values, "clobber"), values)
%!assert (class (whole ("Short", "SHORT", values, "netcdf4")), "int16")

%!shared values
%! values = [uint16(0) 1 2 3 777 intmax("uint16")];
%!assert (whole ("Ushort", "USHORT", values, "netcdf4"), values)
%!assert (whole ("Ushort", "USHORT", values, 32), values)
%!assert (single_values ("Ushort", "USHORT", values, "netcdf4"), values)
%!assert (single_values ("Ushort", "USHORT", values, 32), values)
%!assert (blocks ("Ushort", "USHORT", values, "netcdf4"), values)
%!assert (blocks ("Ushort", "USHORT", values, 32), values)
%!assert (strides ("Ushort", "USHORT", values, "netcdf4"), values)
%!assert (strides ("Ushort", "USHORT", values, 32), values)
%!assert (class (whole ("Ushort", "USHORT", values, "netcdf4")), "uint16")

%!shared values
%! values = [intmin("int8") -1 0 1 77 intmax("int8")];
%!assert (whole ("Schar", "BYTE", values, "netcdf4"), values)
%!assert (whole ("Schar", "BYTE", values, "clobber"), values)
%!assert (single_values ("Schar", "BYTE", values, "netcdf4"), values)
%!assert (single_values ("Schar", "BYTE", values, "clobber"), values)
%!assert (blocks ("Schar", "BYTE", values, "netcdf4"), values)
%!assert (blocks ("Schar", "BYTE", values, "clobber"), values)
%!assert (strides ("Schar", "BYTE", values, "netcdf4"), values)
%!assert (strides ("Schar", "BYTE", values, "clobber"), values)
%!assert (class (whole ("Schar", "BYTE", values, "netcdf4")), "int8")

%!shared values
%! values = [uint8(0) 1 2 3 77 intmax("uint8")];
%!assert (whole ("Uchar", "UBYTE", values, "netcdf4"), values)
%!assert (whole ("Uchar", "UBYTE", values, 32), values)
%!assert (single_values ("Uchar", "UBYTE", values, "netcdf4"), values)
%!assert (single_values ("Uchar", "UBYTE", values, 32), values)
%!assert (blocks ("Uchar", "UBYTE", values, "netcdf4"), values)
%!assert (blocks ("Uchar", "UBYTE", values, 32), values)
%!assert (strides ("Uchar", "UBYTE", values, "netcdf4"), values)
%!assert (strides ("Uchar", "UBYTE", values, 32), values)
%!assert (class (whole ("Uchar", "UBYTE", values, "netcdf4")), "uint8")

%!shared values
%! values = "abc xy";
%!assert (whole ("Text", "CHAR", values, "netcdf4"), values)
%!assert (whole ("Text", "CHAR", values, "clobber"), values)
%!assert (single_values ("Text", "CHAR", values, "netcdf4"), values)
%!assert (single_values ("Text", "CHAR", values, "clobber"), values)
%!assert (blocks ("Text", "CHAR", values, "netcdf4"), values)
%!assert (blocks ("Text", "CHAR", values, "clobber"), values)
%!assert (strides ("Text", "CHAR", values, "netcdf4"), values)
%!assert (strides ("Text", "CHAR", values, "clobber"), values)
%!assert (class (whole ("Text", "CHAR", values, "netcdf4")), "char")

%!shared

%!test
%! ## netCDF-4 files hold their values as HDF5 does, in the order of the array.
%! [ncid, varid, path] = new_variable ("DOUBLE", [2 3]);
%! gridio ("putVarDouble", ncid, varid, [1 2 3; 4 5 6]);
%! gridio ("close", ncid);
%! hdf5 = load ("-hdf5", path, "v");
%! assert (hdf5.v, [1 2 3; 4 5 6]);
%! delete (path);

%!test
%! ## Records are appended past the end of an unlimited dimension.
%! for mode = {"clobber", "64bit_offset", 32, "netcdf4"}
%!   [ncid, path] = new_file (mode{1});
%!   x = gridio ("defDim", ncid, "x", 2);
%!   time = gridio ("defDim", ncid, "time", nc ("UNLIMITED"));
%!   varid = gridio ("defVar", ncid, "v", nc ("DOUBLE"), [x time]);
%!   gridio ("endDef", ncid);
%!   for record = 0:4
%!     gridio ("putVaraDouble", ncid, varid, [0 record], [2 1], record + [0.25 0.5]);
%!   endfor
%!   [~, records] = gridio ("inqDim", ncid, time);
%!   assert (records, 5);
%!   assert (gridio ("getVarDouble", ncid, varid), [0.25; 0.5] + (0:4));
%!   finish (ncid, path);
%! endfor

%!test
%! ## Values are converted to the type in the file and back; what does not fit is an error.
%! [ncid, varid, path] = new_variable ("SHORT", 2);
%! gridio ("putVarDouble", ncid, varid, [7 -8.9]);
%! assert (gridio ("getVarDouble", ncid, varid), [7; -8]);
%! assert (gridio ("getVarInt64", ncid, varid), int64 ([7; -8]));
%! assert (status_of ("putVarDouble", ncid, varid, [7 40000]), "NC_ERANGE");
%! assert (status_of ("getVarUchar", ncid, varid), "NC_ERANGE");
%! assert (status_of ("getVarText", ncid, varid), "NC_ECHAR");
%! finish (ncid, path);

%!test
%! ## A variable without dimensions has one value.
%! [ncid, varid, path] = new_variable ("DOUBLE", []);
%! gridio ("putVarDouble", ncid, varid, pi);
%! assert (gridio ("getVarDouble", ncid, varid), pi);
%! finish (ncid, path);

%!test
%! ## Data of the wrong number or class, and places that are not there.
%! [ncid, varid, path] = new_variable ("DOUBLE", [3 2]);
%! assert (refusal_of ("putVarDouble", ncid, varid, 1:5), "dataSizeMismatch");
%! assert (refusal_of ("putVarDouble", ncid, varid, int8 (1:6)), "dataSizeMismatch");
%! assert (refusal_of ("putVarDouble", ncid, varid, []), "emptyVariableData");
%! assert (refusal_of ("putVaraDouble", ncid, varid, [0 0], [3 1], 1:4), "countNotEqualToData");
%! assert (refusal_of ("getVaraDouble", ncid, varid, 0, [1 1]), "badIndexArgumentLength");
%! assert (refusal_of ("getVaraDouble", ncid, varid, [0 NaN], [1 1]), "indexArgumentNotFinite");
%! assert (refusal_of ("getVaraDouble", ncid, varid, [0 -1], [1 1]), "argumentOutOfBounds");
%! assert (refusal_of ("getVaraDouble", ncid, varid, "ab", [1 1]), "argumentHasBadDatatype");
%! assert (refusal_of ("getVaraDouble", ncid, varid, [], [1 1]), "argumentIsEmpty");
%! assert (status_of ("getVaraDouble", ncid, varid, [0 2], [1 1]), "NC_EINVALCOORDS");
%! assert (status_of ("getVaraDouble", ncid, varid, [2 0], [2 1]), "NC_EEDGE");
%! assert (status_of ("getVarsDouble", ncid, varid, [0 0], [2 1], [0 1]), "NC_ESTRIDE");
%! assert (status_of ("getVar1Double", ncid, 7, [0 0]), "NC_ENOTVAR");
%! finish (ncid, path);

%!test
%! ## In a classic file no data pass in define mode.
%! [ncid, path] = new_file ("clobber");
%! varid = gridio ("defVar", ncid, "v", nc ("DOUBLE"), []);
%! assert (status_of ("putVarDouble", ncid, varid, 1), "NC_EINDEFINE");
%! finish (ncid, path);
