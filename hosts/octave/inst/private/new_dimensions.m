## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{dimensions} =} new_dimensions (@var{ncid}, @var{name}, @var{names}, @var{values}, @var{unlimited})
## Undocumented internal function: the dimensions of a new variable, the fastest varying first: a row of structs with name,
## identifier (-1 of a dimension to define), length, whether it is unlimited, and count, the values along it.
## @end deftypefn

function dimensions = new_dimensions (ncid, name, names, values, unlimited)

  dimensions = struct ("name", {}, "dimid", {}, "length", {}, "isUnlimited", {}, "count", {});
  counts = value_counts (name, numel (names), size (values));
  endless = unlimited_names (name, names, unlimited);
  for d = 1:numel (names)
    one = found_dimension (ncid, names{d});
    one.count = counts(d);
    isEndless = any (strcmp (names{d}, endless));
    if (one.dimid < 0)
      one.isUnlimited = isEndless;
      one.length = counts(d) * ! isEndless;
      if (one.length == 0 && ! isEndless)
        fail ("emptyDimension", "'%s' has no values along '%s'; only an unlimited dimension can be empty: \"_Unlimited\", true", ...
              shown_text (name), shown_text (names{d}));
      endif
    elseif (isEndless && ! one.isUnlimited)
      fail ("notUnlimited", "the dimension '%s' exists already, with the length %d, and is not unlimited", ...
            shown_text (names{d}), one.length);
    elseif (one.length != counts(d) && ! (one.isUnlimited && (one.length == 0 || counts(d) == 0)))
      fail ("shapeDoesNotFit", "'%s' has %d values along '%s', but the dimension's length is %d", shown_text (name), ...
            counts(d), shown_text (names{d}), one.length);
    endif
    dimensions(d) = one;
  endfor

endfunction

## How many values there are along each dimension.  A vector may be a row or a column.
function counts = value_counts (name, ndims_, sizes)

  if (ndims_ == 1 && numel (sizes) == 2 && (any (sizes == 1) || all (sizes == 0)))
    counts = prod (sizes);
    return;
  endif
  sizes(end+1:ndims_) = 1;
  if (any (sizes(ndims_+1:end) != 1))
    if (ndims_ == 0)
      fail ("badDimensions", "'%s' has values of size %s, so its dimensions need names, such as \"time\" or {\"lon\", \"lat\"}", ...
            shown_text (name), strjoin (arrayfun (@(n) sprintf ("%d", n), sizes, "UniformOutput", false), "x"));
    endif
    fail ("shapeDoesNotFit", "'%s' has values of size %s, which are more dimensions than the %d named", ...
          shown_text (name), strjoin (arrayfun (@(n) sprintf ("%d", n), sizes, "UniformOutput", false), "x"), ndims_);
  endif
  counts = sizes(1:ndims_);

endfunction

## Which dimensions are to be unlimited: those named, or, if the setting is true, the slowest varying one.
function endless = unlimited_names (name, names, unlimited)

  if (ischar (unlimited) && ! any (strcmpi (unlimited, {"true", "false"})))
    endless = cellstr (unlimited);
  elseif (iscellstr (unlimited))
    endless = unlimited(:)';
  elseif (isempty (unlimited) || strcmpi (unlimited, "false") || isequal (double (unlimited), 0) || isempty (names))
    endless = {};
  else
    endless = names(end);
  endif
  unknown = setdiff (endless, names);
  if (! isempty (unknown))
    fail ("unknownDimension", "'%s' has no dimension '%s' that could be unlimited", shown_text (name), shown_text (unknown{1}));
  endif

endfunction

## The dimension of a name that a group sees: its own or the nearest group's above.
function one = found_dimension (ncid, name)

  one = struct ("name", name, "dimid", -1, "length", 0, "isUnlimited", false, "count", 0);
  [dimids, unlimited] = gridio_any ("inqDimIDs", ncid, true);
  for dimid = fliplr (sort (dimids)) # those of a group have higher numbers than those of the groups above
    [other, length] = gridio ("inqDim", ncid, dimid);
    if (strcmp (other, name))
      one.dimid = dimid;
      one.length = length;
      one.isUnlimited = any (unlimited == dimid);
      return;
    endif
  endfor

endfunction
