## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{request} =} parse_reduction (@var{file}, @var{number}, @var{given})
## Undocumented internal function: what a reduction was asked: over which dimensions, of which selection, with what weights,
## by which parts of the time.
## @end deftypefn

function request = parse_reduction (file, number, given)

  shape = variable_shape (file, number);
  names = {};
  if (begins_with_dimensions (given))
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
  ofPlaces = {"on", "folder", "bin", "workers", "tasks", "sbatch"};
  isAtPlace = any (cellfun (@(word) is_word (word, "on"), given));
  k = 1;
  while (k < numel (given))
    if (ischar (given{k}) && any (strcmp (given{k}, {"weights", "by"})))
      request.(given{k}) = given{k+1};
      given(k:k+1) = [];
    elseif (isAtPlace && ischar (given{k}) && any (strcmp (given{k}, ofPlaces)))
      request.on(end+1:end+2) = given(k:k+1);
      given(k:k+1) = [];
    else
      k += 2 + is_word (given{k}, "index");
    endif
  endwhile
  request.selection = parse_selection (given);

endfunction

## Whether the first argument is not the first of the pairs of names and values, some of them with "index" ahead.
function yes = begins_with_dimensions (given)

  yes = ! isempty (given) && ! is_word (given{1}, "index");
  if (yes)
    k = 2;
    while (k <= numel (given) && ischar (given{k}))
      k += 2 + is_word (given{k}, "index");
    endwhile
    yes = k == numel (given) + 1;
  endif

endfunction

function yes = is_word (value, word)

  yes = ischar (value) && strcmp (value, word);

endfunction

## A name stands for its dimension, or for all dimensions of a coordinate.
function places = places_of (file, number, shape, name)

  places = find (strcmp (file.d.dimensions.name(shape.dimensions), name), 1);
  if (isempty (places))
    k = find_coordinate (file, number, name);
    places = find (ismember (shape.dimensions, variable_shape (file, k).dimensions));
  endif

endfunction
