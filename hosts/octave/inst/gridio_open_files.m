## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn  {} {} gridio_open_files ()
## @deftypefnx {} {@var{files} =} gridio_open_files ()
## List the netCDF files that this session has open, such as those that @code{gridio} warns about when it is unloaded.
##
## Without an output, a table is printed.  @var{files} is a column of structs, by identifier, with the fields
##
## @table @code
## @item ncid
## the identifier: @code{gridio ("close", @var{ncid})} closes the file
## @item path
## the name or the address with which the file was opened or created
## @item mode
## @qcode{"write"} or @qcode{"read"}
## @item format
## @qcode{"classic"}, @qcode{"64-bit offset"}, @qcode{"CDF-5"}, @qcode{"netCDF-4"}, @qcode{"netCDF-4 classic model"},
## @qcode{"DAP2"}, @qcode{"DAP4"}, @qcode{"Zarr"}, or @qcode{"unknown"}
## @item unload
## what happens to the file when @code{gridio} is unloaded: it is @qcode{"closed"}, or, if it was made with
## @qcode{"pCreate"}, @qcode{"not closed"}, and may then lack data
## @end table
##
## Nothing is changed: not the files, and not whether @code{gridio} is loaded.
##
## @example
## @group
## gridio_open_files ()
## for file = gridio_open_files ()'
##   gridio ("close", file.ncid);
## endfor
## @end group
## @end example
##
## @seealso{gridio, gridio_version}
## @end deftypefn

function files = gridio_open_files ()

  list = ask_gridio ("files");
  if (nargout > 0)
    files = list;
  elseif (isempty (list))
    puts ("No netCDF file is open.\n");
  else
    print_table (list);
  endif

endfunction

function print_table (list)

  printf ("%10s  %-5s  %-22s  %-10s  %s\n", "ncid", "mode", "format", "unload", "path");
  for file = list'
    printf ("%10d  %-5s  %-22s  %-10s  %s\n", file.ncid, file.mode, file.format, file.unload, ...
            visible_text (file.path));
  endfor
  if (any (strcmp ({list.unload}, "not closed")))
    puts ("Close those marked \"not closed\" yourself: unloading gridio does not, and their data may be lost.\n");
  endif

endfunction

%!function path = new_file (operation, mode, varargin)
%!  path = [tempname() ".nc"];
%!  gridio (operation, path, mode, varargin{:});
%!endfunction

%!function file = listed (path)
%!  files = gridio_open_files ();
%!  file = files(strcmp ({files.path}, path));
%!endfunction

%!test
%! for kind = {"clobber", "classic"; "64bit_offset", "64-bit offset"; 32, "CDF-5"; "netcdf4", "netCDF-4"; ...
%!             4352, "netCDF-4 classic model"}'
%!   path = new_file ("create", kind{1});
%!   file = listed (path);
%!   assert ({file.mode, file.format, file.unload}, {"write", kind{2}, "closed"});
%!   gridio ("close", file.ncid);
%!   for mode = {"read", "write"}
%!     ncid = gridio ("open", path, double (strcmp (mode{1}, "write")));
%!     file = listed (path);
%!     assert ({file.ncid, file.mode, file.format}, {double(ncid), mode{1}, kind{2}});
%!     gridio ("close", ncid);
%!   endfor
%!   assert (isempty (listed (path)));
%!   delete (path);
%! endfor

%!test
%! ## A file of pCreate is not closed when gridio is unloaded.
%! path = [tempname() ".nc"];
%! [~, ncid] = gridio ("pCreate", path, "clobber", 0, 0);
%! assert (listed (path).unload, "not closed");
%! shown = evalc ("gridio_open_files ()");
%! assert (regexp (shown, '\n *\d+  write  classic +not closed  \S+\.nc\nClose those'));
%! gridio ("close", ncid);
%! delete (path);

%!test
%! ## Groups are no files.
%! before = numel (gridio_open_files ());
%! path = new_file ("create", "netcdf4");
%! ncid = listed (path).ncid;
%! gridio ("defGrp", ncid, "one");
%! assert (numel (gridio_open_files ()), before + 1);
%! gridio ("close", ncid);
%! delete (path);

%!test
%! ## Control characters in a path do not reach the terminal.
%! path = [tempname() "\x1b[2J.nc"];
%! ncid = gridio ("create", path, "clobber");
%! shown = evalc ("gridio_open_files ()");
%! assert (isempty (strfind (shown, "\x1b")));
%! assert (! isempty (strfind (shown, '\x1B[2J.nc')));
%! gridio ("close", ncid);
%! delete (path);

%!error <too many inputs> gridio_open_files (1)
