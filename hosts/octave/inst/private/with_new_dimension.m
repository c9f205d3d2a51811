## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{d}, @var{many}] =} with_new_dimension (@var{d}, @var{many}, @var{name})
## Undocumented internal function: the description of files that lie behind one another along a new dimension.  Coordinates,
## and what attributes name as part of them, are those of the first file.  The new coordinate has the numbers in which the
## files' names differ, or the names.
## @end deftypefn

function [d, many] = with_new_dimension (d, many, name)

  dims = numel (d.dimensions.name) + 1;
  d.dimensions.name{dims,1} = name;
  d.dimensions.group(dims,1) = 1;
  d.dimensions.dimid(dims,1) = -1;
  d.dimensions.length(dims,1) = many.offsets(end);
  d.dimensions.isUnlimited(dims,1) = 0;
  d.dimensions.isTextLength(dims,1) = false;
  many.dimension = dims;

  listed = {};
  for attributes = d.variables.attributes(:)'
    for about = {"bounds", "climatology", "coordinates", "grid_mapping", "cell_measures", "formula_terms"}
      listed = [listed, ostrsplit(attribute_text (attributes{1}, about{1}), " \t\r\n:", true)];
    endfor
  endfor
  for k = 1:numel (d.variables.name)
    isCoordinate = any (strcmp (d.variables.name{k}, listed)) || is_of_own_dimension (d, k);
    if (! isCoordinate)
      d.variables.dimensions{k} = [double(d.variables.dimensions{k}(:)'), dims];
    endif
  endfor
  own = find (strcmp (d.variables.name, name) & d.variables.group == 1, 1);
  if (isempty (own))
    [many.values, type, kind] = numbers_or_names (many.paths);
    k = many.coordinate = numel (d.variables.name) + 1;
    row = struct ("name", {{name}}, "group", 1, "varid", max ([d.variables.varid(:); 0]) + 1, "type", {{type}}, ...
                  "kind", {{kind}}, "dimensions", {{dims}}, "attributes", {{cell(0, 2)}}, "path", {{name}}, ...
                  "mayBeAxis", false, "coordinates", {{""}});
    for field = fieldnames (row)'
      d.variables.(field{1})(k,1) = row.(field{1});
    endfor
  endif

endfunction

function [values, type, kind] = numbers_or_names (paths)

  [~, names] = cellfun (@fileparts, paths, "UniformOutput", false);
  if (numel (unique (names)) < numel (names))
    names = paths; # of folders that differ
  endif
  parts = regexp (names, '^(.*?)(\d+)(\D*)$', "tokens", "once");
  isNumbered = ! any (cellfun (@isempty, parts));
  if (isNumbered)
    parts = cellfun (@(tokens) tokens(:)', parts, "UniformOutput", false);
    parts = vertcat (parts{:});
    isNumbered = numel (unique (parts(:,1))) == 1 && numel (unique (parts(:,3))) == 1;
  endif
  if (isNumbered)
    [values, type, kind] = deal (str2double (parts(:,2)), "double", "number");
  else
    [values, type, kind] = deal (names, "string", "string");
  endif

endfunction
