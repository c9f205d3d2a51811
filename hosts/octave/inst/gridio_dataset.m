## SPDX-License-Identifier: BSD-3-Clause

classdef gridio_dataset < handle

  ## -*- texinfo -*-
  ## @deftypefn  {} {@var{ds} =} gridio_dataset (@var{file})
  ## @deftypefnx {} {@var{ds} =} gridio_dataset (@var{files})
  ## @deftypefnx {} {@var{ds} =} gridio_dataset (@var{file}, @var{mode})
  ## @deftypefnx {} {@var{ds} =} gridio_dataset (@dots{}, @var{option}, @var{value}, @dots{})
  ## Open a netCDF file, or an address, or many files as one, as a labelled dataset.
  ##
  ## @var{mode} is @qcode{"read"}, the default, @qcode{"write"}, @qcode{"new"}, or @qcode{"replace"}.
  ## The file is closed when the last variable that refers to the dataset or to a part of it is
  ## cleared.
  ##
  ## @example
  ## @group
  ## ds = gridio_dataset ("era5.nc")       # prints what there is
  ## ds.t2m                                # a variable; nothing is read yet
  ## x = ds.t2m(:,:,1);                    # values, missing ones as NaN
  ## [x, at] = ds.t2m.at ("time", "2013-05", "lat", [40 60]);
  ## ds.title                              # an attribute
  ## ds("PRODUCT/qa_value")                # by its path, or a name that is no identifier
  ## @end group
  ## @end example
  ##
  ## @table @asis
  ## @item Names
  ## @code{ds.NAME} is the variable, group or attribute of that name, in this order; failing these, @code{lat}, @code{lon},
  ## @code{time} and @code{level} are the coordinate that serves as such.  A variable whose name is that of a method is
  ## @code{ds("NAME")}.
  ## @item Methods
  ## @code{variables ()}, @code{dimensions ()} and @code{groups ()} are names in a column; @code{variables (ATTRIBUTE, VALUE)}
  ## those of the variables with such attributes.  @code{group (NAME)} is a dataset of a group.  @code{find (ATTRIBUTE, VALUE)}
  ## is the one variable with this attribute.  @code{bounds (NAME)} has the bounds of a coordinate's cells, as stored or
  ## else half way between the values.  @code{attributes ()} is a struct.  @code{close ()} closes the file now.
  ## @item Many files
  ## @var{files} is a pattern such as @qcode{"sst_*.nc"}, or a cell of paths and patterns, also of one.  The files are joined
  ## along their unlimited dimension, else along that of their times, else along the one whose coordinates differ;
  ## @qcode{"along"} names another, and @qcode{"new dimension"} one that they do not have, whose coordinate has the numbers in
  ## which the files' names differ, or the names.  They are sorted by the coordinate, not by name, and all times are in the
  ## units of the first file, which also has the attributes and whatever does not lie along the joined dimension.  Each file is
  ## unpacked by its own attributes, and opened when it is read; at most 64 are open at a time.  Reductions read one file
  ## after the other.  @code{files ()} is a struct with the paths in order, their lengths, first and last coordinates, the
  ## gaps between them and which overlap.  A file that cannot be read is an error, or with
  ## @qcode{"missing", "skip"} left out with a warning.  A @file{.catalogue.nc} that @code{gridio_catalogue} has made opens the
  ## files of which it was made.  Many files are only read.
  ## @item Writing
  ## @qcode{"new"} creates a file and refuses one that is there; @qcode{"replace"} writes beside the file, which is replaced when
  ## the new one is closed, and stays if an error comes before; @qcode{"write"} opens a file to change it.  The option
  ## @qcode{"_Format"} chooses the format of a new file.  @code{put (NAME, VALUES, DIMENSIONS, ATTRIBUTE, VALUE, @dots{})}
  ## makes a variable, as @code{gridio_write} explains.  @code{append (NAME, VALUES, NAME, VALUES, @dots{})} adds records along
  ## the unlimited dimension.  @code{ds.sst(:,:,3) = x} writes values, packed as the variable is and NaN as its fill value, and
  ## @code{ds.sst.units = "K"} and @code{ds.title = "SST"} write attributes, which @code{[]} deletes.  Values that do not fit
  ## are an error, and then nothing is written.
  ## @item Options
  ## Missing values become NaN, packed values are unpacked, times become day numbers as of @code{datenum}, and characters
  ## texts.  Rules are switched off by name: @qcode{"missing"} (the attributes @code{_FillValue} and @code{missing_value}),
  ## @qcode{"default_fill"} (values that were never written), @qcode{"valid_range"} (with @code{valid_min} and
  ## @code{valid_max}), @qcode{"unsigned"} (@code{_Unsigned}), @qcode{"scale"} (@code{scale_factor} and @code{add_offset}),
  ## @qcode{"times"} and @qcode{"texts"}; all are switched off by @qcode{"decode"}.  @qcode{"single"} switches on that
  ## packed values become single.  @qcode{"months"} says how months and years are taken as units of time: @qcode{"calendar"},
  ## as steps of the calendar, @qcode{"udunits"}, as lengths in days, or @qcode{"refused"}, the default.
  ## @end table
  ##
  ## Datasets can be neither saved nor concatenated; the values that are read from them are ordinary arrays.  A function for
  ## @code{parcellfun}, which saves it for other processes, opens its datasets itself.
  ##
  ## @seealso{gridio_variable, gridio_catalogue, gridio_show, gridio_read, gridio_write, gridio_plot, gridio}
  ## @end deftypefn

  properties (Access = private)
    owner_; # the dataset that closes the file; empty in that itself
    group_; # which group of the file, from 1
    guard_; # in that: the open file
  endproperties

  methods

    function self = gridio_dataset (file, varargin)
      if (nargin == 0) # deliberately without print_usage, after which the interpreter does not find the class any more
        fail ("badCall", "which file? gridio_dataset (FILE), gridio_dataset (FILE, MODE)");
      elseif (isa (file, "gridio_dataset"))
        self.owner_ = owner (file);
        self.group_ = varargin{1};
      else
        self.group_ = 1;
        guarded = gridio_file (file_open (file, varargin{:}));
        self.guard_ = gridio_file (guarded);
        open_datasets ("add", guarded);
      endif
    endfunction

    function close (self)
      file = content (self);
      root = owner (self);
      root.guard_.guarded.isOpen = false;
      root.guard_.guarded.content = [];
      open_datasets ("sweep");
      file_close (file);
    endfunction

    function varargout = subsref (self, way)
      varargout = dataset_subsref (self, way, nargout);
    endfunction

    function self = subsasgn (self, way, value)
      dataset_assign (self, way, value);
    endfunction

    function disp (self)
      show_dataset (content (self), self.group_);
    endfunction

    function display (self)
      printf ("%s = ", inputname (1));
      disp (self);
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

    function dataset = owner (self)
      dataset = self.owner_;
      if (isempty (dataset))
        dataset = self;
      endif
    endfunction

    function [file, group] = content (self)
      root = owner (self);
      guarded = root.guard_.guarded;
      if (! guarded.isOpen)
        fail ("closed", "the dataset is closed; open its file again");
      endif
      file = guarded.content;
      group = self.group_;
      file_check (file);
    endfunction

    ## To be called after the file has changed, or a change has failed.
    function refresh (self, outcome)
      root = owner (self);
      guarded = root.guard_.guarded;
      guarded.content = file_changed (guarded.content, outcome);
    endfunction

  endmethods

endclassdef

%!test
%! path = [tempname() ".nc"];
%! unwind_protect
%!   gridio_write (path, "t", [1 2 3], "x", "units", "K");
%!   ds = gridio_dataset (path);
%!   assert (ds.variables (), {"t"});
%!   assert (ds.t(end), 3);
%!   assert (ds("t").units, "K");
%! unwind_protect_cleanup
%!   clear ds
%!   delete (path);
%! end_unwind_protect
