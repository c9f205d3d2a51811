## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn  {} {} gridio_plot (@var{v})
## @deftypefnx {} {} gridio_plot (@var{v}, @var{selection}, @dots{})
## @deftypefnx {} {} gridio_plot (@var{x}, @var{at})
## @deftypefnx {} {@var{fig} =} gridio_plot (@dots{})
## Draw a variable of a dataset: a series, a map, or a section with the depth downwards, whatever its shape suggests.
##
## @var{v} is a variable of a dataset, and @var{selection} what its method @code{at} takes.  Of a variable with more than two
## dimensions a map is drawn, or else a section, at the first position along the others; the title says where that is.
## Where it is in doubt which variable has the levels of a section, @qcode{"along"} and its name among the selections say so.
## @var{x} and @var{at} are the two results of @code{at} or of @code{gridio_read}, @var{x} perhaps changed since.
##
## @example
## @group
## ds = gridio_dataset ("era5.nc");
## gridio_plot (ds.t2m, "time", "2013-05-01 12:00", "lon", [-10, 30], "lat", [35, 70])
## print ("t2m.png", "-dpng", "-S800,600")
## [x, at] = ds.t2m.at ("lon", 12.5, "lat", 55.7);
## gridio_plot (x - 273.15, at)
## plot (ds.t2m)
## @end group
## @end example
##
## It is drawn into the current figure, which is cleared before, or into a new one.  Where there is no display, this is not
## shown, and can be printed.  Missing values are grey.  Two-dimensional longitudes and latitudes give a map of the means
## within boxes of a regular grid.  Coordinates that are not evenly spaced keep their places.
##
## If an output is asked for, it is the figure.  Values of which none is there to draw are an error, and so are more
## dimensions than two in @var{x}.
##
## @seealso{gridio_dataset, gridio_read, gridio_show}
## @end deftypefn

function fig = gridio_plot (what, varargin)

  if (nargin == 0)
    print_usage ();
  elseif (isa (what, "gridio_variable"))
    [x, at] = drawn_part (what, varargin);
  elseif (nargin == 2 && isstruct (varargin{1}) && isfield (varargin{1}, "about"))
    x = what;
    at = varargin{1};
  else
    fail ("notDrawable", ["gridio_plot takes a variable of a dataset and a selection, or the two results of its method " ...
          "at: [x, at] = ds.t2m.at (\"time\", \"2013-05\"); gridio_plot (x, at)"]);
  endif
  drawn = plot_values (x, at);
  if (nargout > 0)
    fig = drawn;
  endif

endfunction

%!function [x, at] = field ()
%!  x = [1 2 3; 4 NaN 6];
%!  one = struct ("name", "", "dimensions", {{}}, "role", "", "units", "", "long_name", "", "calendar", "", ...
%!                "isDatenum", false, "positive", "");
%!  lon = lat = time = one;
%!  lon.name = "lon";    lon.dimensions = {"lon"};    lon.role = "lon";    lon.units = "degrees_east";
%!  lat.name = "lat";    lat.dimensions = {"lat"};    lat.role = "lat";    lat.units = "degrees_north";
%!  time.name = "time";  time.dimensions = {"time"};  time.role = "time";  time.isDatenum = true;
%!  at = struct ("lon", [10; 20], "lat", [50; 45; 40], "time", datenum (2013, 5, 1, 12, 0, 0));
%!  at.about = struct ("variable", "t", "units", "K", "long_name", "", "standard_name", "air_temperature", ...
%!                     "dimensions", {{"lon", "lat", "time"}}, "coordinates", [lon, lat, time]);
%!endfunction

%!test
%! ## A map: north up, missing values in the first colour, the date in the title.
%! [x, at] = field ();
%! fig = gridio_plot (x, at);
%! unwind_protect
%!   drawn = findobj (fig, "type", "image");
%!   assert (numel (drawn), 2);
%!   map = drawn(cellfun (@(c) isequal (size (c), [3 2]), get (drawn, "cdata")));
%!   index = get (map, "cdata");
%!   assert (index(2,2), 1); # the middle latitude, the eastern longitude
%!   assert (index(1,2), 256); # the largest value is in the south, the first row
%!   assert (index(3,1), 2);
%!   assert (get (map, "ydata")([1 end])(:)', [40 50]);
%!   assert (strcmp (get (gca (), "ydir"), "normal"));
%!   colours = colormap ();
%!   assert (rows (colours), 256);
%!   assert (colours(1,:), [0.75 0.75 0.75]);
%!   heading = get (get (gca (), "title"), "string");
%!   heading = [cellstr(heading){:}];
%!   assert (! isempty (strfind (heading, "air temperature")));
%!   assert (! isempty (strfind (heading, "2013-05-01 12:00")));
%! unwind_protect_cleanup
%!   close (fig);
%! end_unwind_protect

%!test
%! ## A constant has a scale around it.
%! [x, at] = field ();
%! fig = gridio_plot (0 * ones (2, 3), at);
%! unwind_protect
%!   scale = findobj (fig, "type", "axes", "yaxislocation", "right");
%!   texts = str2double (get (scale, "yticklabel"));
%!   assert (any (texts < 0) && any (texts > 0) && any (texts == 0));
%! unwind_protect_cleanup
%!   close (fig);
%! end_unwind_protect

%!error id=Ovard:gridio:dataset:notDrawable
%! [x, at] = field ();
%! gridio_plot (NaN (2, 3), at);
%!error id=Ovard:gridio:dataset:notDrawable
%! [x, at] = field ();
%! at.time = [1; 2];
%! gridio_plot (ones (2, 3, 2), at);
%!error id=Ovard:gridio:dataset:notDrawable gridio_plot ([1 2 3])
%!error <Invalid call> gridio_plot ()
