## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{x}, @var{at}] =} gridio_read (@var{file}, @var{name}, @var{selection}, @dots{})
## Read a variable of a netCDF file, whole or at a selection by coordinates as of @code{gridio_variable}.
##
## @var{at} is a struct of the coordinates of the values read.
##
## @example
## @group
## t = gridio_read ("era5.nc", "t2m", "time", "2013-05", "lat", [40 60], "lon", 12.5);
## @end group
## @end example
##
## @seealso{gridio_dataset, gridio_variable, gridio_show}
## @end deftypefn

function [x, at] = gridio_read (file, name, varargin)

  if (nargin < 2)
    print_usage ();
  endif
  v = dataset_member (gridio_dataset (file), name);
  if (! isa (v, "gridio_variable"))
    fail ("unknownName", "'%s' is no variable", shown_text (name));
  endif
  if (nargout > 1)
    [x, at] = variable_at (v, varargin{:});
  else
    x = variable_at (v, varargin{:});
  endif

endfunction

%!test
%! path = [tempname() ".nc"];
%! unwind_protect
%!   gridio_write (path, "t", [1 2 3], "x", "units", "K");
%!   assert (gridio_read (path, "t"), [1; 2; 3]);
%!   assert (gridio_read (path, "t", "index", "x", 2), 2);
%! unwind_protect_cleanup
%!   clear ds
%!   delete (path);
%! end_unwind_protect
