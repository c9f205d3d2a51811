## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{weights} =} weights_of (@var{file}, @var{number}, @var{plan}, @var{request}, @var{start}, @var{count})
## Undocumented internal function: the weights of a reduction: the areas of cells, or what was given, or of a box of
## two-dimensional coordinates whether a point is in it; empty if all count alike.
## @end deftypefn

function weights = weights_of (file, number, plan, request, start, count)

  weights = [];
  given = request.weights;
  if (ischar (given) && strcmp (given, "area"))
    weights = area_weights (file, number, request.isReduced);
  elseif (! isempty (given))
    weights = given_weights (file, number, request.isReduced, given);
  endif
  if (! isempty (weights))
    ranges = arrayfun (@(s, n) s + (1:n), start, count, "UniformOutput", false);
    weights.values = weights.values(ranges{weights.dimensions}, 1);
    weights.values(! isfinite (weights.values)) = 0;
  endif
  if (! isempty (plan.mask) && ! all (plan.mask(:)))
    weights = with_mask (weights, plan, start, count);
  endif

endfunction

function weights = area_weights (file, number, isReduced)

  shape = variable_shape (file, number);
  [lon, lat] = deal (find_coordinate (file, number, "lon"), find_coordinate (file, number, "lat"));
  mine = {variable_shape(file, lon).dimensions, variable_shape(file, lat).dimensions};
  isSeparate = all (cellfun (@numel, mine) == 1) && ! isequal (mine{:});
  places = cellfun (@(list) find (ismember (shape.dimensions, list)), mine, "UniformOutput", false);
  if (isSeparate && ! isReduced(places{1}))
    weights.dimensions = places{2};
    weights.values = abs (diff (sind (bounds_of (file, lat))))(:);
  elseif (isSeparate && ! isReduced(places{2}))
    weights.dimensions = places{1};
    weights.values = abs (diff (bounds_of (file, lon)))(:);
  else
    [weights.values, weights.dimensions] = cell_areas (file, number);
  endif
  if (! any (isReduced(weights.dimensions)))
    fail ("badCall", "weights by area need longitude or latitude among the dimensions that are reduced");
  endif

endfunction

function weights = given_weights (file, number, isReduced, given)

  lengths = variable_shape (file, number).lengths;
  if (! isnumeric (given) || ! isvector (given))
    fail ("badCall", "the weights are \"area\", or a vector with a number for each index of the one dimension that is reduced");
  elseif (sum (isReduced) != 1)
    fail ("badCall", "a vector of weights needs one dimension that is reduced, not %d", sum (isReduced));
  elseif (numel (given) != lengths(isReduced))
    fail ("badCall", "there are %d weights for %d indices of the dimension that is reduced", numel (given), lengths(isReduced));
  endif
  weights = struct ("dimensions", find (isReduced), "values", double (given(:)));

endfunction

## Points outside of the box have no weight.
function weights = with_mask (weights, plan, start, count)

  counts = count(plan.maskPlaces);
  mask = zeros ([counts, 1]);
  lists = arrayfun (@(place) plan.lists{place} - start(place), plan.maskPlaces, "UniformOutput", false);
  mask(lists{:}) = plan.mask;
  [places, order] = sort (plan.maskPlaces);
  if (numel (places) > 1)
    mask = permute (mask, order);
  endif
  if (isempty (weights))
    weights = struct ("dimensions", places, "values", mask);
  elseif (isequal (weights.dimensions, places))
    weights.values = reshape (weights.values, size (mask)) .* mask;
  else
    fail ("badCall", "a box of two-dimensional coordinates cannot have weights of other dimensions");
  endif

endfunction
