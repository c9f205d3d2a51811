## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} writable (@var{file})
## Undocumented internal function: raise an error if a file was opened for reading.
## @end deftypefn

function writable (file)

  if (! isempty (file.many))
    fail ("notWritable", "many files are read as one, and not written; open the one to change: gridio_dataset (FILE, \"write\")");
  elseif (strcmp (file.mode, "read"))
    fail ("notWritable", "\"%s\" is open for reading; gridio_dataset (FILE, \"write\") opens it for writing", ...
          shown_text (file.path));
  endif

endfunction
