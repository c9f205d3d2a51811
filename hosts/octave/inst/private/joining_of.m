## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{joining} =} joining_of (@var{file}, @var{paths}, @var{request}, @var{first})
## Undocumented internal function: along which dimension files are joined, with its coordinate, by what was asked for or by
## what the first file has; empty for one file that has nothing to be joined along.
## @end deftypefn

function joining = joining_of (file, paths, request, first)

  d = file.d;
  joining = struct ("isNew", ! isempty (request.newDimension), "name", request.newDimension, "dimension", 0, ...
                    "coordinate", 0, "bounds", 0);
  if (joining.isNew)
    isTaken = any (strcmp (d.dimensions.name, request.newDimension));
    if (isTaken)
      fail ("badOption", "the files have a dimension '%s' already; \"along\", \"%s\" joins them along it", ...
            shown_text (request.newDimension), shown_text (request.newDimension));
    endif
    return;
  endif
  if (isempty (request.along))
    joining.dimension = likely_dimension (file, paths, first);
    if (joining.dimension == 0)
      joining = [];
      return;
    endif
  else
    joining.dimension = named_dimension (d, request.along);
  endif
  joining.name = d.dimensions.name{joining.dimension};
  joining.coordinate = coordinate_along (d, joining.dimension);
  if (joining.coordinate > 0)
    attributes = d.variables.attributes{joining.coordinate};
    names = {attribute_text(attributes, "bounds"), attribute_text(attributes, "climatology")};
    for name = names(! cellfun (@isempty, names))
      joining.bounds = [in_scope(d, d.variables.group(joining.coordinate), name{1}), 0](1);
    endfor
  endif

endfunction

function dimension = named_dimension (d, name)

  dimension = find (strcmp (d.dimensions.name, name));
  if (numel (dimension) > 1)
    fail ("ambiguousName", "%d groups have a dimension '%s'", numel (dimension), shown_text (name));
  elseif (isempty (dimension))
    k = [find_variable(d, 1, name), axis_of_group(d, 1, name)];
    if (! isempty (k) && numel (d.variables.dimensions{k(1)}) == 1)
      dimension = double (d.variables.dimensions{k(1)});
    else
      unknown_name ("unknownName", "dimension", name, d.dimensions.name);
    endif
  endif

endfunction

## The unlimited dimension, else that of time, else the one whose coordinates differ.
function dimension = likely_dimension (file, paths, first)

  d = file.d;
  lists = cellfun (@(list) double (list(:)'), d.variables.dimensions(:)', "UniformOutput", false);
  used = unique ([lists{:}]);
  candidates = used(logical (d.dimensions.isUnlimited(used))(:)');
  if (numel (candidates) != 1)
    times = candidates(arrayfun (@(k) is_time (d, coordinate_along (d, k)), candidates));
    if (isempty (candidates))
      times = used(arrayfun (@(k) is_time (d, coordinate_along (d, k)), used));
    endif
    if (! isempty (times))
      candidates = times;
    endif
  endif
  if (isempty (candidates) && numel (paths) > 1)
    candidates = differing (file, paths, first, used);
  endif
  dimension = 0;
  if (numel (candidates) == 1)
    dimension = candidates;
  elseif (numel (candidates) > 1)
    names = d.dimensions.name(candidates);
    fail ("ambiguousName", "the files may be joined along any of %s; name one of them: \"along\", \"%s\"", ...
          listed_names (names), shown_text (names{1}));
  elseif (numel (paths) > 1)
    fail ("ambiguousName", ["the files have no unlimited dimension, no times, and no coordinates that differ; \"along\", NAME" ...
                            " joins them along a dimension (%s), and \"new dimension\", NAME along one of their own"], ...
          listed_names (d.dimensions.name));
  endif

endfunction

function yes = is_time (d, k)

  yes = k > 0 && strcmp (axis_role (d.variables.attributes{k}, d.variables.name{k}), "time");

endfunction

## Dimensions whose coordinates, or without these lengths, are not the same in another file.
function candidates = differing (file, paths, first, used)

  other = file_open (paths{merge (first < numel (paths), numel (paths), 1)});
  unwind_protect
    isDifferent = arrayfun (@(dimension) differs (file, other, dimension), used);
  unwind_protect_cleanup
    file_close (other);
  end_unwind_protect
  candidates = used(isDifferent);

endfunction

function yes = differs (file, other, dimension)

  yes = false;
  d = file.d;
  k = coordinate_along (d, dimension);
  if (k > 0)
    twin = find (strcmp (other.d.variables.path, d.variables.path{k}), 1);
    yes = ! isempty (twin) && ! isequaln (read_positions (file, k, {}), read_positions (other, twin, {}));
  else
    twin = find (strcmp (other.d.dimensions.name, d.dimensions.name{dimension}), 1);
    yes = ! isempty (twin) && other.d.dimensions.length(twin) != d.dimensions.length(dimension);
  endif

endfunction
