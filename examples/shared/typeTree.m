% SPDX-License-Identifier: BSD-3-Clause

% typeTree (NCID, XTYPE): what is known about a type of any kind, a struct.
%   id       its number
%   name     its name, such as "short"
%   class    "number", "char", "string", "enum", "vlen", "compound" or "opaque"
%   bytes    the size of one value in memory, without the elements of vlens and the text of strings
%   base     of a vlen: the type of its elements, such a struct; of an enum: that of its integers
%   members  of an enum: a struct array with the fields name and value
%   fields   of a compound type: a struct array with the fields name, offset, type (such a struct) and
%            lengths (of an array, the fastest varying first)
function type = typeTree (ncid, xtype)
  [name, bytes] = gridio_any ("inqType", ncid, xtype);
  type = struct ("id", xtype, "name", name, "class", "number", "bytes", bytes, "base", [], ...
                 "members", struct ("name", {}, "value", {}), ...
                 "fields", struct ("name", {}, "offset", {}, "type", {}, "lengths", {}));
  if (xtype <= 12)  % the library's own types
    if (any (strcmp (name, {"char", "string"})))
      type.class = name;
    endif
    return;
  endif
  [~, ~, base, count, type.class] = gridio_any ("inqUserType", ncid, xtype);
  if (any (strcmp (type.class, {"enum", "vlen"})))
    type.base = typeTree (ncid, base);
  endif
  if (strcmp (type.class, "vlen"))
    type.bytes = 16;  % a pointer and a length; the library gives the size of an element
  endif
  for k = 0:count - 1
    if (strcmp (type.class, "enum"))
      [name, value] = gridio_any ("inqEnumMember", ncid, xtype, k);
      type.members(end + 1) = struct ("name", name, "value", value);
    else
      [name, offset, fieldType, lengths] = gridio_any ("inqCompoundField", ncid, xtype, k);
      type.fields(end + 1) = struct ("name", name, "offset", offset, "lengths", lengths, ...
                                     "type", typeTree (ncid, fieldType));
    endif
  endfor
endfunction
