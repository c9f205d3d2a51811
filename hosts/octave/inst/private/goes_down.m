## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{yes} =} goes_down (@var{about})
## Undocumented internal function: whether a coordinate grows downwards, as depths and pressures do.
## @end deftypefn

function yes = goes_down (about)

  isPressure = any (strcmp (about.units, {"Pa", "hPa", "kPa", "mbar", "millibar", "bar", "dbar", "decibar"}));
  isDepth = ! isempty (regexpi ([about.name " " about.long_name], '(^|[^a-z])depth')) || strncmpi (about.name, "depth", 5);
  yes = strcmp (about.positive, "down") || (! strcmp (about.positive, "up") && (isPressure || isDepth));

endfunction
