% SPDX-License-Identifier: BSD-3-Clause

% nullStrings (TYPE, VALUES): how many strings among values are null, which read as 0-by-0 text. TYPE
% is what typeTree gives.
function count = nullStrings (type, values)
  count = 0;
  switch (type.class)
    case "string"
      if (ischar (values))
        values = {values};
      endif
      count = sum (cellfun ("size", values(:), 1) == 0);
    case "vlen"
      if (any (strcmp (type.base.class, {"string", "vlen", "compound"})))
        for k = 1:numel (values)
          count += nullStrings (type.base, values{k});
        endfor
      endif
    case "compound"
      for field = type.fields
        count += nullStrings (field.type, values.(field.name));
      endfor
  endswitch
endfunction
