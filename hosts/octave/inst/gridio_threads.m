## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn  {} {@var{count} =} gridio_threads ()
## @deftypefnx {} {@var{before} =} gridio_threads (@var{count})
## Query or set the number of threads that share the reads and writes of @code{gridio_any}.
##
## Usually they are as many as the machine runs at once, at most 16: several threads unpack and pack the chunks of compressed
## variables of netCDF-4 files, and decode values, much faster than the netCDF library, which works in one.  The functions
## of @code{gridio} always leave everything to the library.
##
## Without an argument the number in use is returned.  @var{count} sets it:
##
## @table @asis
## @item 2 to 256
## as many threads, the interpreter's own included
## @item 1
## only the netCDF library reads and writes, except for data that need a filter that it lacks
## @item 0
## the usual number
## @end table
##
## @var{before} is what was set before, or 0: pass it back to restore it.  The choice holds until
## the session ends, also after @code{clear all}, and is kept in the environment variable
## @env{GRIDIO_THREADS}, which may be set before Octave is started.
##
## @example
## @group
## before = gridio_threads (2);
## values = gridio_any ("getVar", ncid, varid);
## gridio_threads (before);
## @end group
## @end example
##
## @seealso{gridio_any, gridio_version}
## @end deftypefn

function number = gridio_threads (count)

  if (nargin == 0)
    number = ask_gridio ("threads");
    return;
  endif

  if (! (isnumeric (count) && isreal (count) && isscalar (count) && any (count == 0:256)))
    fail ("host:threadCount", "gridio_threads: COUNT must be a whole number from 0 to 256");
  endif
  if (nargout > 0)
    number = chosen ();
  endif
  setenv ("GRIDIO_THREADS", merge (count == 0, "", sprintf ("%d", count)));

endfunction

## What is in the environment may be anything.
function count = chosen ()

  count = str2double (regexp (getenv ("GRIDIO_THREADS"), '^\d+$', "match", "once"));
  count = merge (isnan (count), 0, min (count, 256));

endfunction

%!function kept = keep ()
%!  text = getenv ("GRIDIO_THREADS");
%!  kept = onCleanup (@() setenv ("GRIDIO_THREADS", text));
%!endfunction

%!test
%! kept = keep ();
%! setenv ("GRIDIO_THREADS", "");
%! usual = gridio_threads ();
%! assert (usual >= 1 && usual <= 16);
%! assert (gridio_threads (3), 0);
%! assert (gridio_threads (), 3);
%! assert (gridio_threads (int8 (256 / 4)), 3);
%! assert (gridio_threads (), 64);
%! assert (gridio_threads (0), 64);
%! assert (gridio_threads (), usual);

%!test
%! ## The choice outlasts the functions.
%! kept = keep ();
%! gridio_threads (5);
%! clear -f gridio gridio_any gridio_threads
%! assert (gridio_threads (), 5);

%!test
%! ## Anything but a number in the environment is no choice.
%! kept = keep ();
%! setenv ("GRIDIO_THREADS", "");
%! usual = gridio_threads ();
%! for text = {"", "0", "many", "-2", "2 threads", " 3"}
%!   setenv ("GRIDIO_THREADS", text{1});
%!   assert (gridio_threads (), usual);
%!   assert (gridio_threads (0), 0);
%! endfor
%! setenv ("GRIDIO_THREADS", "1000");
%! assert (gridio_threads (), 256);
%! assert (gridio_threads (0), 256);

%!test
%! ## The same values with any number.
%! kept = keep ();
%! path = [tempname() ".nc"];
%! ncid = gridio ("create", path, "netcdf4");
%! dims = [gridio("defDim", ncid, "x", 500), gridio("defDim", ncid, "y", 400)];
%! varid = gridio ("defVar", ncid, "v", gridio ("parameter", "NC_SHORT"), dims);
%! gridio ("defVarChunking", ncid, varid, gridio ("parameter", "NC_CHUNKED"), [50 100]);
%! gridio ("defVarDeflate", ncid, varid, true, true, 1);
%! values = int16 (reshape (mod (7 * (1:200000), 1001), 500, 400));
%! for writing = [1 2]
%!   gridio_threads (writing);
%!   gridio_any ("putVar", ncid, varid, values);
%!   for reading = [1 2 4]
%!     gridio_threads (reading);
%!     assert (gridio_any ("getVar", ncid, varid), values);
%!   endfor
%!   values += 1;
%! endfor
%! gridio ("close", ncid);
%! delete (path);

%!error <whole number from 0 to 256> gridio_threads (-1)
%!error <whole number from 0 to 256> gridio_threads (257)
%!error <whole number from 0 to 256> gridio_threads (1.5)
%!error <whole number from 0 to 256> gridio_threads (NaN)
%!error <whole number from 0 to 256> gridio_threads ([1 2])
%!error <whole number from 0 to 256> gridio_threads ("2")
%!error <whole number from 0 to 256> gridio_threads ({1})
%!error <whole number from 0 to 256> gridio_threads (2i)
%!error <too many inputs> gridio_threads (1, 2)
