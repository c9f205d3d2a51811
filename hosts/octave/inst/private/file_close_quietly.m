## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} file_close_quietly (@var{file})
## Undocumented internal function: close a file whose last handle goes.  A file that is closed already is skipped, and
## a failure is a warning, as nothing catches errors here.
## @end deftypefn

function file_close_quietly (file, isExiting)

  if (file.process != 0 && file.process != getpid ())
    return; # a copy in a forked process, such as one of parcellfun's; the file is its parent's
  endif
  try
    if (file.session == gridio_native ("session"))
      file_close (file, is_whole (file, isExiting));
    elseif (strcmp (file.mode, "replace"))
      warn_not_replaced (file, "gridio was cleared before it was closed");
    endif
  catch failure
    warning (failure.identifier, "%s", failure.message);
  end_try_catch

endfunction

## Whether a file that replaces another is as it was to be: no error is why it is closed.  At the end of the session an
## error since the file was last written to counts, too: it may be why the session ends.  An interrupt of a script is not seen
## here: the interpreter does not record it.
function isWhole = is_whole (file, isExiting)

  isWhole = true;
  if (strcmp (file.mode, "replace"))
    state = ask_gridio ("state");
    isWhole = ! state.isUnwinding && ! (isExiting && ! isequal (file.lastError, lasterror ()));
  endif

endfunction
