## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{flags} =} flags_of (@var{file}, @var{number})
## Undocumented internal function: the values or masks of a variable and their meanings, in rows.
## @end deftypefn

function flags = flags_of (file, number)

  d = file.d;
  if (strcmp (d.variables.kind{number}, "enum"))
    flags = members (d.groups.ncid(d.variables.group(number)), d.variables.varid(number));
    return;
  endif
  attributes = d.variables.attributes{number};
  [~, values] = attribute_value (attributes, "flag_values");
  [~, masks] = attribute_value (attributes, "flag_masks");
  meanings = strsplit (attribute_text (attributes, "flag_meanings"), {" ", "\t", "\n", "\r"});
  meanings = regexprep (meanings(! cellfun (@isempty, meanings)), ',$', "");
  if (isempty (meanings) || ! (isnumeric (values) && isnumeric (masks)) || (isempty (values) && isempty (masks)))
    fail ("noLabels", "variable '%s' has no labels: it needs an enumeration, or flag_meanings with flag_values or flag_masks", ...
          visible_text (d.variables.path{number}));
  endif
  flags = struct ("values", double (values(:)'), "masks", double (masks(:)'), "meanings", {meanings});
  counts = [numel(values), numel(masks)];
  if (any (counts(counts > 0) != numel (meanings)))
    fail ("noLabels", "flag_meanings of variable '%s' has %d words, but there are %d flag_values and %d flag_masks", ...
          visible_text (d.variables.path{number}), numel (meanings), counts);
  endif

endfunction

function flags = members (ncid, varid)

  [~, type] = gridio ("inqVar", ncid, varid);
  [~, ~, ~, count] = gridio_any ("inqUserType", ncid, type);
  flags = struct ("values", zeros (1, count), "masks", [], "meanings", {cell(1, count)});
  for k = 1:count
    [flags.meanings{k}, value] = gridio_any ("inqEnumMember", ncid, type, k - 1);
    flags.values(k) = double (value);
  endfor

endfunction
