## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{x}, @var{counts}] =} reduce_joined (@var{file}, @var{number}, @var{place}, @var{kind}, @var{start}, @var{count}, @dots{})
## Undocumented internal function: reduce a block of a variable whose files are joined.  One file after the other is read.
## @var{counts} has how many values each result has, or the sum of their weights.
## @end deftypefn

function [x, counts] = reduce_joined (file, number, place, kind, start, count, isReduced, bins, weights)

  many = file.many;
  if (many.isNew && number == many.coordinate)
    fail ("notANumber", "'%s' counts the files: its values can be read, but they are not in any file", ...
          visible_text (file.d.variables.path{number}));
  endif
  ends = lookup (many.offsets(1:end-1), [start(place), start(place) + max(count(place), 1) - 1]);
  which = ends(1):ends(2);
  parts = joined_parts (file, number, place, which);
  start(place) -= many.offsets(which(1));
  if (iscell (bins) && ! isempty (bins{place}))
    used = find (bins{place} > 0) + start(place);
    parts.isUsed(:) = 0;
    parts.isUsed(lookup (many.offsets(which) - many.offsets(which(1)), used - 1)) = 1;
  endif
  do
    [x, counts, failed, reason] = gridio_native ("reduceParts", kind, parts, start, count, bitand (file.flags, 63), isReduced, ...
                                            bins, weights);
    if (failed > 0)
      words = sprintf ("\"%s\" cannot be read", shown_text (parts.paths{failed}));
      if (! many.isSkipping)
        fail ("badFile", "%s: %s", words, reason);
      endif
      warning (error_identifier ("badFile"), "%s, so that it is left out: %s", words, reason);
      parts.isUsed(failed) = 0;
    endif
  until (failed == 0)

endfunction
