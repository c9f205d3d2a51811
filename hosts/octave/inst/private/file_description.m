## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{d} =} file_description (@var{ncid})
## Undocumented internal function: the groups, dimensions and variables of a file, as gridio_native describes them, with the
## paths of groups and variables without the first slash, and the dimensions whose characters make texts: nothing but
## characters lies along them.
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
  [d.variables.mayBeAxis, d.variables.coordinates] = axes_and_coordinates (d);

endfunction

## Which variables may serve as an axis, at a look at all attributes together, and the texts of the attribute coordinates.
function [mayBe, coordinates] = axes_and_coordinates (d)

  count = numel (d.variables.name);
  coordinates = repmat ({""}, count, 1);
  mayBe = ! cellfun (@isempty, regexpi (d.variables.name(:), '^(lon|lat|time$|lev|nav_)', "once"));
  counts = cellfun (@rows, d.variables.attributes(:));
  all = vertcat (cell (0, 2), d.variables.attributes{counts > 0});
  first = accumarray (cumsum ([1; counts])(1:end-1)(counts > 0), diff ([0; find(counts > 0)]), [rows(all), 1]);
  owners = cumsum (first);
  isText = cellfun (@ischar, all(:,2));
  named = @(name) find (strcmp (all(:,1), name) & isText);
  mayBe(owners(named ("axis"))) = true;
  mayBe(owners(named ("positive"))) = true;
  at = named ("standard_name");
  mayBe(owners(at(ismember (all(at,2), [{"longitude", "latitude", "time"}, vertical_names()])))) = true;
  at = named ("units");
  units = cellfun (@readable_text, all(at,2), "UniformOutput", false);
  mayBe(owners(at(! cellfun (@isempty, regexpi (units, '^\s*([a-z]+\s+(since|after|from|ref|@)\s|deg)', "once"))))) = true;
  at = named ("coordinates");
  coordinates(owners(at)) = cellfun (@readable_text, all(at,2), "UniformOutput", false);

endfunction
