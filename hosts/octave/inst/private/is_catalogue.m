## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{yes} =} is_catalogue (@var{file})
## Undocumented internal function: whether a path is that of a catalogue of many files, by its name.
## @end deftypefn

function yes = is_catalogue (file)

  yes = ischar (file) && rows (file) == 1 && ! isempty (regexp (file, '\.catalogue\.nc$', "once"));

endfunction
