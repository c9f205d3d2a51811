## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{role} =} role_named (@var{name})
## Undocumented internal function: the axis that a name means in every file; the empty text is no axis.
## @end deftypefn

function role = role_named (name)

  switch (lower (name))
    case {"lon", "longitude"}
      role = "lon";
    case {"lat", "latitude"}
      role = "lat";
    case "time"
      role = "time";
    case {"level", "lev"}
      role = "level";
    otherwise
      role = "none";
  endswitch

endfunction
