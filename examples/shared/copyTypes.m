% SPDX-License-Identifier: BSD-3-Clause

% copyTypes (GROUPS): defines the types of a file in another one. GROUPS is a struct array of the groups,
% with the identifiers source and target. XTYPES(t) is the target's number of the source's type t.
function xtypes = copyTypes (groups)
  xtypes = 1:12;
  found = zeros (2, 0);  % the number of each type, and its group
  for g = 1:numel (groups)
    ids = gridio_any ("inqTypeIDs", groups(g).source);
    found = [found, [ids; repmat(g, size (ids))]];
  endfor
  % A type that others are made of has a smaller number than they have.
  for next = sortrows (found')'
    group = groups(next(2));
    xtypes(next(1)) = copyType (typeTree (group.source, next(1)), group.target, xtypes);
  endfor
endfunction

function xtype = copyType (type, target, xtypes)
  switch (type.class)
    case "enum"
      xtype = gridio_any ("defEnum", target, type.base.id, type.name);
      for member = type.members
        gridio_any ("insertEnum", target, xtype, member.name, member.value);
      endfor
    case "vlen"
      xtype = gridio_any ("defVlen", target, type.name, xtypes(type.base.id));
    case "opaque"
      xtype = gridio_any ("defOpaque", target, type.bytes, type.name);
    case "compound"
      xtype = gridio_any ("defCompound", target, type.bytes, type.name);
      for field = type.fields
        definition = {target, xtype, field.name, field.offset, xtypes(field.type.id)};
        if (isempty (field.lengths))
          gridio_any ("insertCompound", definition{:});
        else
          gridio_any ("insertArrayCompound", definition{:}, field.lengths);
        endif
      endfor
  endswitch
endfunction
