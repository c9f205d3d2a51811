## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{values} =} in_degrees (@var{values}, @var{role}, @var{units})
## Undocumented internal function: values of a longitude or latitude in radians as degrees; all others unchanged.
## @end deftypefn

function values = in_degrees (values, role, units)

  if (any (strcmp (role, {"lon", "lat"})) && ! isempty (regexpi (units, '^rad(ian)?s?$', "once")))
    values *= 180 / pi;
  endif

endfunction
