## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} file_close (@var{file})
## Undocumented internal function: close the file of a dataset.
## @end deftypefn

function file_close (file)

  file_finish (file.ncid, file.path, file.mode);

endfunction
