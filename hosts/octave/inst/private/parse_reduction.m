## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{request} =} parse_reduction (@var{file}, @var{number}, @var{given})
## Undocumented internal function: what a reduction was asked: over which dimensions, of which selection, with what weights,
## by which parts of the time.
## @end deftypefn

function request = parse_reduction (file, number, given)

  shape = variable_shape (file, number);
  names = {};
  if (mod (numel (given), 2) == 1)
    names = given{1};
    given(1) = [];
    if (ischar (names) && ! strcmp (names, ":"))
      names = {names};
    elseif (! iscellstr (names) && ! (ischar (names) && strcmp (names, ":")))
      fail ("badCall", "the dimensions to reduce are a name, a cell of names, or \":\" for all; not %s", shown_text (names));
    endif
  endif
  request = struct ("isReduced", false (1, numel (shape.lengths)), "weights", [], "by", "", "selection", [], "on", {{}});
  if (isempty (names) || ischar (names))
    request.isReduced(:) = true;
  else
    for name = names(:)'
      request.isReduced(places_of (file, number, shape, name{1})) = true;
    endfor
  endif
  rest = {};
  isAtPlace = any (cellfun (@(word) ischar (word) && strcmp (word, "on"), given(1:2:end)));
  for k = 1:2:numel (given)
    if (isAtPlace && any (strcmp (given{k}, {"on", "folder", "bin", "workers", "tasks", "sbatch"})))
      request.on(end+1:end+2) = given(k:k+1);
    elseif (ischar (given{k}) && strcmp (given{k}, "weights"))
      request.weights = given{k+1};
    elseif (ischar (given{k}) && strcmp (given{k}, "by"))
      request.by = given{k+1};
    else
      rest(end+1:end+2) = given(k:k+1);
    endif
  endfor
  request.selection = parse_selection (rest);

endfunction

## A name stands for its dimension, or for all dimensions of a coordinate.
function places = places_of (file, number, shape, name)

  places = find (strcmp (file.d.dimensions.name(shape.dimensions), name), 1);
  if (isempty (places))
    k = find_coordinate (file, number, name);
    places = find (ismember (shape.dimensions, variable_shape (file, k).dimensions));
  endif

endfunction
