## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} __gridio_end_ranks__ ()
## Undocumented internal function: end this process's part in MPI.  It runs at the end of a session, or of the
## package in it.
## @end deftypefn

## PKG_DEL: if (atexit ("__gridio_end_ranks__", false)) __gridio_end_ranks__ (); endif

function __gridio_end_ranks__ ()

  ranks_at_work ("exit");

endfunction
