## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} file_close (@var{file}, @var{isWhole})
## Undocumented internal function: close the file of a dataset.
## @end deftypefn

function file_close (file, isWhole = true)

  if (! isempty (file.many))
    gridio_native ("closeParts", file.many.owner);
  endif
  file_finish (file.ncid, file.path, file.mode, isWhole);

endfunction
