## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} file_check (@var{file})
## Undocumented internal function: raise an error unless the file is still open.
## @end deftypefn

function file_check (file)

  if (file.session != gridio_native ("session"))
    fail ("closed", "\"%s\" was closed when gridio was cleared; open it again", visible_text (file.path));
  endif

endfunction
