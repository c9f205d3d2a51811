## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{x}, @var{at}] =} reduce_variable (@var{kind}, @var{self}, @dots{})
## Undocumented internal function: a mean, sum or the like of a variable over dimensions, read in slabs, and the coordinates
## of what is left.
## @end deftypefn

function [x, at] = reduce_variable (kind, self, varargin)

  [file, number] = inside (self);
  shape = variable_shape (file, number);
  if (! any (strcmp (file.d.variables.kind{number}, {"number", "enum"})))
    fail ("notANumber", "variable '%s' does not hold numbers, so it has no %s", ...
          visible_text (file.d.variables.path{number}), kind);
  endif
  request = parse_reduction (file, number, varargin);
  plan = select_positions (file, number, request.selection);
  [start, count, pick, lists] = extents_of (plan.lists, shape.lengths);
  isReduced = request.isReduced;
  [bins, groups] = bins_of (file, number, request, lists, start, count, pick);
  weights = weights_of (file, number, plan, request, start, count);
  if (strcmp (kind, "count") && isstruct (weights) && ! strcmp (request.weights, "area"))
    weights.values = double (weights.values != 0);
  endif
  warn_once (file, number);
  place = joined_place (file, number);
  if (! isempty (request.on))
    block = struct ("start", start, "count", count, "isReduced", isReduced, "bins", {bins}, "weights", {weights});
    x = reduce_at_place (file, number, place, kind, block, request.on);
  elseif (place > 0)
    x = reduce_joined (file, number, place, kind, start, count, isReduced, bins, weights);
  else
    x = gridio_native ("reduce", kind, file.d.groups.ncid(file.d.variables.group(number)), ...
                       file.d.variables.varid(number), start, count, ones (size (start)), bitand (file.flags, 63), ...
                       isReduced, bins, weights);
  endif
  pick(isReduced) = {":"};
  if (! all (strcmp (pick, ":")))
    x = x(pick{:}, 1);
  endif
  x = reduced_times (file, number, kind, x);
  if (nargout > 1)
    at = coordinates_of_reduced (file, number, plan, isReduced, groups);
  endif

endfunction

## The range that has all positions of each list, the places of the list in it, and the list itself.
function [start, count, pick, lists] = extents_of (lists, lengths)

  start = zeros (1, numel (lengths));
  count = lengths;
  pick = repmat ({":"}, 1, numel (lengths));
  for k = 1:numel (lists)
    if (ischar (lists{k}))
      lists{k} = 1:lengths(k);
    else
      start(k) = min (lists{k}) - 1;
      count(k) = max (lists{k}) - start(k);
      pick{k} = lists{k} - start(k);
      if (isequal (pick{k}, 1:count(k)))
        pick{k} = ":";
      endif
    endif
  endfor

endfunction

## For each dimension the group of each of its indices, and of the dimension that is grouped what the groups are.
function [bins, groups] = bins_of (file, number, request, lists, start, count, pick)

  bins = cell (1, numel (start));
  groups = struct ("place", 0);
  for k = find (request.isReduced)
    if (! ischar (pick{k}))
      bins{k} = accumarray (pick{k}(:), 1, [count(k), 1], @(x) 1);
      if (numel (unique (pick{k})) < numel (pick{k}))
        fail ("badSelection", "a position of dimension '%s' is selected twice", ...
              visible_text (file.d.dimensions.name{variable_shape (file, number).dimensions(k)}));
      endif
    endif
  endfor
  if (! isempty (request.by))
    groups = groups_by (file, number, request);
    members = groups.members(start(groups.place)+(1:count(groups.place)));
    if (! isempty (bins{groups.place}))
      members(bins{groups.place} == 0) = 0;
    endif
    present = unique (members(members > 0));
    [~, members] = ismember (members, present);
    groups.labels = groups.labels(present,:);
    bins{groups.place} = members(:);
  endif
  if (all (cellfun (@isempty, bins)))
    bins = [];
  endif

endfunction

## Times stay times: their sums and numbers do not.
function x = reduced_times (file, number, kind, x)

  if (any (strcmp (kind, {"mean", "min", "max", "median"})))
    x = decoded_times (file, number, x);
  endif

endfunction
