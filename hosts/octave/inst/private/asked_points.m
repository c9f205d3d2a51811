## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{asked} =} asked_points (@var{axis}, @var{request})
## Undocumented internal function: what a selection asks of a coordinate: all, names, points that are near, or a range, in
## the coordinate's own numbers.
## @end deftypefn

function asked = asked_points (axis, request)

  value = request.value;
  asked = struct ("kind", "near", "points", [], "low", [], "high", [], "isHighOpen", false, "tolerance", axis.tolerance);
  if (ischar (value) && strcmp (value, ":"))
    asked.kind = "all";
  elseif (axis.isText)
    asked.kind = "names";
    asked.points = checked_names (axis, value);
  elseif (axis.isTime && ischar (value))
    asked = period (axis, asked, value);
  elseif (axis.isTime && iscellstr (value) && numel (value) == 2)
    asked = range_of_texts (axis, asked, value);
  elseif (iscell (value) && ! isempty (value))
    asked.points = cellfun (@(one) point_of (axis, one), value(:)');
  elseif (isnumeric (value) && numel (value) == 1)
    asked.points = point_of (axis, value);
  elseif (isnumeric (value) && numel (value) == 2)
    asked.kind = "range";
    asked.low = point_of (axis, value(1));
    asked.high = point_of (axis, value(2));
    asked.tolerance = max (asked.tolerance, tolerance_of_datenum (axis, value(1)));
  else
    bad_value (axis, value);
  endif
  isUpsideDown = asked.low > asked.high | (asked.isHighOpen & asked.low == asked.high);
  if (strcmp (asked.kind, "range") && isUpsideDown && ! strcmp (axis.role, "lon"))
    fail ("badSelection", "the range %s of '%s' is upside down", shown_request (value), visible_text (axis.name));
  endif

endfunction

function names = checked_names (axis, value)

  if (ischar (value) && rows (value) == 1)
    names = {value};
  elseif (iscellstr (value) && ! isempty (value))
    names = value(:)';
  else
    bad_value (axis, value);
  endif

endfunction

function asked = period (axis, asked, text)

  [range, isPeriod] = read_period (axis, text);
  if (isPeriod)
    asked.kind = "range";
    asked.low = range(1);
    asked.high = range(2);
    asked.isHighOpen = true;
  else
    asked.points = range(1);
  endif

endfunction

function asked = range_of_texts (axis, asked, texts)

  asked.kind = "range";
  asked.low = read_period (axis, texts{1})(1);
  [range, asked.isHighOpen] = read_period (axis, texts{2});
  asked.high = range(2);

endfunction

function [range, isPeriod] = read_period (axis, text)

  try
    [range, isPeriod] = convert_times ("periodToTimes", text, axis.units, axis.calendar);
  catch failure
    fail ("badSelection", "'%s' cannot be selected by \"%s\": %s", visible_text (axis.name), visible_text (text), ...
          failure.message);
  end_try_catch

endfunction

## A number, or the beginning of a period, as a number of the coordinate.
function point = point_of (axis, value)

  if (axis.isTime && ischar (value))
    point = read_period (axis, value)(1);
  elseif (! (isnumeric (value) && isreal (value) && isscalar (value)) || isnan (value))
    bad_value (axis, value);
  elseif (axis.isTime && has_datenum (axis.calendar))
    point = time_of_day_number (axis, double (value));
  else
    point = double (value);
  endif

endfunction

function point = time_of_day_number (axis, value)

  try
    point = convert_times ("datenumToTimes", value, axis.units, axis.calendar);
  catch failure
    hint = "";
    if (value == fix (value) && value >= 1000 && value < 10000)
      hint = sprintf ("; the year is \"%d\"", value);
    endif
    fail ("badSelection", "'%s' cannot be selected by the day number %g%s: %s", visible_text (axis.name), value, hint, ...
          failure.message);
  end_try_catch

endfunction

## Day numbers are exact to some microseconds.
function tolerance = tolerance_of_datenum (axis, value)

  tolerance = 0;
  if (axis.isTime && has_datenum (axis.calendar) && isfinite (value))
    tolerance = 2 * abs (diff (convert_times ("datenumToTimes", double (value) + [0, eps(double (value))], ...
                                              axis.units, axis.calendar)));
  endif

endfunction

function bad_value (axis, value)

  if (axis.isText)
    forms = "a text, or a cell of texts";
  elseif (axis.isTime)
    forms = ["a text such as \"2013\", \"2013-05\" or \"2013-05-01 18:00\", a cell of two texts for a range of them, a number," ...
             " a range [FIRST LAST], a cell of several, or \":\""];
  else
    forms = "a number, a range [FIRST LAST], a cell of several numbers, or \":\"";
  endif
  fail ("badSelection", "'%s' is selected by %s, not by %s", visible_text (axis.name), forms, shown_text (value));

endfunction
