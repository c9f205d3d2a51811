## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn  {} {} gridio_show (@var{file})
## @deftypefnx {} {} gridio_show (@var{file}, @var{name})
## Print what a netCDF file has, or what its variable or group of a name is.
##
## @example
## @group
## gridio_show ("era5.nc")
## gridio_show ("era5.nc", "t2m")
## @end group
## @end example
##
## @seealso{gridio_dataset, gridio_read}
## @end deftypefn

function gridio_show (file, name)

  if (nargin == 0)
    print_usage ();
  endif
  ds = gridio_dataset (file);
  if (nargin == 1)
    disp (ds);
  else
    disp (dataset_member (ds, name));
  endif

endfunction

%!test
%! path = [tempname() ".nc"];
%! unwind_protect
%!   gridio_write (path, "t", [1 2 3], "x", "units", "K");
%!   shown = evalc ("gridio_show (path)");
%!   assert (! isempty (strfind (shown, "x 3")));
%!   assert (! isempty (strfind (shown, "[K]")));
%! unwind_protect_cleanup
%!   clear ds
%!   delete (path);
%! end_unwind_protect
