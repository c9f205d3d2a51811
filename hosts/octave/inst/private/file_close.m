## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} file_close (@var{file}, @var{isWhole})
## Undocumented internal function: close the file of a dataset.  One that was opened with @qcode{"replace"} takes its place if
## it is whole; if not, a warning says where it is, and the file that it was to replace stays.
## @end deftypefn

function file_close (file, isWhole = true)

  if (! isempty (file.many))
    gridio_native ("closeParts", file.many.owner);
  endif
  try
    gridio ("close", file.ncid);
  catch failure
    where = "";
    if (strcmp (file.mode, "replace"))
      where = sprintf ("\n\"%s\" was not replaced; what was written is in \"%s\"", shown_text (file.path), shown_text (file.part));
    endif
    raise (failure.identifier, "%s%s", failure.message, where);
  end_try_catch
  if (! strcmp (file.mode, "replace"))
    return;
  elseif (file.isBroken)
    warn_not_replaced (file, "writing it failed");
    return;
  elseif (! isWhole)
    warn_not_replaced (file, "an error came before it was whole");
    return;
  endif
  [failed, message] = rename (file.part, replaced_path (file.path));
  if (failed)
    fail ("notReplaced", "\"%s\" was not replaced: %s; what was written is in \"%s\"", shown_text (file.path), message, ...
          shown_text (file.part));
  endif

endfunction
