## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{ticks}, @var{texts}] =} date_ticks (@var{limits})
## Undocumented internal function: up to six round dates between two day numbers, and their texts.
## @end deftypefn

function [ticks, texts] = date_ticks (limits)

  span = diff (limits);
  months = [1, 2, 3, 6, 12, 24, 60, 120, 240, 600, 1200, 2400, 6000, 12000, 24000, 60000];
  days = [[1, 2, 5, 10, 15, 30] / 86400, [1, 2, 5, 10, 15, 30] / 1440, [1, 2, 3, 6, 12] / 24, 1, 2, 5, 10];
  if (span <= 5 * 15)
    step = [days(days * 5 >= span), 15](1);
    first = floor (limits(1));
    ticks = first + step * (ceil ((limits(1) - first) / step - 1e-9):floor ((limits(2) - first) / step + 1e-9));
    if (step >= 1)
      format = "yyyy-mm-dd";
    elseif (step >= 1 / 1440)
      format = merge (floor (limits(1)) == floor (limits(2)), "HH:MM", "mm-dd HH:MM");
    else
      format = "HH:MM:SS";
    endif
  else
    step = [months(months * 30.4 * 5 >= span), months(end)](1);
    from = datevec (limits(1));
    count = 12 * from(1) + from(2) - 1;
    count = step * ceil (count / step) + step * (-1:6);
    ticks = datenum (floor (count' / 12), mod (count', 12) + 1, 1)';
    format = merge (step >= 12, "yyyy", "yyyy-mm");
  endif
  ticks = ticks(ticks >= limits(1) - 1e-6 * span & ticks <= limits(2) + 1e-6 * span);
  texts = arrayfun (@(tick) datestr (tick, format), ticks, "UniformOutput", false);

endfunction
