## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} file_close_quietly (@var{file})
## Undocumented internal function: close a file whose last handle goes.  A file that is closed already is passed over, and
## a failure is a warning, as nothing catches errors here.
## @end deftypefn

function file_close_quietly (file)

  try
    if (file.isOpen && file.session == gridio_native ("session"))
      file_close (file);
    endif
  catch failure
    warning (failure.identifier, "%s", failure.message);
  end_try_catch

endfunction
