% SPDX-License-Identifier: BSD-3-Clause
% Checks with ncdump what the library receives for each kind of value of the interpreter.
1;
% Values of every class are written on purpose.
warning ("off", "Ovard:gridio:octave:rawBytes");

% Every kind of value, with the suffix for its storage in memory and the netCDF type for it.
function kinds = numeric_kinds ()
  m = reshape (1:6, 2, 3) + 0.25;
  long = 101:120;
  long(3) = -7;
  held.field = m;
  cells = {m};
  grown = [];
  grown(1) = 5;
  permuted = eye (3)([2 3 1], :);
  kinds = {
    "literal",                 3,                        "Double", 3
    "double scalar",           pi,                       "Double", pi
    "scalar grown from empty", grown,                    "Double", 5
    "double matrix",           m,                        "Double", m
    "transposed matrix",       m',                       "Double", m.'
    "3-d array",               reshape(1:8, 2, 2, 2),   "Double", 1:8
    "slice",                   long(5:end),              "Double", 105:120
    "field of a structure",    held.field,               "Double", m
    "element of a cell",       cells{1},                 "Double", m
    "range",                   1:10,                     "Double", [1 2 3 4 5 6 7 8 9 10]
    "range of fractions",      0:0.25:1,                 "Double", [0 0.25 0.5 0.75 1]
    "range downwards",         5:-2:1,                   "Double", [5 3 1]
    "negated range",           -(1:3),                   "Double", [-1 -2 -3]
    "range of one",            4:4,                      "Double", 4
    "single from range",       single(1:3),             "Float",  [1 2 3]
    "int32 range",             int32(1):int32(4),      "Int",    [1 2 3 4]
    "lazy index",              find([0 1 0 1]),         "Double", [2 4]
    "sparse",                  sparse([0 2; 0 3]),      "Double", [0 0 2 3]
    "sparse scalar",           sparse(7),               "Double", 7
    "all-zero sparse",         sparse(2, 2),            "Double", [0 0 0 0]
    "complex sparse",          sparse([1+2i 0 3i]),     "Double", [1 0 0]
    "identity",                eye(2),                  "Double", [1 0 0 1]
    "scaled identity",         3*eye(2),              "Double", [3 0 0 3]
    "wide diagonal",           eye(2, 3),               "Double", [1 0 0 1 0 0]
    "single diagonal",         single(2)*eye(2),     "Float",  [2 0 0 2]
    "complex diagonal",        (1+i)*eye(2),          "Double", [1 0 0 1]
    "permutation",             permuted,                 "Double", [0 0 1 1 0 0 0 1 0]
    "complex matrix",          [1+2i 3-4i],              "Double", [1 3]
    "complex scalar",          5-6i,                     "Double", 5
    "single complex matrix",   single([1+2i 3-4i]),     "Float",  [1 3]
    "single complex scalar",   single(5-6i),            "Float",  5
    "single matrix",           single(m),               "Float",  m
    "single scalar",           single(0.375),             "Float",  0.375
    "int8 matrix",             int8([-128 127]),        "Schar",  [-128 127]
    "int8 scalar",             int8(-3),                "Schar",  -3
    "uint8 matrix",            uint8([0 255]),          "Uchar",  [0 255]
    "uint8 scalar",            uint8(200),              "Uchar",  200
    "int16 matrix",            int16([-32768 32767]),   "Short",  [-32768 32767]
    "int16 scalar",            int16(-300),             "Short",  -300
    "uint16 matrix",           uint16([0 65534]),       "Ushort", [0 65534]
    "uint16 scalar",           uint16(65000),           "Ushort", 65000
    "int32 matrix",            int32([-5 2147483646]),  "Int",    [-5 2147483646]
    "int32 scalar",            int32(-70000),           "Int",    -70000
    "uint32 matrix",           uint32([0 4294967290]),  "Uint",   [0 4294967290]
    "uint32 scalar",           uint32(4e9),             "Uint",   4e9
    "int64 matrix",            int64([-2^53 2^53]),     "Int64",  [-2^53 2^53]
    "int64 scalar",            int64(-2^40),            "Int64",  -2^40
    "uint64 matrix",           uint64([0 2^53]),        "Uint64", [0 2^53]
    "uint64 scalar",           uint64(2^40),            "Uint64", 2^40
    "logical matrix",          [true false true],        "Schar",  [1 0 1]
    "logical scalar",          true,                     "Schar",  1
    "comparison",              m > 2,                    "Schar",  double(m > 2)
    "sparse logical",          sparse([true false]),    "Schar",  [1 0]
  };
end

types = struct ("Double", "NC_DOUBLE", "Float", "NC_FLOAT", "Schar", "NC_BYTE", "Uchar", "NC_UBYTE",
                "Short", "NC_SHORT", "Ushort", "NC_USHORT", "Int", "NC_INT", "Uint", "NC_UINT",
                "Int64", "NC_INT64", "Uint64", "NC_UINT64");
