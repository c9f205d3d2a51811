## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{partial} =} partial_of_parts (@var{files}, @var{work})
## Undocumented internal function: what some of the files of a dataset contribute to a reduction: the @code{values}, sums
## in place of means, with their @code{counts}, for weighted means the sums of the @code{weights}, and for variances the @code{spread}, the sum of squares about the mean.
## @end deftypefn

function partial = partial_of_parts (files, work)

  partial = struct ("values", [], "counts", [], "spread", [], "weights", []);
  place = work.place;
  many = work.file.many;
  [~, first] = ismember (files{1}, many.paths);
  from = max (work.start(place), many.offsets(first));
  to = min (work.start(place) + work.count(place), many.offsets(first+numel (files)));
  indices = (from:to-1) - work.start(place) + 1;
  work.start(place) = from;
  work.count(place) = to - from;
  if (work.groups > 0)
    work.bins{place} = work.bins{place}(indices);
    if (! any (work.bins{place}))
      return;
    endif
  endif
  if (isempty (indices))
    return;
  endif
  if (isstruct (work.weights) && any (work.weights.dimensions == place))
    pick = repmat ({":"}, 1, max (2, numel (work.weights.dimensions)));
    pick{work.weights.dimensions == place} = indices;
    work.weights.values = work.weights.values(pick{:});
  endif
  kind = strrep (work.kind, "mean", "sum");
  if (any (strcmp (kind, {"var", "std"})))
    [spread, counts] = reduced_parts (work, "var");
    partial.spread = spread .* max (counts - 1, 1);
    partial.spread(counts == 0) = 0;
    kind = "sum";
  endif
  [partial.values, partial.counts] = reduced_parts (work, kind);
  if (strcmp (kind, "sum"))
    partial.values(partial.counts == 0) = 0;
  endif
  if (isstruct (work.weights) && strcmp (work.kind, "mean"))
    partial.weights = reduced_parts (work, "weight");
    partial.weights(partial.counts == 0) = 0;
  endif

endfunction

function [x, counts] = reduced_parts (work, kind)

  [x, counts] = reduce_joined (work.file, work.number, work.place, kind, work.start, work.count, work.isReduced, work.bins, ...
                               work.weights);
  gridio_native ("closeParts", work.file.many.owner);
  missing = work.groups - size (x, work.place);
  if (work.groups > 0 && missing > 0)
    lengths = size (x);
    lengths(end+1:work.place) = 1;
    lengths(work.place) = missing;
    x = cat (work.place, x, NaN (lengths));
    counts = cat (work.place, counts, zeros (lengths));
    if (strcmp (kind, "count"))
      x(isnan (x)) = 0;
    endif
  endif

endfunction
