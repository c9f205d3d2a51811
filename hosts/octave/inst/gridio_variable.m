## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{v} =} @var{ds}.NAME
## A variable of a dataset, of which nothing is read until it is indexed.
##
## Positions count from 1.  Dimensions are in the order of the interpreter, the fastest first, as the printed variable
## names them.
##
## @example
## @group
## v = gridio_dataset ("era5.nc").t2m      # prints shape, storage, coordinates, attributes
## x = v(:,:,1);   y = v(10:20,1,end);     # values, missing ones as NaN
## r = v.raw(:,:,1);                       # as stored
## v.units                                 # an attribute
## @end group
## @end example
##
## @seealso{gridio_dataset}
## @end deftypefn

classdef gridio_variable < handle

  properties (Access = private)
    dataset_; # the dataset that closes the file
    ncid_; # of its group
    varid_;
    mask_; # rules of decoding that are left on
  endproperties

  methods

    function self = gridio_variable (dataset, number, mask = 255)
      if (nargin < 2)
        print_usage ();
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

    function varargout = plot (self, varargin)
      varargout = cell (1, nargout);
      [varargout{:}] = gridio_plot (self, varargin{:});
    endfunction

    function saved = saveobj (~)
      fail ("notSavable", "a variable of a file cannot be saved; save the values that are read from it");
    endfunction

    function joined = horzcat (varargin)
      fail ("notJoinable", "variables of files cannot be concatenated; their values can: [v(:), w(:)]");
    endfunction

    function joined = vertcat (varargin)
      fail ("notJoinable", "variables of files cannot be concatenated; their values can: [v(:); w(:)]");
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
