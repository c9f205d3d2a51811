## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{x} =} reduce_at_place (@var{file}, @var{number}, @var{place}, @var{kind}, @var{block}, @var{options})
## Undocumented internal function: reduce a block of a variable of many files by @code{gridio_reduce}.  @var{block} has
## @code{start}, @code{count}, @code{isReduced}, @code{bins} and @code{weights} of the whole, and @var{place} is the joined
## dimension's.
## @end deftypefn

function x = reduce_at_place (file, number, place, kind, block, options)

  if (place == 0)
    fail ("badCall", "\"on\" needs many files that are joined along a dimension of '%s'", ...
          visible_text (file.d.variables.path{number}));
  endif
  isSpread = any (strcmp (kind, {"var", "std"}));
  if (strcmp (kind, "median") || (isSpread && ! isempty (block.weights)))
    fail ("badCall", "\"on\" is for mean, sum, min, max and count, and for var and std without weights: a %s needs all values", ...
          kind);
  endif
  many = file.many;
  first = lookup (many.offsets(1:end-1), block.start(place));
  last = lookup (many.offsets(1:end-1), block.start(place) + max (block.count(place), 1) - 1);
  work = block;
  work.kind = kind;
  work.number = number;
  work.place = place;
  work.groups = 0;
  if (iscell (block.bins) && ! isempty (block.bins{place}))
    work.groups = max (block.bins{place});
  endif
  ## Nothing of the session: it would change the keys of partials.
  file.lastError = [];
  file.ncid = file.session = file.serial = file.process = file.many.owner = -1;
  file.d.groups.ncid(:) = -1;
  work.file = file;
  partial = @(files) partial_of_parts (files, work);
  combine = @(a, b) combined_parts (a, b, kind, place, block.isReduced(place));
  r = gridio_reduce (many.paths(first:last), partial, combine, options{:});
  if (isempty (r.values))
    [r.values, r.counts, r.spread] = deal (NaN, 0, NaN); # no file has any of the block
  endif
  x = r.values;
  switch (kind)
    case "mean"
      x = r.values ./ merge (isempty (r.weights), r.counts, r.weights);
    case {"var", "std"}
      x = r.spread ./ max (r.counts - 1, 1);
      x(r.counts == 0) = NaN;
      if (strcmp (kind, "std"))
        x = sqrt (x);
      endif
  endswitch
  if (! strcmp (kind, "count"))
    x(r.counts == 0) = NaN;
  endif

endfunction
