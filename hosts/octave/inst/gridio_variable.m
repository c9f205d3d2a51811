## SPDX-License-Identifier: BSD-3-Clause

classdef gridio_variable < handle

  ## -*- texinfo -*-
  ## @deftypefn {} {@var{v} =} @var{ds}.NAME
  ## A variable of a dataset, of which nothing is read until it is indexed.
  ##
  ## Positions count from 1.  Dimensions are in the order of the interpreter, the fastest first, as the printed variable
  ## names them.
  ##
  ## @example
  ## @group
  ## v = gridio_dataset ("era5.nc").t2m;     # printed: shape, storage, coordinates, attributes
  ## x = v(:,:,1);   y = v(10:20,1,end);     # values, missing ones as NaN
  ## r = v.raw(:,:,1);                       # as stored
  ## v.units                                 # an attribute
  ## [x, at] = v.at ("time", "2013-05", "lat", [40 60], "lon", 12.5);
  ## [m, at] = v.mean ("time", "by", "month");
  ## @end group
  ## @end example
  ##
  ## @table @asis
  ## @item at (@var{name}, @var{selection}, @dots{})
  ## The values at a selection by coordinates, and a struct of the coordinates of what came back.  A name is that of a
  ## dimension, of a coordinate, or @code{lat}, @code{lon}, @code{time} or @code{level}, whatever the file calls these.  What
  ## is not named comes whole.  A selection is
  ##
  ## @table @asis
  ## @item a number
  ## the nearest point; of cells with bounds the one that it is in.  @qcode{"within"}, @var{d} behind it bounds how far the
  ## point may be; else it may be one step beyond the ends
  ## @item two numbers in a vector
  ## all from the first to the second.  Longitudes go east from the first to the second in either convention, also over the
  ## seam, and are counted in the second result as they were asked
  ## @item a text
  ## of times a period (@qcode{"2013"}, @qcode{"2013-05"}, @qcode{"2013-05-01"}) or the nearest to a moment
  ## (@qcode{"2013-05-01 18:00"}), in the calendar of the file; of texts the one that is the same
  ## @item a cell
  ## of two texts the times from the one to the end of the other; of several numbers, moments or texts the nearest of each
  ## @item @qcode{":"}
  ## all
  ## @end table
  ##
  ## @qcode{"index"} before a name says that positions follow.  Where longitude and latitude have two dimensions, a number
  ## for each is the nearest point on the sphere, and a range for each a box: the smallest block around it, whose other values
  ## are NaN.  Numbers for times are day numbers as of @code{datenum}, in other calendars as stored.
  ## @item mean, sum, min, max, std, var, count, median (@var{dimensions}, @dots{})
  ## Over a dimension, a cell of several, or all, without missing values; the file is read in slabs, and in an interactive session
  ## the terminal shows how far long work is.  The second result has the
  ## coordinates of what is left.  @qcode{"weights"} are @qcode{"area"} or a vector.  @qcode{"by"} takes groups of times
  ## apart: @qcode{"month"}, @qcode{"season"}, @qcode{"day"} and @qcode{"hour"} those of all years or days together,
  ## @qcode{"year"}, @qcode{"each month"}, @qcode{"each season"}, @qcode{"each day"} and @qcode{"each hour"} one after the
  ## other.  Further names with selections are as of @code{at}.  Of many files, @qcode{"on"} shares the work among several
  ## processes: its places and further options are those of @code{gridio_reduce}.
  ## @item text (@dots{}), parts (@dots{})
  ## Times as texts, or as rows of year, month, day, hour, minute and second, in every calendar; all, or those at positions.
  ## @item labels (@var{values})
  ## What values mean by the variable's enumeration, or by @code{flag_values}, @code{flag_masks} and @code{flag_meanings}; a
  ## table of both without values.
  ## @item area ()
  ## The areas of the cells in square metres: as stored by @code{cell_measures}, else between the bounds on a sphere of radius
  ## 6371 km.
  ## @item name (), dimensions (), attributes ()
  ## Its name, the names of its dimensions, and its attributes as a struct.
  ## @item raw
  ## The same variable without decoding.
  ## @end table
  ##
  ## @code{numel} of a variable is 1; @code{size}, @code{length} and @code{ndims} are those of its values.  An access costs some calls of
  ## functions: read a block, and loop over that.
  ##
  ## @seealso{gridio_dataset, gridio_reduce, gridio_read, gridio_plot}
  ## @end deftypefn

  properties (Access = private)
    dataset_; # the dataset that closes the file
    ncid_; # of its group
    varid_;
    mask_; # rules of decoding that are left on
  endproperties

  methods

    function self = gridio_variable (dataset, number, mask = 255)
      if (nargin < 2)
        fail ("badCall", "a variable is made by its dataset: ds.NAME");
      endif
      self.dataset_ = owner (dataset);
      file = content (self.dataset_);
      self.ncid_ = file.d.groups.ncid(file.d.variables.group(number));
      self.varid_ = file.d.variables.varid(number);
      self.mask_ = mask;
    endfunction

    function varargout = subsref (self, way)
      varargout = variable_subsref (self, way, nargout);
    endfunction

    function self = subsasgn (self, way, value)
      variable_assign (self, way, value);
    endfunction

    function last = end (self, k, count)
      [file, number] = inside (self);
      lengths = [variable_shape(file, number).lengths, 1];
      last = prod (lengths(k:end));
      if (k < count && k <= numel (lengths))
        last = lengths(k);
      endif
    endfunction

    function varargout = size (self, varargin)
      [file, number] = inside (self);
      lengths = [variable_shape(file, number).lengths, 1, 1];
      lengths = lengths(1:max (2, numel (lengths) - 2));
      varargout = cell (1, max (nargout, 1));
      [varargout{:}] = sizes (lengths, varargin{:});
    endfunction

    function longest = length (self)
      lengths = size (self);
      longest = max (lengths) * all (lengths);
    endfunction

    function count = ndims (self)
      count = numel (size (self));
    endfunction

    function disp (self)
      [file, number] = inside (self);
      show_variable (file, number);
    endfunction

    function display (self)
      printf ("%s = ", inputname (1));
      disp (self);
    endfunction

    function values = double (self)
      values = double (subsref (self, substruct ("()", {})));
    endfunction

    function [x, at] = mean (self, varargin)
      [x, at] = reduced (nargout, "mean", self, varargin{:});
    endfunction

    function [x, at] = sum (self, varargin)
      [x, at] = reduced (nargout, "sum", self, varargin{:});
    endfunction

    function [x, at] = min (self, varargin)
      [x, at] = reduced (nargout, "min", self, varargin{:});
    endfunction

    function [x, at] = max (self, varargin)
      [x, at] = reduced (nargout, "max", self, varargin{:});
    endfunction

    function [x, at] = std (self, varargin)
      [x, at] = reduced (nargout, "std", self, varargin{:});
    endfunction

    function [x, at] = var (self, varargin)
      [x, at] = reduced (nargout, "var", self, varargin{:});
    endfunction

    function [x, at] = count (self, varargin)
      [x, at] = reduced (nargout, "count", self, varargin{:});
    endfunction

    function [x, at] = median (self, varargin)
      [x, at] = reduced (nargout, "median", self, varargin{:});
    endfunction

    function varargout = plot (self, varargin)
      varargout = cell (1, nargout);
      if (nargin > 1 && (isnumeric (varargin{1}) || isa (varargin{1}, "gridio_variable")))
        [varargout{:}] = plot (plain_values ({self, varargin{:}}){:}); # as plot (X, Y) of arrays
      else
        [varargout{:}] = gridio_plot (self, varargin{:});
      endif
    endfunction

    function saved = saveobj (~)
      refuse ("saved");
    endfunction

    function joined = horzcat (varargin)
      refuse ("joined");
    endfunction

    function joined = vertcat (varargin)
      refuse ("joined");
    endfunction

  endmethods

  methods (Hidden)

    ## The file, with the rules of decoding for this variable, the variable's number in it, and the dataset.
    function [file, number, dataset] = inside (self)
      dataset = self.dataset_;
      file = content (dataset);
      file.flags = bitand (file.flags, self.mask_);
      d = file.d;
      number = find (d.variables.varid == self.varid_ & d.groups.ncid(d.variables.group)(:) == self.ncid_, 1);
    endfunction

    function other = masked (self, mask)
      [~, number, dataset] = inside (self);
      other = gridio_variable (dataset, number, mask);
    endfunction

  endmethods

