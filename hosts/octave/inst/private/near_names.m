## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{near} =} near_names (@var{name}, @var{names})
## Undocumented internal function: those of @var{names} that one could have meant, at most three: the same but for the
## case, one or two letters different, exchanged, missing or too many, or the one within the other.
## @end deftypefn

function near = near_names (name, names)

  near = {};
  if (! ischar (name) || isempty (name) || isempty (names))
    return;
  endif
  name = lower (name(:)');
  names = names(:)';
  distances = cellfun (@(other) distance (name, lower (other)), names);
  [distances, order] = sort (distances);
  order = order(distances <= min (2, floor (numel (name) / 2)));
  near = names(order(1:min (3, end)));

endfunction

## The number of changes that make one text of the other; one that is contained in the other is as near as one change.
function changes = distance (one, other)

  if (strcmp (one, other))
    changes = 0;
  elseif (min (numel (one), numel (other)) >= 3 && (! isempty (strfind (other, one)) || ! isempty (strfind (one, other))))
    changes = 1;
  elseif (abs (numel (one) - numel (other)) > 2)
    changes = Inf;
  else
    changes = edits (one, other);
  endif

endfunction

## Damerau's distance: letters put in, left out, changed, and exchanged with their neighbour.
function changes = edits (one, other)

  m = numel (one);
  n = numel (other);
  table = zeros (m + 1, n + 1);
  table(:,1) = 0:m;
  table(1,:) = 0:n;
  for i = 1:m
    for j = 1:n
      isSame = one(i) == other(j);
      table(i+1,j+1) = min ([table(i,j+1) + 1, table(i+1,j) + 1, table(i,j) + ! isSame]);
      if (i > 1 && j > 1 && one(i) == other(j-1) && one(i-1) == other(j))
        table(i+1,j+1) = min (table(i+1,j+1), table(i-1,j-1) + 1);
      endif
    endfor
  endfor
  changes = table(m+1,n+1);

endfunction
