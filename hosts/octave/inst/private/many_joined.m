## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{file} =} many_joined (@var{file}, @var{paths}, @var{scans}, @var{joining}, @var{request}, @var{first})
## Undocumented internal function: the struct of @code{many_open}, of the first file and what was scanned of all.
## @end deftypefn

function file = many_joined (file, paths, scans, joining, request, first)

  persistent owners = 0;
  [isGood, paths, scans] = without_bad (paths, scans, request);
  order = joined_order (scans, joining);
  isFirst = order == sum (isGood(1:first));
  many = struct ("paths", {paths(order)}, "lengths", scans.lengths(order)(:)', "dimension", joining.dimension, ...
                 "isNew", joining.isNew, "coordinate", joining.coordinate, "bounds", joining.bounds, ...
                 "values", vertcat (zeros (0, 1), scans.values{order}), "units", {scans.units(order)}, ...
                 "calendars", {scans.calendars(order)}, "fingerprints", scans.fingerprints(order), ...
                 "sizes", scans.sizes(order), "changed", scans.changed(order), "isSkipping", request.isSkipping, ...
                 "leftOut", {paths(setdiff (1:numel (paths), order))}, "first", find (isFirst));
  many.offsets = [0, cumsum(many.lengths)];
  many.owner = ++owners;
  if (isempty (many.first))
    many.first = 1;
  endif
  if (joining.isNew)
    [file.d, many] = with_new_dimension (file.d, many, joining.name);
  else
    file.d.dimensions.length(joining.dimension) = many.offsets(end);
  endif
  file.many = many;
  file.many = with_differences (file);
  file.many = with_gaps (file);

endfunction

## A bad file is an error, or left out with a warning.
function [isGood, paths, scans] = without_bad (paths, scans, request)

  isGood = cellfun (@isempty, scans.problems);
  bad = find (! isGood);
  if (! isempty (bad))
    words = sprintf ("\"%s\" cannot be joined: %s", shown_text (paths{bad(1)}), scans.problems{bad(1)});
    if (numel (bad) > 1)
      words = sprintf ("%s; nor can %s others, such as \"%s\"", words, grouped (numel (bad) - 1), shown_text (paths{bad(2)}));
    endif
    if (! request.isSkipping)
      fail ("badFile", "%s (\"missing\", \"skip\" leaves such files out)", words);
    elseif (! any (isGood))
      fail ("badFile", "%s; no file is left", words);
    endif
    warning (error_identifier ("badFile"), "%s; left out", words);
  endif
  paths = paths(isGood)(:);
  for name = fieldnames (scans)'
    scans.(name{1}) = scans.(name{1})(isGood);
  endfor

endfunction

## The order of the files' coordinates, or as they were given.  Files without values are left out.
function order = joined_order (scans, joining)

  order = find (scans.lengths > 0)(:)';
  if (isempty (order))
    order = 1;
  elseif (joining.coordinate > 0)
    values = vertcat (scans.values{order});
    ends = cumsum (scans.lengths(order));
    firsts = values([1; ends(1:end-1) + 1]);
    rises = sign (values(ends) - firsts);
    [~, sorted] = sort (firsts, merge (sum (rises == -1) > sum (rises == 1), "descend", "ascend"));
    order = order(sorted);
  endif

endfunction
