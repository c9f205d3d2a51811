% SPDX-License-Identifier: BSD-3-Clause
% The usual mistakes of newcomers: each message says what is wrong, names the object, and says what to do.
1;

function name = nc (constant)
  name = gridio ("parameter", constant);
end

% field.nc: classic, t (lon 4, lat 3, time 12 unlimited), title, counts; model.nc: netCDF-4 with a group and text values.
function make_files ()
  ncid = gridio ("create", "field.nc", "clobber");
  dims = [gridio("defDim", ncid, "lon", 4), gridio("defDim", ncid, "lat", 3), gridio("defDim", ncid, "time", 0)];
  t = gridio ("defVar", ncid, "t", nc ("NC_DOUBLE"), dims);
  gridio ("defVar", ncid, "title", nc ("NC_CHAR"), dims(1));
  gridio ("defVar", ncid, "counts", nc ("NC_BYTE"), dims(1:2));
  gridio ("defVar", ncid, "height", nc ("NC_DOUBLE"), []);
  gridio ("putAttText", ncid, t, "units", "K");
  gridio ("putAttText", ncid, -1, "history", "made");
  gridio ("endDef", ncid);
  gridio ("putVaraDouble", ncid, t, [0 0 0], [4 3 12], 280 * ones (4, 3, 12));
  gridio ("close", ncid);
  ncid = gridio ("create", "model.nc", "netcdf4");
  x = gridio ("defDim", ncid, "x", 5);
  gridio ("defVar", ncid, "temperature", nc ("NC_FLOAT"), x);
  gridio ("defVar", gridio ("defGrp", ncid, "ocean"), "salt", nc ("NC_FLOAT"), x);
  gridio ("close", ncid);
  stream = fopen ("words.cdl", "w");
  fputs (stream, "netcdf w { dimensions: n = 2; variables: string names(n); data: names = \"a\", \"b\"; }\n");
  fclose (stream);
  system ("ncgen -k netCDF-4 -o words.nc words.cdl");
  system ("head -c 2000 model.nc >cut.nc; gzip -k field.nc; mkdir folder; echo '<html>' >page.nc");
end

% Runs the code with the files open, and gives its error.
function failure = error_of (code)
  failure = struct ("identifier", "(no error)", "message", "");
  f = gridio ("open", "field.nc", "nowrite");
  m = gridio ("open", "model.nc", "nowrite");
  n = gridio ("create", "new.nc", "clobber"); % in define mode
  x = gridio ("defDim", n, "x", 5);
  time = gridio ("defDim", n, "time", 0);
  v = gridio ("defVar", n, "v", nc ("NC_INT"), x);
  n4 = gridio ("create", "new4.nc", "netcdf4");
  x4 = gridio ("defDim", n4, "x", 5);
  v4 = gridio ("defVar", n4, "v", nc ("NC_FLOAT"), x4);
  try
    evalc (code);
  catch failure
  end
  evalc ("clear -f gridio");
end

