% SPDX-License-Identifier: BSD-3-Clause
% elementType (XTYPE): what is known about the values of a netCDF type.
%   name       its name in CDL, such as "short"
%   operation  how gridio's operations for it end, such as "Short" of "getVaraShort";
%              empty for strings and user-defined types, whose values no operation reads
%   suffix     what CDL writes behind its numbers, such as "s" of "3s"
function type = elementType (xtype)
  persistent types;
  if (isempty (types))
    table = {"byte", "Schar", "b";  "char", "Text", "";       "short", "Short", "s";
             "int", "Int", "";      "float", "Float", "f";    "double", "Double", "";
             "ubyte", "Uchar", "UB"; "ushort", "Ushort", "US"; "uint", "Uint", "U";
             "int64", "Int64", "LL"; "uint64", "Uint64", "ULL"};
    for i = 1:rows (table)
      number = gridio ("parameter", ["NC_" upper(table{i, 1})]);
      types{number} = struct ("name", table{i, 1}, "operation", table{i, 2}, "suffix", table{i, 3});
    endfor
    types{12} = struct ("name", "string", "operation", "", "suffix", "");  % no constant names it
  endif
  if (xtype <= numel (types))
    type = types{xtype};
  else
    type = struct ("name", sprintf ("user_type_%d", xtype), "operation", "", "suffix", "");
  endif
endfunction
