## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} axis_of_group
## Undocumented internal function: the coordinate of a group that serves as lat, lon, time, or level; empty if there is none.
## @end deftypefn

function k = axis_of_group (d, group, name)

  k = [];

endfunction
