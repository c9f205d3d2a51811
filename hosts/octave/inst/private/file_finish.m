## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} file_finish (@var{ncid}, @var{path}, @var{mode}, @var{isWhole})
## Undocumented internal function: close a file.  One that was opened with @qcode{"replace"} takes its place if it is whole;
## if not, a warning says where it is, and the file that it was to replace stays.
## @end deftypefn

function file_finish (ncid, path, mode, isWhole = true)

  if (! strcmp (mode, "replace"))
    gridio ("close", ncid);
    return;
  endif
  temporary = gridio_any ("inqPath", ncid);
  gridio ("close", ncid);
  if (! isWhole)
    warning (error_identifier ("notReplaced"), ...
             "\"%s\" was not replaced, because an error came before it was whole; what was written is in \"%s\"", ...
             shown_text (path), shown_text (temporary));
    return;
  endif
  [failure, message] = rename (temporary, replaced_path (path));
  if (failure)
    fail ("notReplaced", "\"%s\" was not replaced: %s; what was written is in \"%s\"", shown_text (path), message, ...
          shown_text (temporary));
  endif

endfunction