home = pwd ();
make_files ();
% The mistake; the call; the identifier; the words that the message must contain.
lib = "netcdf:libraryFailure";
mistakes = {
  "gridio without anything", 'gridio ()', "netcdf:unrecognizedOperation", {"\"open\", \"field.nc\", \"nowrite\"", "gridio_help ()"}
  "a misspelt operation", 'gridio ("openn", "field.nc", "nowrite")', "netcdf:unrecognizedOperation", {"\"openn\"", "did you mean \"open\""}
  "small letters", 'gridio ("getvardouble", f, 0)', "netcdf:unrecognizedOperation", {"did you mean \"getVarDouble\"", "Capital letters count"}
  "the library's own name", 'gridio ("nc_open", "field.nc", 0)', "netcdf:unrecognizedOperation", {"\"nc_open\"", "\"open\""}
  "a number first", 'gridio (f, "inqVar", 0)', "netcdf:unrecognizedOperation", {"first argument names an operation", "the number 65536"}
  "the mode forgotten", 'gridio ("open", "field.nc")', "validate:wrongNumberOfInputs", {"\"open\" takes 2 arguments", "1 was given", "ncid = gridio (\"open\", file, mode)"}
  "one argument too many", 'gridio ("inqVar", f, 0, "t")', "validate:wrongNumberOfInputs", {"takes 2 arguments", "3 were given", "gridio (\"inqVar\", ncid, varid)"}
  "a wrong path", 'gridio ("open", "data/field.nc", "nowrite")', lib, {"There is no folder", [home "/data"]}
  "a misspelt file", 'gridio ("open", "feild.nc", "nowrite")', lib, {"There is no file \"feild.nc\"", home, "Did you mean \"field.nc\"?"}
  "a folder for a file", 'gridio ("open", "folder", "nowrite")', lib, {[home "/folder\" is a folder"], "add the name of a file"}
  "a compressed file", 'gridio ("open", "field.nc.gz", "nowrite")', lib, {"field.nc.gz", "gzip", "unpack it first"}
  "a web page for a file", 'gridio ("open", "page.nc", "nowrite")', lib, {"page.nc", "not a netCDF file", "web page"}
  "a download that broke off", 'gridio ("open", "cut.nc", "nowrite")', lib, {"cut.nc", "cut short", "2000 bytes", "copied incompletely"}
  "no file name", 'gridio ("open", "", "nowrite")', "netcdf:librarydapFailure", {"The name of the file is empty"}
  "a name in a cell", 'gridio ("open", {"field.nc"}, "nowrite")', "netcdf:argumentWasNotChar", {"\"file\" must be text", "cell array"}
  "the mode of fopen", 'gridio ("open", "field.nc", "r")', "netcdf:unrecognizedFileMode", {"\"r\" is not a file mode", "did you mean \"nowrite\""}
  "true for the mode", 'gridio ("open", "field.nc", true)', "netcdf:badModeDatatype", {"The mode must be text", "logical value true"}
  "creating in a missing folder", 'gridio ("create", "out/new.nc", "netcdf4")', lib, {"There is no folder", [home "/out"]}
  "creating over a folder", 'gridio ("create", "folder", "netcdf4")', lib, {[home "/folder\" is a folder"]}
  "creating what must not be replaced", 'gridio ("create", "field.nc", "noclobber")', lib, {"already a file", "field.nc", "choose another name"}
  "creating an open file anew", 'gridio ("create", "new4.nc", "netcdf4")', lib, {"new4.nc\" is open in this session", "close it first"}
  "writing without \"write\"", 'gridio ("putVarFloat", m, 0, single (1:5))', lib, {"model.nc\" was opened for reading", "with the mode \"write\""}
  "an attribute without \"write\"", 'gridio ("putAttText", f, 0, "units", "K")', lib, {"NC_EPERM", "field.nc\" was opened for reading"}
  "a name for a file's identifier", 'gridio ("inqVarID", "field.nc", "t")', "netcdf:badScalarArgument", {"\"ncid\"", "the text \"field.nc\"", "gridio(\"open\", FILE, MODE)"}
  "a name for a variable's identifier", 'gridio ("getVarDouble", f, "t")', "netcdf:badScalarArgument", {"\"varid\"", "the text \"t\"", "gridio(\"inqVarID\", ncid, NAME)"}
  "a closed file", 'gridio ("close", f); gridio ("inqVarID", f, "t")', lib, {"NC_EBADID", "ncid is 65536", "it was closed, or never opened", "gridio_open_files()"}
  "a misspelt variable", 'gridio ("inqVarID", m, "temprature")', lib, {"no variable \"temprature\"", "Did you mean \"temperature\"?", "model.nc"}
  "a variable of another file", 'gridio ("inqVarID", f, "precipitation")', lib, {"Its variables are \"t\", \"title\", \"counts\" and \"height\"", "field.nc"}
  "a dimension for a variable", 'gridio ("inqVarID", f, "lon")', lib, {"no variable \"lon\"", "only a dimension"}
  "a variable in a group", 'gridio ("inqVarID", m, "salt")', lib, {"no variable \"salt\"", "The group \"/ocean\"", "has one of that name"}
  "variables counted from 1", 'gridio ("getVarDouble", f, 4)', lib, {"identifier 4", "identifiers from 0 to 3", "\"t\""}
  "a misspelt dimension", 'gridio ("inqDimID", f, "latt")', lib, {"no dimension \"latt\"", "Did you mean \"lat\"?"}
  "a misspelt attribute", 'gridio ("getAttText", f, 0, "unit")', lib, {"variable \"t\" has no attribute \"unit\"", "Did you mean \"units\"?"}
  "an attribute of the file sought at a variable", 'gridio ("getAttText", f, 0, "history")', lib, {"no attribute \"history\"", "The file itself (NC_GLOBAL, -1) has one"}
  "a misspelt constant", 'gridio ("parameter", "NC_DUBLE")', "netcdf:unrecognizedCharParameter", {"no constant \"NC_DUBLE\"", "did you mean \"NC_DOUBLE\""}
  "START counted from 1", 'gridio ("getVaraDouble", f, 0, [1 1 1], [4 3 12])', lib, {"NC_EEDGE", "START 1 and COUNT 4 reach to 5 along dimension \"lon\" (first of 3, length 4)", "count from 0"}
  "START behind the end", 'gridio ("getVar1Double", f, 0, [0 0 12])', lib, {"START 12 lies past the end of dimension \"time\"", "positions go from 0 to 11"}
  "COUNT behind the end", 'gridio ("getVaraDouble", f, 0, [0 0 10], [4 3 5])', lib, {"START 10 and COUNT 5 reach to 15 along dimension \"time\" (third of 3"}
  "the order of ncdump", 'gridio ("getVaraDouble", f, 0, [0 0 0], [12 3 4])', lib, {"In the reverse order they would fit", "lon, lat, time"}
  "a negative START", 'gridio ("getVaraDouble", f, 0, [0 -1 0], [1 1 1])', "validate:argumentOutOfBounds", {"START holds -1 for dimension \"lat\"", "Positions count from 0"}
  "an element of COUNT forgotten", 'gridio ("getVaraDouble", f, 0, [0 0 0], [4 3])', "netcdf:badIndexArgumentLength", {"COUNT needs 3 elements, one for each dimension of variable \"t\" (lon, lat, time), and has 2"}
  "START for a single value", 'gridio ("getVaraDouble", f, 3, 0, 1)', "netcdf:badIndexArgumentLength", {"\"height\" has no dimensions", "\"getVarDouble\""}
  "Inf for the end", 'gridio ("getVaraDouble", f, 0, [0 0 0], [4 3 Inf])', "netcdf:indexArgumentNotFinite", {"COUNT holds Inf for dimension \"time\"", "its length less START"}
  "a stride of 0", 'gridio ("getVarsDouble", f, 0, [0 0 0], [1 1 1], [1 1 0])', lib, {"STRIDE holds 0 for dimension \"time\"", "must be 1 or more"}
  "text read as numbers", 'gridio ("getVarDouble", f, 1)', lib, {"variable \"title\" holds text", "use \"getVarText\""}
  "numbers read as text", 'gridio ("getVarText", f, 0)', lib, {"variable \"t\" holds numbers (NC_DOUBLE)", "use \"getVarDouble\""}
  "strings", 'gridio ("getVarText", gridio ("open", "words.nc", "nowrite"), 0)', lib, {"variable \"names\" is of type NC_STRING", "ncdump"}
  "writing in define mode", 'gridio ("putVarInt", n, v, int32 (1:5))', lib, {"NC_EINDEFINE", "define mode", "gridio(\"endDef\", ncid)", "new.nc"}
  "defining in data mode", 'gridio ("endDef", n); gridio ("defDim", n, "y", 3)', lib, {"NC_ENOTINDEFINE", "data mode", "gridio(\"redef\", ncid)"}
  "a name in use", 'gridio ("defVar", n, "v", nc ("NC_INT"), x)', lib, {"already a variable \"v\"", "new.nc"}
  "a slash in a name", 'gridio ("defVar", n, "wind/speed", nc ("NC_INT"), x)', lib, {"\"wind/speed\" holds a slash"}
  "lengths for the identifiers of dimensions", 'gridio ("defVar", n, "w", nc ("NC_INT"), [5 3])', lib, {"no dimension with the identifier 5", "not lengths"}
  "a type by its name", 'gridio ("defVar", n, "w", "double", x)', "netcdf:badScalarArgument", {"\"xtype\"", "the text \"double\"", "gridio(\"parameter\", \"NC_DOUBLE\")"}
  "integers for identifiers", 'gridio ("defVar", n, "w", nc ("NC_INT"), int32 (x))', "netcdf:badRowDatatype", {"\"dimids\"", "class int32", "double(...)"}
  "the unlimited dimension first", 'gridio ("defVar", n, "w", nc ("NC_INT"), [time x])', lib, {"\"time\" stands first of 2 in (time, x); put it last: (x, time)"}
  "two unlimited dimensions", 'gridio ("defDim", n, "record", 0)', lib, {"already has the unlimited dimension \"time\"", "\"netcdf4\""}
  "a negative length", 'gridio ("defDim", n, "z", -5)', "validate:argumentOutOfBounds", {"\"dim_length\" is -5", "0 or more"}
  "a 64-bit integer in a classic file", 'gridio ("defVar", n, "w", nc ("NC_INT64"), x)', lib, {"NC_INT64 is not available", "classic"}
  "compression of a classic file", 'gridio ("defVarDeflate", n, v, true, true, 4)', lib, {"NC_ENOTNC4", "format of the file is classic", "\"netcdf4\""}
  "1 for true", 'gridio ("defVarDeflate", n4, v4, 1, 1, 4)', "netcdf:expectedLogicalType", {"\"shuffle flag\"", "the number 1", "true or false"}
  "a level of compression above 9", 'gridio ("defVarDeflate", n4, v4, true, true, 10)', lib, {"The deflate level is 10", "from 0 (none) to 9"}
  "chunks larger than the dimension", 'gridio ("defVarChunking", n4, v4, 0, 50)', lib, {"chunk size 50 is larger than dimension \"x\" (length 5)"}
  "NaN for an integer's fill value", 'gridio ("defVarFill", n4, gridio ("defVar", n4, "i", nc ("NC_INT"), x4), false, NaN)', "validate:argumentOutOfBounds", {"The fill value NaN does not fit the variable \"i\"", "NC_INT"}
  "_FillValue as an attribute", 'gridio ("putAttFloat", n4, v4, "_FillValue", nc ("NC_FLOAT"), single (-999))', "netcdf:postCreationFillValueDefinition", {"gridio (\"defVarFill\", ncid, varid, false, -999)"}
  "too few values", 'gridio ("endDef", n); gridio ("putVarInt", n, v, int32 (1:3))', "netcdf:dataSizeMismatch", {"The variable has 5 values, and 3 were given", "\"v\" (x 5)"}
  "records written as a whole", 'gridio ("putVarDouble", gridio ("open", "field.nc", "write"), 0, ones (4, 3, 13))', "netcdf:dataSizeMismatch", {"unlimited dimension \"time\" has the length 12", "START and COUNT"}
  "values that do not fit COUNT", 'gridio ("endDef", n); gridio ("putVaraInt", n, v, 0, 3, int32 (1:5))', "netcdf:countNotEqualToData", {"COUNT asks for 3 values, and 5 were given", "\"v\" (x 5)"}
  "values of a smaller class", 'gridio ("endDef", n); gridio ("putVarInt", n, v, int8 (1:5))', "netcdf:dataSizeMismatch", {"\"putVarInt\" takes values of class int32, and they are of class int8"}
  "values out of range", 'gridio ("endDef", n); gridio ("putVarDouble", n, v, 1e10 * (1:5))', lib, {"NC_ERANGE", "\"v\" is of type NC_INT, which holds -2147483648 to 2147483647"}
  "nothing to write", 'gridio ("endDef", n); gridio ("putVarInt", n, v, [])', "netcdf:emptyVariableData", {"The values to write are empty", "The variable has 5 values"}
};
check ("at least forty", rows (mistakes) >= 40);
for k = 1:rows (mistakes)
  [what, code, identifier, words] = mistakes{k,:};
  failure = error_of (code);
  check (sprintf ("%s: %s instead of %s\n%s", what, failure.identifier, identifier, failure.message),
         strcmp (failure.identifier, ["Ovard:gridio:" identifier]));
  for word = words
    check (sprintf ("%s: no '%s' in\n%s", what, word{1}, failure.message), ! isempty (strfind (failure.message, word{1})));
  end
end

% Calls that are not errors, but would silently store nonsense without a warning.
warned = {
  'gridio ("endDef", n); gridio ("putVarInt", n, v, 1:5)', {"class int32", "class double", "int32 (x)"}
  'gridio ("putVarFloat", n4, v4, 1:5)', {"class single", "class double", "single (x)"}
  'gridio ("putAttText", n4, v4, "number", 5)', {"class char", "num2str (x)"}
  'gridio ("putAttShort", n4, v4, "number", 3, "15.5")', {"class int16", "class char", "end in \"Text\""}
  'gridio ("putVarFloat", n4, v4, single ((1:5) * 1i))', {"imaginary part is left out"}
};
for k = 1:rows (warned)
  lastwarn ("", "");
  failure = error_of ([warned{k,1} "; error (lastwarn ())"]);
  for word = warned{k,2}
    check (sprintf ("%s: no '%s' in\n%s", warned{k,1}, word{1}, failure.message), ! isempty (strfind (failure.message, word{1})));
  end
end
conclude ();
