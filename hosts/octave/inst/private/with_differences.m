## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{many} =} with_differences (@var{file})
## Undocumented internal function: how the variables of joined files differ from those of the first: @code{refused} says for
## each variable why it cannot be one, and @code{times} has the units and calendar of times by variable and kind of file,
## which @code{forms} counts.  One file of each kind is opened.
## @end deftypefn

function many = with_differences (file)

  many = file.many;
  d = file.d;
  [kinds, sample, many.forms] = unique (many.fingerprints, "first");
  many.refused = repmat ({""}, numel (d.variables.name), 1);
  many.times = cell (numel (d.variables.name), numel (kinds));
  joined = find (cellfun (@(list) any (list(:) == many.dimension), d.variables.dimensions))(:)';
  for k = joined
    if (sum (double (d.variables.dimensions{k}) == many.dimension) > 1)
      many.refused{k} = sprintf ("it has the dimension '%s' twice", d.dimensions.name{many.dimension});
    endif
  endfor
  for n = find (kinds(:)' != many.fingerprints(many.first))
    path = many.paths{sample(n)};
    other = file_open (path);
    unwind_protect
      for k = setdiff (joined, many.coordinate)(:)'
        [difference, many.times{k,n}] = difference_of (file, other, k);
        if (isempty (many.refused{k}) && ! isempty (difference))
          many.refused{k} = sprintf ("in \"%s\" %s", shown_text (path), difference);
        endif
      endfor
    unwind_protect_cleanup
      file_close (other);
    end_unwind_protect
  endfor

endfunction

## Why the variable of another file cannot be one with that of the first, and, of times, their units and calendar where these
## differ.  Numbers of other types, and those that are packed otherwise, are decoded each as its own attributes say.
function [difference, scale] = difference_of (file, other, k)

  difference = "";
  scale = {};
  d = file.d;
  e = other.d;
  twin = find (strcmp (e.variables.path, d.variables.path{k}), 1);
  if (isempty (twin))
    difference = "the file has no such variable";
    return;
  endif
  [own, theirs] = deal (shape_in (d, k, file.many.dimension), shape_in (e, twin, []));
  [ownUnits, theirUnits] = deal (attribute_text (d.variables.attributes{k}, "units"), ...
                                 attribute_text (e.variables.attributes{twin}, "units"));
  isNumber = strcmp (d.variables.kind{k}, "number") && strcmp (e.variables.kind{twin}, "number");
  if (! isNumber && ! strcmp (d.variables.type{k}, e.variables.type{twin}))
    difference = sprintf ("it is of type %s, not %s", e.variables.type{twin}, d.variables.type{k});
  elseif (! same_shape (own, theirs, file.many))
    difference = sprintf ("its shape is %s, not %s", words_of (theirs), words_of (own));
  elseif (! isempty (time_of (file, k)) && ! isempty (time_of (other, twin)))
    [units, calendar] = time_of (other, twin);
    if (! isequal ({units, calendar}, nthargout (1:2, @time_of, file, k)))
      scale = {units, strtok(calendar, "|")};
    endif
  elseif (k != file.many.bounds && ! isempty (ownUnits) && ! isempty (theirUnits) && ! strcmp (ownUnits, theirUnits))
    difference = sprintf ("its units are \"%s\", not \"%s\"", shown_text (theirUnits), shown_text (ownUnits));
  endif

endfunction

## Names and lengths, without that of the joined dimension.
function shape = shape_in (d, k, joined)

  dimensions = double (d.variables.dimensions{k}(:)');
  shape = struct ("names", {d.dimensions.name(dimensions)(:)'}, "lengths", double (d.dimensions.length(dimensions)(:)'), ...
                  "isJoined", ismember (dimensions, joined));

endfunction

function yes = same_shape (own, theirs, many)

  isFree = own.isJoined;
  if (many.isNew)
    own.names(isFree) = [];
    own.lengths(isFree) = [];
    isFree(isFree) = [];
  endif
  yes = isequal (own.names, theirs.names) && isequal (own.lengths(! isFree), theirs.lengths(! isFree));

endfunction

function words = words_of (shape)

  words = strjoin (cellfun (@(name, len) sprintf ("%s %d", shown_text (name), len), shape.names, ...
                            num2cell (shape.lengths), "UniformOutput", false), " x ");
  if (isempty (words))
    words = "that of one value";
  endif

endfunction
