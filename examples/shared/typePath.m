% SPDX-License-Identifier: BSD-3-Clause

% typePath (NCID, XTYPE, ROOT): the name of a type in CDL as seen from a group: with its path if the
% type belongs neither to the group nor to one above, or is hidden by a nearer one of its name. ROOT is
% the identifier of the file.
function path = typePath (ncid, xtype, root)
  name = gridio_any ("inqType", ncid, xtype);
  path = escapeName (name);
  if (xtype <= 12 || isSeenFrom (ncid, xtype, name, root))
    return;
  endif
  groups = root;
  while (! isempty (groups))
    [group, groups] = deal (groups(1), [groups(2:end), gridio("inqGrps", groups(1))]);
    if (any (gridio_any ("inqTypeIDs", group) == xtype))
      above = escapeName (gridio ("inqGrpNameFull", group));
      path = [above(1:end - strcmp (above, "/")) "/" path];
      return;
    endif
  endwhile
endfunction

function yes = isSeenFrom (group, xtype, name, root)
  yes = false;
  while (true)
    for id = gridio_any ("inqTypeIDs", group)
      yes = (id == xtype);
      if (yes || strcmp (gridio_any ("inqType", group, id), name))
        return;
      endif
    endfor
    if (group == root)
      return;
    endif
    group = gridio ("inqGrpParent", group);
  endwhile
endfunction
