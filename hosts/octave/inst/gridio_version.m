## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn  {} {} gridio_version ()
## @deftypefnx {} {@var{versions} =} gridio_version ()
## Report the versions of gridio, the netCDF library and HDF5, and what the library can do.
##
## Without an output, they are printed in a form fit to paste into a report of a problem.  @var{versions} is a struct with
## the fields
##
## @table @code
## @item gridio
## @itemx netcdf
## @itemx hdf5
## the versions in use, as text
## @item netcdf_built_with
## the version of the netCDF library that gridio was compiled with
## @item hdf5_libraries
## the paths of the HDF5 libraries in this process: first that of the netCDF library, then any other, such as one of Octave's own.
## Two at once do not disturb each other
## @item features
## a struct of logical values: remote data through @code{dap2} and @code{dap4}, @code{zarr} storage, the format
## @code{cdf5}, @code{diskless} files, @code{parallel} access
## @item filters
## a struct of logical values: which compression and checksum filters HDF5 has at hand, by name
## @item examples
## the folder of the example scripts; @file{shared} in it has the functions that they share
## @end table
##
## @example
## @group
## if (! gridio_version ().features.dap2)
##   error ("no remote data with this library");
## endif
## @end group
## @end example
##
## @seealso{gridio, gridio_manual, gridio_open_files}
## @end deftypefn

function versions = gridio_version ()

  found = ask_gridio ("versions");
  found.examples = own_path ("examples", "examples");
  if (nargout > 0)
    versions = found;
  else
    print_report (found);
  endif

endfunction

function print_report (found)

  printf ("gridio   %s\n", found.gridio);
  printf ("netCDF   %s", found.netcdf);
  if (! strcmp (found.netcdf, found.netcdf_built_with))
    printf (" (built with %s)", found.netcdf_built_with);
  endif
  printf ("\nHDF5     %s\n", found.hdf5);
  if (numel (found.hdf5_libraries) > 1)
    printf ("         from %s; also loaded: %s\n", found.hdf5_libraries{1}, strjoin (found.hdf5_libraries(2:end), ", "));
  endif
  printf ("Octave   %s\n", version ());
  printf ("system   %s\n", computer ());
  print_flags ("features", found.features);
  print_flags ("filters", found.filters);
  printf ("examples %s\n", merge (isempty (found.examples), "none", found.examples));

endfunction

function print_flags (title, flags)

  names = fieldnames (flags)';
  present = logical (cell2mat (struct2cell (flags)))';
  line = strjoin (names(present), " ");
  if (! all (present))
    line = [line "; not: " strjoin(names(! present), " ")];
  endif
  printf ("%-8s %s\n", title, line);

endfunction

%!test
%! found = gridio_version ();
%! assert (regexp (found.gridio, '^\d+\.\d+\.\d+$'));
%! assert (strncmp (gridio ("inqLibVers"), [found.netcdf " "], numel (found.netcdf) + 1));
%! assert (regexp (found.hdf5, '^\d+\.\d+'));
%! assert (all (structfun (@islogical, found.features)));
%! assert (found.filters.deflate && found.filters.shuffle && found.filters.fletcher32);

%!test
%! found = gridio_version ();
%! if (! isempty (found.examples))
%!   assert (exist (fullfile (found.examples, "field.m"), "file"), 2);
%!   assert (exist (fullfile (found.examples, "shared", "quotedText.m"), "file"), 2);
%! endif

%!test
%! ## Leaves no file behind, open or on the disk.
%! before = {gridio_open_files(), readdir(pwd ())};
%! found = gridio_version ();
%! assert ({gridio_open_files(), readdir(pwd ())}, before);

%!test
%! shown = evalc ("gridio_version ()");
%! for word = {"gridio", "netCDF", "HDF5", "Octave", "system", "features", "filters", "examples"}
%!   assert (regexp (shown, ["(^|\n)" word{1} " +\\S"]));
%! endfor

%!error <too many inputs> gridio_version (1)
