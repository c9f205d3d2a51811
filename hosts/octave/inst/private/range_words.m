## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{words} =} range_words (@var{file}, @var{k})
## Undocumented internal function: from where to where a coordinate goes, in words: times as dates, texts in quotes.
## @end deftypefn

function words = range_words (file, k)

  d = file.d;
  lengths = variable_shape (file, k).lengths;
  units = attribute_text (d.variables.attributes{k}, "units");
  words = "";
  if (any (lengths == 0))
    words = "empty";
  elseif (! any (strcmp (d.variables.kind{k}, {"number", "char", "string"})))
    words = d.variables.kind{k};
  else
    try
      words = range_of (file, k, lengths);
    catch failure
      words = ["unreadable: " strtok(failure.message, "\n")];
    end_try_catch
    words = with_units (words, visible_text (units), time_of (file, k));
  endif

endfunction

function words = with_units (words, units, timeUnits)

  if (isempty (timeUnits))
    words = strtrim ([words " " units]);
  endif

endfunction

function words = range_of (file, k, lengths)

  isOrdered = is_of_own_dimension (file.d, k) || ! strcmp (file.d.variables.kind{k}, "number");
  values = ends_of (file, k, lengths, isOrdered);
  if (isnumeric (values))
    words = number_range (file, k, double (values), ! isOrdered);
  else
    texts = cellfun (@(text) ["\"" shortened(visible_text (text), 30) "\""], cellstr (values)(:)', "UniformOutput", false);
    words = strjoin (texts, " ... ");
  endif

endfunction

## The first and the last value of a coordinate that is in order; else all values, unless they are very many.
function values = ends_of (file, k, lengths, isOrdered)

  file.flags = bitand (file.flags, 255 - 64 - 32);
  if (numel (lengths) == 0)
    values = read_block (file, k, {});
  elseif (isOrdered && numel (lengths) == 1)
    values = read_block (file, k, {unique([1, lengths])});
  elseif (prod (lengths) <= 2e5)
    values = read_positions (file, k, {":"});
  else
    steps = merge (numel (lengths) == 1, 1e4, 100);
    values = read_block (file, k, arrayfun (@(n) 1:max (1, floor (n / steps)):n, lengths, "UniformOutput", false));
  endif

endfunction

function words = number_range (file, k, values, isUnordered)

  values = values(! isnan (values));
  if (isempty (values))
    words = "missing";
    return;
  elseif (isUnordered)
    values = [min(values(:)), max(values(:))];
  endif
  [units, calendar] = time_of (file, k);
  if (! isempty (units))
    texts = short_dates (convert_times ("timesToText", values(:), units, calendar))(:)';
    if (! has_datenum (calendar))
      texts{end} = sprintf ("%s, calendar %s", texts{end}, visible_text (strtok (calendar, "|")));
    endif
  else
    texts = arrayfun (@(x) sprintf ("%.6g", x), values(:)', "UniformOutput", false);
  endif
  if (numel (texts) > 1 && strcmp (texts{1}, texts{2}) && isUnordered)
    texts = texts(1);
  endif
  words = strjoin (texts, " ... ");

endfunction

## Without the time of the day where it is midnight for all, and without seconds that are 0.
function texts = short_dates (texts)

  if (all (cellfun (@(text) ! isempty (regexp (text, '[ T]00:00(:00(\.0*)?)?Z?$', "once")), texts)))
    texts = regexprep (texts, '[ T]00:00(:00(\.0*)?)?Z?$', "");
  else
    texts = regexprep (texts, '(:\d\d):00(\.0*)?$', "$1");
  endif

endfunction
