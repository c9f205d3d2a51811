## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} warn_not_replaced (@var{file}, @var{why})
## Undocumented internal function: warn that a file opened with @qcode{"replace"} stays, and say where the new one is.
## @end deftypefn

function warn_not_replaced (file, why)

  warning (error_identifier ("notReplaced"), "\"%s\" was not replaced, because %s; what was written is in \"%s\"", ...
           shown_text (file.path), why, shown_text (file.part));

endfunction
