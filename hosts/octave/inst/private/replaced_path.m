## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{real} =} replaced_path (@var{path})
## Undocumented internal function: the path of a file behind all links; @var{path} itself if there is no such file yet.
## @end deftypefn

function real = replaced_path (path)

  [real, failure] = canonicalize_file_name (path);
  if (failure)
    real = path;
  endif

endfunction
