## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} gridio_write (@var{file}, @var{name}, @var{values}, @var{dimensions}, @var{attribute}, @var{value}, @dots{})
## Write a variable into a netCDF file, with its dimensions and attributes.
##
## If there is no file of that name, it is created; if there is one, the variable is added.  @var{dimensions} is the name of
## a dimension, or a cell array of such names, in the order of the dimensions of @var{values}; they are defined if the file
## does not have them.  A variable that is named like its dimension is the coordinate of this dimension.
##
## @example
## @group
## gridio_write ("sst.nc", "lon", 0:5:355, "lon", "units", "degrees_east");
## gridio_write ("sst.nc", "lat", -90:10:90, "lat", "units", "degrees_north");
## gridio_write ("sst.nc", "sst", 15 + 10 * rand (72, 19), @{"lon", "lat"@}, ...
##               "units", "degC", "standard_name", "sea_surface_temperature", ...
##               "scale_factor", 0.01, "_Type", "short", "_DeflateLevel", 1);
## @end group
## @end example
##
## NaN is written as the fill value.  With @code{scale_factor} or @code{add_offset} the values are packed, as
## @qcode{"short"} if no other type is given.  If the units are those of time, such as @qcode{"days since 2000-01-01"}, the
## values are day numbers, as @code{datenum} gives them, and are written in these units and the calendar of the attribute
## @code{calendar}.  In calendars other than @qcode{"standard"}, @qcode{"gregorian"} and @qcode{"proleptic_gregorian"}, which have
## no day numbers, they are numbers in these units, as they are read.  Texts, in a cell array, are dates in every calendar.
## Values that cannot be stored are an error, and then nothing is written.
##
## These attributes say how the variable is stored, and are not written as such:
##
## @table @code
## @item _Type
## the type: @qcode{"byte"}, @qcode{"short"}, @qcode{"int"}, @qcode{"int64"}, @qcode{"ubyte"}, @qcode{"ushort"},
## @qcode{"uint"}, @qcode{"uint64"}, @qcode{"float"}, @qcode{"double"}, @qcode{"char"}, @qcode{"string"}, or one that the file
## defines; without it, that of the class of @var{values}
## @item _FillValue
## the stored value of missing ones; without it, the type's own fill value
## @item _Unlimited
## @code{true} if the slowest varying dimension is to be unlimited, so that one can append, or the name of the dimension
## @item _ChunkSizes
## lengths of chunks, one for each dimension; without it, chunks of about 1 MiB where chunks are needed
## @item _DeflateLevel
## @itemx _Shuffle
## compression from 0 to 9, and whether bytes are reordered first
## @item _Fletcher32
## whether each chunk gets a checksum
## @item _Endianness
## @qcode{"little"}, @qcode{"big"} or @qcode{"native"}
## @item _NoFill
## @itemx _Storage
## @code{true} to leave unwritten values undefined; @qcode{"contiguous"} or @qcode{"chunked"}
## @item _Format
## the format of a new file, as @command{ncdump -k} names it; without it, @qcode{"netCDF-4"}
## @end table
##
## @seealso{gridio_dataset, gridio_read, gridio_show}
## @end deftypefn

function gridio_write (file, name, values, dimensions = {}, varargin)

  if (nargin < 3)
    print_usage ();
  elseif (! ischar (file) || rows (file) != 1)
    fail ("notAFile", "the file must be a text, its path");
  endif

  isNew = ! exist (file, "file");
  if (isNew)
    [~, settings] = storage_settings (name, varargin{:});
    if (isempty (settings.Format))
      settings.Format = "netCDF-4";
    endif
    ncid = file_create (file, "new", settings.Format);
  else
    ncid = gridio ("open", file, "write");
  endif
  try
    put_variable (ncid, name, values, dimensions, varargin{:});
    gridio ("close", ncid);
  catch failure
    close_after (failure, ncid, merge (isNew, file, ""));
  end_try_catch

endfunction

## A new file is deleted, as it has nothing but what failed.
function close_after (failure, ncid, file)

  try
    gridio ("close", ncid);
  catch
    ## The file was closed, or the same error comes again.
  end_try_catch
  if (! isempty (file))
    unlink (file);
  endif
  raise (failure.identifier, failure.message);

endfunction

%!function [file, done] = scratch ()
%!  file = [tempname() ".nc"];
%!  done = onCleanup (@() delete (file));
%!endfunction

%!test
%! [file, done] = scratch ();
%! gridio_write (file, "x", 1:3, "x", "units", "m");
%! gridio_write (file, "t", [1.5 NaN -2], "x", "units", "degC", "scale_factor", 0.5, "_Type", "byte");
%! ncid = gridio ("open", file, "nowrite");
%! assert (gridio ("getVarSchar", ncid, 1), int8 ([3; -127; -4]));
%! assert (gridio ("getAttSchar", ncid, 1, "_FillValue"), int8 (-127));
%! assert (gridio ("getAttText", ncid, -1, "Conventions"), "CF-1.11");
%! gridio ("close", ncid);

%!test
%! ## Leaves no file behind if the values do not fit.
%! [file, done] = scratch ();
%! fail_ = "";
%! try
%!   gridio_write (file, "t", 300, {}, "_Type", "byte");
%! catch err
%!   fail_ = err.identifier;
%! end_try_catch
%! assert (fail_, "Ovard:gridio:dataset:doNotFit");
%! assert (! exist (file, "file"));
%! gridio_write (file, "t", 30, {}, "_Type", "byte");
%! try
%!   gridio_write (file, "u", 300, {}, "_Type", "byte");
%! end_try_catch
%! ncid = gridio ("open", file, "nowrite");
%! assert (gridio ("inqVarIDs", ncid), 0);
%! gridio ("close", ncid);

%!error <Invalid call> gridio_write ("a.nc")
%!error id=Ovard:gridio:dataset:notAFile gridio_write (1, "x", 1)
