% SPDX-License-Identifier: BSD-3-Clause

% ticks (AXIS): round numbers, or dates, within the ascending AXIS.values: a row of structs with the
% text and the value. AXIS.dates is true if the values are days as datenum counts them.
function list = ticks (axis_)
  [low, high] = deal (axis_.values(1), axis_.values(end));
  dates = isfield (axis_, "dates") && axis_.dates;
  list = struct ("text", {}, "value", {});
  if (! (high > low))
    if (isfinite (low))
      list(1) = struct ("text", tickText (low, dates, 0), "value", low);
    endif
    return;
  endif
  step = (high - low) / merge (dates, 4, 6);  % dates are longer
  if (dates && step < 1)
    hours = [1 2 3 6 12 24] / 24;
    step = hours(find (step <= hours, 1));
  else
    power = 10 ^ floor (log10 (step));
    step = power * [1 2 5 10](find (step <= power * [1 2 5 10] * (1 + 1e-9), 1));
  endif
  for number = ceil (low / step - 1e-9):floor (high / step + 1e-9)
    number += 0;  % no "-0"
    list(end + 1) = struct ("text", tickText (number * step, dates, step), ...
                            "value", min (max (number * step, low), high));
  endfor
endfunction

function text = tickText (value, dates, step)
  if (! dates)
    text = sprintf (merge (step == 0, "%.6g", "%.10g"), value);
  elseif (step == fix (step) && value == fix (value))
    text = datestr (value, "yyyy-mm-dd");
  else
    text = datestr (value, "mm-dd HH:MM");
  endif
endfunction
