## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{many} =} with_gaps (@var{file})
## Undocumented internal function: the gaps between joined files (rows with the coordinate before and after), what is missing
## in them in words, and which files overlap (rows with the numbers of two).  Gaps are steps of more than one and a half
## times the usual one, of coordinates most of whose steps are usual.
## @end deftypefn

function many = with_gaps (file)

  many = file.many;
  many.gaps = many.overlaps = zeros (0, 2);
  many.missing = "";
  if (many.coordinate == 0 || many.isNew || numel (many.values) < 2)
    return;
  endif
  values = many.values(:);
  steps = diff (values) * merge (values(end) < values(1), -1, 1);
  starts = many.offsets(2:end-1)'; # the steps to the first values of files
  isOverlap = steps(starts) <= 0;
  many.overlaps = [find(isOverlap), find(isOverlap) + 1];
  ahead = steps(steps > 0);
  usual = median (ahead);
  if (numel (ahead) < 2 || mean (abs (ahead - usual) < usual / 2) < 0.75)
    return;
  endif
  at = find (steps > 1.5 * usual);
  many.gaps = [values(at), values(at+1)];
  if (! isempty (at))
    many.missing = missing_words (file, steps(at), usual);
  endif

endfunction

function words = missing_words (file, gaps, usual)

  many = file.many;
  name = "step";
  [units, calendar] = time_of (file, many.coordinate);
  if (! isempty (units))
    calendar = strtok (calendar, "|");
    days = gridio_native ("timesToTimes", many.values(1) + [0, usual], units, calendar, "days since 1970-01-01", calendar, ...
                          file.months);
    names = {"second", "minute", "hour", "day", "month", "year"};
    lengths = [1/86400, 1/1440, 1/24, 1, 30.44, 365.24];
    found = find (abs (diff (days) - lengths) < [1e-6, 1e-5, 1e-4, 0.01, 2.5, 1.5], 1);
    if (! isempty (found))
      name = names{found};
      usual *= lengths(found) / diff (days);
    endif
  endif
  count = sum (round (gaps / usual) - 1);
  words = sprintf ("%s %s missing", grouped (count), [name merge(count == 1, "", "s")]);

endfunction