endclassdef

%!test
%! path = [tempname() ".nc"];
%! unwind_protect
%!   gridio_write (path, "t", [1 2 3], "x", "units", "K");
%!   ds = gridio_dataset (path);
%!   assert (ds.t(2:3), [2; 3]);
%!   assert (size (ds.t), [3 1]);
%!   assert (mean (ds.t, "x"), 2);
%! unwind_protect_cleanup
%!   clear ds
%!   delete (path);
%! end_unwind_protect

%!test
%! ## As arguments of plot and length, variables are their values.
%! path = [tempname() ".nc"];
%! fig = figure ("visible", "off");
%! unwind_protect
%!   gridio_write (path, "x", [1 2 4], "x");
%!   gridio_write (path, "t", [5 6 7], "x");
%!   ds = gridio_dataset (path);
%!   assert (length (ds.t), 3);
%!   line = plot (ds.x, ds.t);
%!   assert (get (line, "xdata"), [1 2 4]);
%!   assert (get (line, "ydata"), [5 6 7]);
%!   line = plot (ds.x, reshape ([1 0 1], 1, 1, 3));
%!   assert (get (line, "ydata"), [1 0 1]);
%! unwind_protect_cleanup
%!   clear ds
%!   close (fig);
%!   delete (path);
%! end_unwind_protect
