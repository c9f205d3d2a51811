## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} file_description
## Undocumented internal function: the groups, dimensions and variables of a file, as gridio_native describes them, with the paths of groups
## and variables without the first slash, and the dimensions whose characters make texts: nothing but characters lies along
## them.
## @end deftypefn

function d = file_description (ncid)

  d = gridio_native ("describe", ncid);
  d.groups.path = regexprep (d.groups.name(:), '^/', "");
  ahead = d.groups.path;
  isBelow = ! cellfun (@isempty, ahead);
  ahead(isBelow) = strcat (ahead(isBelow), "/");
  d.variables.path = strcat (ahead(d.variables.group(:)), d.variables.name(:))(:);
  lists = cellfun (@(list) double (list(:)'), d.variables.dimensions(! strcmp (d.variables.kind, "char"))(:)', ...
                   "UniformOutput", false);
  d.dimensions.isTextLength = true (size (d.dimensions.length));
  d.dimensions.isTextLength([lists{:}]) = false;

endfunction
