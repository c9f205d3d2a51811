## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} __gridio_close_datasets__ ()
## Undocumented internal function: close all datasets.  It runs at the end of a session.
## @end deftypefn

function __gridio_close_datasets__ ()

  open_datasets ("close");

endfunction
