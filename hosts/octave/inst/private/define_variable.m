## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{ncid}, @var{varid}] =} define_variable (@var{ncid}, @var{groups}, @var{name}, @var{type}, @var{dims}, @var{settings})
## Undocumented internal function: define a variable, the groups and the dimensions that it needs, and how it is stored.
## @end deftypefn

function [ncid, varid] = define_variable (ncid, groups, name, type, dims, settings)

  for group = groups
    ncid = gridio ("defGrp", ncid, group{1});
  endfor
  for d = 1:numel (dims)
    if (dims(d).dimid < 0)
      dims(d).dimid = gridio ("defDim", ncid, dims(d).name, dims(d).length);
    endif
  endfor
  xtype = gridio_any ("inqTypeID", ncid, type);
  varid = gridio ("defVar", ncid, name, xtype, [dims.dimid]);
  if (! isempty (settings.FillValue))
    gridio_any ("defVarFill", ncid, varid, false, settings.FillValue);
  elseif (isequal (settings.NoFill, true))
    gridio ("defVarFill", ncid, varid, true, 0);
  endif
  if (! isempty (strfind (file_format (ncid), "netCDF-4")))
    define_storage (ncid, varid, name, xtype, dims, settings);
  endif

endfunction

function define_storage (ncid, varid, name, xtype, dims, settings)

  level = [settings.DeflateLevel, 0](1);
  [~, bytes] = gridio_any ("inqType", ncid, xtype);
  shuffle = level > 0 && bytes > 1;
  if (! isempty (settings.Shuffle))
    shuffle = settings.Shuffle;
  endif
  checksum = isequal (settings.Fletcher32, true);
  isChunked = any ([dims.isUnlimited]) || level > 0 || shuffle || checksum || ! isempty (settings.ChunkSizes) ...
              || strcmp (settings.Storage, "chunked");
  if (isChunked && ! isempty (dims))
    shape = settings.ChunkSizes;
    if (isempty (shape))
      shape = chunk_shape (max ([dims.length], [dims.count]), [dims.isUnlimited], bytes);
    elseif (numel (shape) == numel (dims))
      isTooLong = shape > [dims.length] & ! [dims.isUnlimited];
      shape(isTooLong) = [dims.length](isTooLong);
    endif
    gridio ("defVarChunking", ncid, varid, gridio ("parameter", "NC_CHUNKED"), shape);
    gridio ("defVarDeflate", ncid, varid, shuffle, level > 0, level);
    if (checksum)
      gridio ("defVarFletcher32", ncid, varid, gridio ("parameter", "NC_FLETCHER32"));
    endif
  endif
  if (! isempty (settings.Endianness))
    gridio_any ("defVarEndian", ncid, varid, settings.Endianness);
  endif

endfunction
