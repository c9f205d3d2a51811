## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} __gridio_close_datasets__ (@var{isExiting})
## Undocumented internal function: close all datasets.  It runs at the end of a session, or of the package in it.
## @end deftypefn

## PKG_DEL: if (atexit ("__gridio_close_datasets__", false)) __gridio_close_datasets__ (false); endif

function __gridio_close_datasets__ (isExiting = true)

  open_datasets ("close", isExiting);

endfunction
