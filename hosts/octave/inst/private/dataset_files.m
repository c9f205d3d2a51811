## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{s} =} dataset_files (@var{self})
## Undocumented internal function: the method @code{files} of @code{gridio_dataset}: a struct with the files in joined order, their
## lengths along the joined dimension and first and last coordinates, the gaps between them, and which overlap.
## @end deftypefn

function s = dataset_files (self)

  file = content (self);
  s = struct ("paths", {{file.path}}, "along", "", "lengths", [], "first", [], "last", [], "gaps", zeros (0, 2), ...
              "overlaps", zeros (0, 2), "leftOut", {cell(0, 1)}, "differences", {cell(0, 2)});
  many = file.many;
  if (isempty (many))
    return;
  endif
  s.paths = many.paths(:);
  s.along = file.d.dimensions.name{many.dimension};
  s.lengths = many.lengths(:);
  if (many.coordinate > 0 && ! isempty (many.values))
    in_words = @(x) x;
    [units, calendar] = time_of (file, many.coordinate);
    if (! isempty (units) && bitand (file.flags, 64) && has_datenum (calendar))
      in_words = @(x) convert_times ("timesToDatenum", x, units, calendar);
    endif
    s.first = in_words (many.values(many.offsets(1:end-1)+1))(:);
    s.last = in_words (many.values(many.offsets(2:end)))(:);
    s.gaps = in_words (many.gaps);
  endif
  s.overlaps = many.overlaps;
  s.leftOut = many.leftOut(:);
  bad = find (! cellfun (@isempty, many.refused));
  s.differences = [file.d.variables.path(bad), many.refused(bad)];

endfunction
