## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{answer} =} ask_gridio (@var{what})
## Ask gridio.oct about the session.
## @end deftypefn

## The file has a second function for this.  It is let go at once: as long as it is there, "clear gridio" would leave the
## file loaded, and the open files of gridio open.
function answer = ask_gridio (what)

  file = file_in_loadpath ("gridio.oct");
  if (isempty (file))
    fail ("host:notOnPath", "gridio.oct is not on the load path: is the package loaded?");
  endif

  autoload ("__gridio_session__", file);
  unwind_protect
    answer = __gridio_session__ (what);
  unwind_protect_cleanup
    clear -f __gridio_session__
    autoload ("__gridio_session__", file, "remove");
  end_unwind_protect

endfunction
