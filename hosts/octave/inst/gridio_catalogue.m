## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn  {} {@var{path} =} gridio_catalogue (@var{files})
## @deftypefnx {} {@var{path} =} gridio_catalogue (@var{files}, @var{output})
## @deftypefnx {} {@var{path} =} gridio_catalogue (@var{files}, @var{output}, @var{option}, @var{value}, @dots{})
## Write down what @code{gridio_dataset} finds out when it opens many files as one, so that they open at once the next time.
##
## @var{files} is a pattern or a cell of paths, and the options are those of @code{gridio_dataset}.  The catalogue is a netCDF
## file whose name ends in @file{.catalogue.nc}; without @var{output} it is @file{archive.catalogue.nc} in the folder of the
## first file.  It has the paths of the files, relative to its own folder, and of each the length and coordinates along the
## joined dimension, the size, and the time of the last change.
##
## @example
## @group
## gridio_catalogue ("sst_*.nc", "sst.catalogue.nc");
## ds = gridio_dataset ("sst.catalogue.nc");
## @end group
## @end example
##
## Opening a catalogue reads the catalogue and the first file.  Files that have changed are read again, with a warning; files
## that are not in the catalogue are not seen until it is made anew.  A catalogue that exists is replaced.
##
## @seealso{gridio_dataset}
## @end deftypefn

function path = gridio_catalogue (files, output, varargin)

  if (nargin == 0)
    print_usage ();
  endif
  [paths, label] = many_paths (files);
  if (isempty (paths))
    fail ("notAFile", "a catalogue is of many files: a pattern, or a cell of paths");
  endif
  if (nargin < 2)
    output = fullfile (fileparts (paths{1}), "archive.catalogue.nc");
  elseif (! is_catalogue (output))
    fail ("badName", "the name of a catalogue ends in \".catalogue.nc\", which %s does not", shown_text (output));
  endif
  file = many_open (paths, label, varargin{:});
  unwind_protect
    if (isempty (file.many))
      fail ("badCall", "\"%s\" is one file with nothing to be joined along; it needs no catalogue", shown_text (label));
    endif
    catalogue_write (output, file);
  unwind_protect_cleanup
    file_close (file);
  end_unwind_protect
  if (nargout > 0)
    path = output;
  endif

endfunction

%!test
%! folder = tempname ();
%! mkdir (folder);
%! unwind_protect
%!   for k = 1:3
%!     file = fullfile (folder, sprintf ("part%d.nc", k));
%!     gridio_write (file, "time", 730000 + k, "time", "units", "days since 2000-01-01", "_Unlimited", true);
%!     gridio_write (file, "t", 10 * k, "time", "units", "K");
%!   endfor
%!   path = gridio_catalogue (fullfile (folder, "*.nc"));
%!   ds = gridio_dataset (path);
%!   assert (ds.t(:), [10; 20; 30]);
%!   assert (ds.time(:), 730000 + (1:3)');
%! unwind_protect_cleanup
%!   clear ds
%!   confirm_recursive_rmdir (false, "local");
%!   rmdir (folder, "s");
%! end_unwind_protect
