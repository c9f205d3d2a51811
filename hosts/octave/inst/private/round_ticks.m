## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{ticks}, @var{texts}] =} round_ticks (@var{limits}, @var{most})
## Undocumented internal function: round numbers between two limits, about so many, and their texts.
## @end deftypefn

function [ticks, texts] = round_ticks (limits, most)

  step = diff (limits) / most;
  power = 10 ^ floor (log10 (step));
  step = power * [1, 2, 5, 10](find (step <= power * [1, 2, 5, 10] * (1 + 1e-9), 1));
  ticks = step * (ceil (limits(1) / step - 1e-9):floor (limits(2) / step + 1e-9));
  ticks = min (max (ticks + 0, limits(1)), limits(2));
  digits = max (6, 2 + ceil (log10 (max (abs (limits)) / step)));
  texts = arrayfun (@(tick) sprintf ("%.*g", min (digits, 17), tick), ticks, "UniformOutput", false);
  [texts, first] = unique (texts, "stable");
  ticks = ticks(first);

endfunction
