## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} file_finish (@var{ncid}, @var{path}, @var{mode}, @var{isWhole})
## Undocumented internal function: close a file.  One that was opened with @qcode{"replace"} takes its place if it is whole;
## if not, or if it cannot be closed, it is deleted, and the file that it was to replace stays.
## @end deftypefn

function file_finish (ncid, path, mode, isWhole = true)

  if (! strcmp (mode, "replace"))
    gridio ("close", ncid);
    return;
  endif
  temporary = gridio_any ("inqPath", ncid);
  try
    gridio ("close", ncid);
    if (isWhole)
      [failure, message] = rename (temporary, replaced_path (path));
      if (failure)
        fail ("notReplaced", "\"%s\" was not replaced: %s; what was written is \"%s\"", shown_text (path), message, ...
              shown_text (temporary));
      endif
    endif
  catch failure
    if (isempty (strfind (failure.identifier, ":notReplaced")))
      unlink (temporary);
    endif
    rethrow (failure);
  end_try_catch
  if (! isWhole)
    unlink (temporary);
    warning ("Ovard:gridio:dataset:notReplaced", "\"%s\" was not replaced, because an error came before it was whole", ...
             shown_text (path));
  endif

endfunction