kinds = numeric_kinds ();
[ncid, path] = new_file ("netcdf4");
for k = 1:rows (kinds)
  x = gridio ("defDim", ncid, sprintf ("x%d", k), numel (kinds{k, 4}));
  xtype = gridio ("parameter", types.(kinds{k, 3}));
  varids(k) = gridio ("defVar", ncid, sprintf ("v%d", k), xtype, x);
end
gridio ("endDef", ncid);
for k = 1:rows (kinds)
  value = kinds{k, 2};
  gridio (["putVar" kinds{k, 3}], ncid, varids(k), value);
  check ([kinds{k, 1} ": the argument is left as it was"], isequal (value, kinds{k, 2}));
end
gridio ("close", ncid);
for k = 1:rows (kinds)
  written = dumped (path, sprintf ("v%d", k));
  check ([kinds{k, 1} " arrives in storage order"], isequal (written, kinds{k, 4}(:).'));
end

% The same kinds as scalars and index vectors.
[ncid, path] = new_file ();
scalars = {3, 4:4, single(5), int8(6), uint64(7), 8+1i, sparse(9), 1e1*eye(1), single(11+i)};
for k = 1:numel (scalars)
  name = sprintf ("d%d", k);
  dimid = gridio ("defDim", ncid, name, scalars{k});
  [~, length] = gridio ("inqDim", ncid, dimid);
  check (["a length given as " class(scalars{k})], length == 2 + k);
end
varid = gridio ("defVar", ncid, "v", gridio ("parameter", "NC_DOUBLE"), 0:1);
gridio ("endDef", ncid);
gridio ("putVarDouble", ncid, varid, reshape (1:12, 3, 4));
starts = {[1 2], 1:2, int8([1 2]), single(1:2), sparse([1 2]), [1+i 2], uint64([1 2])};
for k = 1:numel (starts)
  check (["a start given as " class(starts{k})],
         gridio ("getVar1Double", ncid, varid, starts{k}) == 8);
end
gridio ("close", ncid);

% Values that are neither a number, nor a text, nor a flag.
[ncid, path] = new_file ();
global impostorCalls
impostorCalls = {};
objects = {struct(), struct("a", {1, 2, 3}), repmat(struct(), 0, 0), {}, {1}, {"a", "b"}, @sin, @(x) x, ...
           containers.Map(), Impostor(), impostor(), inputParser(), onCleanup(@() 0)};
for k = 1:numel (objects)
  kind = class (objects{k});
  check_error ([kind " is no number"], "netcdf:badScalarArgument", "sync", objects{k});
  check_error ([kind " is no text"], "netcdf:argumentWasNotChar", "defDim", ncid, objects{k}, 1);
  check_error ([kind " is no operation"], "netcdf:unrecognizedOperation", objects{k}, ncid);
  check_error ([kind " is no flag"], "netcdf:expectedLogicalType", "defVarFill", ncid, 0, objects{k}, 0);
end
check ("no method of an object was called", isempty (impostorCalls));
list = struct ("a", {1, 2, 3});
check_error ("no structures are no mode", "netcdf:argumentIsEmptySet", "open", path, list([]));
check_error ("structures are no mode", "netcdf:badModeDatatype", "open", path, list);
check_error ("no structures are no start", "netcdf:argumentIsEmpty", "getVar1Double", ncid, 0, list([]));
check_error ("structures are no start", "netcdf:argumentHasBadDatatype", "getVar1Double", ncid, 0, list);
check_error ("no structures are no values", "netcdf:emptyVariableData", "putVarDouble", ncid, 0, list([]));
numbers = {"5", "", '', [], zeros(0, 3), zeros(1, 0, 2), int8([]), [1 2], eye(2), 1:3, 1:0, sparse(2, 2), ...
           true, sparse(true), NaN, Inf, single(-Inf), NaN + 1i, sparse(NaN), "é", ':'};
for k = 1:numel (numbers)
  check_error (sprintf ("not a scalar number: %s", disp (numbers{k})), "netcdf:badScalarArgument",
               "sync", numbers{k});
end
flags = {1, [true true], true(0), "t", single(1), sparse([true true])};
for k = 1:numel (flags)
  check_error (sprintf ("not a flag: %s", disp (flags{k})), "netcdf:expectedLogicalType",
               "defVarFill", ncid, 0, flags{k}, 0);
end
texts = {1, true, int8(65), {"a"}, [], single(1), 65:70};
for k = 1:numel (texts)
  check_error (["not a text: " class(texts{k})], "netcdf:argumentWasNotChar",
               "inqVarID", ncid, texts{k});
end
check_error ("no operation at all", "netcdf:unrecognizedOperation");
check_error ("an empty operation", "netcdf:unrecognizedOperation", "");
check_error ("[] as operation", "netcdf:unrecognizedOperation", []);
check_error ("a number as operation", "netcdf:unrecognizedOperation", 49, ncid);
check_error ("bytes as operation", "netcdf:unrecognizedOperation", uint8 ("sync"), ncid);
gridio ("close", ncid);
conclude ();
