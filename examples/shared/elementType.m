% SPDX-License-Identifier: BSD-3-Clause

% elementType (XTYPE): what is known about the values of a netCDF type, a struct.
%   name       its name in CDL, such as "short"
%   operation  how gridio's operations for it end, such as "Short" of "getVaraShort";
%              empty for strings and user-defined types, whose values no operation reads
%   suffix     what CDL writes behind its numbers, such as "s" of "3s"
%   bytes      the size of one value
function type = elementType (xtype)
  persistent types;
  if (isempty (types))
    table = {"byte",   "Schar",  "b",   1
             "char",   "Text",   "",    1
             "short",  "Short",  "s",   2
             "int",    "Int",    "",    4
             "float",  "Float",  "f",   4
             "double", "Double", "",    8
             "ubyte",  "Uchar",  "UB",  1
             "ushort", "Ushort", "US",  2
             "uint",   "Uint",   "U",   4
             "int64",  "Int64",  "LL",  8
             "uint64", "Uint64", "ULL", 8};
    for i = 1:rows (table)
      number = gridio ("parameter", ["NC_" upper(table{i, 1})]);
      types{number} = cell2struct (table(i, :), {"name", "operation", "suffix", "bytes"}, 2);
    endfor
    types{12} = noOperation ("string");  % no constant names it
  endif
  if (xtype <= numel (types))
    type = types{xtype};
  else
    type = noOperation (sprintf ("user_type_%d", xtype));
  endif
endfunction

function type = noOperation (name)
  type = struct ("name", name, "operation", "", "suffix", "", "bytes", NaN);
endfunction
