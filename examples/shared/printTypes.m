% SPDX-License-Identifier: BSD-3-Clause

% printTypes (NCID, INDENT, ROOT): the section "types:" of a group in CDL, if it defines types. ROOT is
% the identifier of the file.
function printTypes (ncid, indent, root)
  xtypes = gridio_any ("inqTypeIDs", ncid);
  if (! isempty (xtypes))
    printf ("%stypes:\n", indent);
  endif
  inner = [indent "  "];
  for xtype = xtypes
    type = typeTree (ncid, xtype);
    name = typePath (ncid, xtype, root);
    switch (type.class)
      case "enum"
        printEnum (type, inner);
      case "opaque"
        printf ("%sopaque(%d) %s ;\n", inner, type.bytes, name);
      case "vlen"
        printf ("%s%s(*) %s ;\n", inner, typePath (ncid, type.base.id, root), name);
      case "compound"
        printf ("%scompound %s {\n", inner, name);
        for field = type.fields
          lengths = "";
          if (! isempty (field.lengths))
            lengths = sprintf (", %d", fliplr (field.lengths));
            lengths = ["(" lengths(3:end) ")"];
          endif
          fieldType = typePath (ncid, field.type.id, root);
          printf ("%s  %s %s%s ;\n", inner, fieldType, escapeName (field.name), lengths);
        endfor
        printf ("%s}; // %s\n", inner, name);
    endswitch
  endfor
endfunction

function printEnum (type, indent)
  puts (indent);
  putPiece (sprintf ("%s enum %s {", type.base.name, escapeName (type.name)), indent);
  for k = 1:numel (type.members)
    value = type.members(k).value;
    if (isa (value, "uint64"))
      value = typecast (value, "int64");  % as ncdump prints it
    endif
    ending = {", ", "} ;\n"}{1 + (k == numel (type.members))};
    putPiece ([escapeName(type.members(k).name) " = " numberText(value) ending], indent);
  endfor
endfunction
