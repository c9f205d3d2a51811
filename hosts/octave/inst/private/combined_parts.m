## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{c} =} combined_parts (@var{a}, @var{b}, @var{kind}, @var{place}, @var{is_reduced})
## Undocumented internal function: two results of @code{partial_of_parts} as one.  Where the joined dimension is not reduced,
## the second follows the first.
## @end deftypefn

function c = combined_parts (a, b, kind, place, is_reduced)

  if (isempty (a.values) || isempty (b.values))
    c = merge (isempty (a.values), b, a);
    return;
  endif
  c = struct ("values", [], "counts", [], "spread", [], "weights", []);
  if (! is_reduced)
    for name = {"values", "counts", "spread", "weights"}
      c.(name{1}) = cat (place, a.(name{1}), b.(name{1}));
    endfor
    return;
  endif
  c.counts = a.counts + b.counts;
  c.weights = a.weights + b.weights;
  switch (kind)
    case {"min", "max"}
      c.values = feval (kind, a.values, b.values);
    otherwise
      c.values = a.values + b.values;
  endswitch
  if (any (strcmp (kind, {"var", "std"})))
    ## The spread between the two means comes on top.
    apart = b.values ./ b.counts - a.values ./ a.counts;
    between = apart .^ 2 .* a.counts .* b.counts ./ c.counts;
    between(a.counts == 0 | b.counts == 0) = 0;
    c.spread = a.spread + b.spread + between;
  endif

endfunction
