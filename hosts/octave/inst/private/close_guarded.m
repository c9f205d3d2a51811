## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} close_guarded (@var{guarded}, @var{is_exiting})
## Undocumented internal function: close the file of a @code{gridio_file} because nothing needs it any more, or because the
## session ends.
## @end deftypefn

function close_guarded (guarded, isExiting)

  file = guarded.content;
  guarded.isOpen = false;
  guarded.content = []; # what is left at the end of the session is best without structs
  open_datasets ("sweep");
  file_close_quietly (file, isExiting);

endfunction
