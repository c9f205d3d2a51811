% SPDX-License-Identifier: BSD-3-Clause
% Copies a netCDF file with all that gridio's operations can express.
%   copy.m IN OUT      OUT must not exist yet
%   copy.m -f IN OUT   replaces OUT, once the copy is complete
%
% Kept are the format, groups, dimensions, attributes, values, and how each variable is stored:
% chunks, deflate, shuffle, checksum, fill value or none. Values go through memory in slabs of
% 16 MiB, or of one chunk where that is larger. What cannot be copied (variables of strings or
% user-defined types, attributes of user-defined types) is named on stderr. Of the storage, the byte
% order becomes the machine's, and filters other than these are left out: no operation knows them.
%
% Exit status: 0 all is copied; 1 an error, and no OUT is left behind; 3 something was left out.
1;
if (! exist ("gridio"))
  pkg load gridio
endif
addpath (fullfile (fileparts (mfilename ("fullpath")), "shared"));

function status = main (args)
  force = ! isempty (args) && strcmp (args{1}, "-f");
  if (numel (args) != 2 + force)
    error ("usage: copy.m [-f] IN OUT");
  endif
  [in, out] = args{end - 1:end};
  refuseToOverwrite (in, out, force);

  written = out;
  if (force)
    written = tempname (fullfile (".", fileparts (out)), "copy-");
    if (is_absolute_filename (out))
      written = tempname (fileparts (out), "copy-");
    endif
  endif
  complete = copyFile (in, written);
  if (force)
    [failed, why] = rename (written, out);
    if (failed)
      unlink (written);
      error ("%s: %s", out, why);
    endif
  endif
  status = merge (complete, 0, 3);
endfunction

function refuseToOverwrite (in, out, force)
  [there, missing] = stat (out);
  if (missing)
    return;
  endif
  [same, missing] = stat (in);
  if (! missing && same.ino == there.ino && same.dev == there.dev)
    error ("%s and %s are the same file", in, out);
  endif
  if (! force)
    error ("%s exists already; -f replaces it", out);
  endif
endfunction

% True if nothing was left out. On an error, what was written so far is removed.
function complete = copyFile (in, out)
  source = gridio ("open", in, "nowrite");
  [target, created] = deal ([]);
  unwind_protect
    format = fileFormat (source);
    % A close that fails, on a full disk, leaves a classic file open: the end of the session would try
    % again, and warn. Of a file from "pCreate" gridio knows nothing then.
    [~, target] = gridio ("pCreate", out, creationMode (format), 0, 2^20);
    created = out;
    netcdf4 = strncmp (format, "netCDF-4", 8);
    if (! netcdf4)  % each value will be written, so filling would write twice
      gridio ("setFill", target, gridio ("parameter", "NC_NOFILL"));
    endif
    [variables, complete] = defineGroup (source, target, [], netcdf4);
    gridio ("endDef", target);
    copyValues (variables);
    [closing, target] = deal (target, []);
    gridio ("close", closing);
    created = [];
  unwind_protect_cleanup
    try
      if (! isempty (target))
        gridio ("close", target);
      endif
    end_try_catch
    if (! isempty (created))
      unlink (created);
    endif
    gridio ("close", source);
  end_unwind_protect
endfunction

function mode = creationMode (format)
  flags.("classic") = {};
  flags.("64-bit offset") = {"NC_64BIT_OFFSET"};
  flags.("cdf5") = {};
  flags.("netCDF-4") = {"NC_NETCDF4"};
  flags.("netCDF-4 classic model") = {"NC_NETCDF4", "NC_CLASSIC_MODEL"};
  mode = gridio ("parameter", "NC_NOCLOBBER");
  for flag = flags.(format)
    mode += gridio ("parameter", flag{1});
  endfor
  if (strcmp (format, "cdf5"))
    mode += 32;  % the library's NC_64BIT_DATA, which has no named constant
  endif
endfunction

% Defines in TARGET what the group SOURCE holds. DIMIDS(i + 1) is the target's identifier of the
% source's dimension i, for the dimensions of the groups above. VARIABLES lists what to copy.
function [variables, complete] = defineGroup (source, target, dimids, netcdf4)
  NC_GLOBAL = gridio ("parameter", "NC_GLOBAL");
  unlimited = gridio ("inqUnlimDims", source);
  for dimid = gridio ("inqDimIDs", source, false)
    [name, len] = gridio ("inqDim", source, dimid);
    if (any (unlimited == dimid))
      len = gridio ("parameter", "NC_UNLIMITED");
    endif
    dimids(dimid + 1) = gridio ("defDim", target, name, len);
  endfor

  [~, ~, natts] = gridio ("inq", source);
  complete = copyAttributes (source, NC_GLOBAL, natts, target, NC_GLOBAL, "");

  variables = {};
  for varid = gridio ("inqVarIDs", source)
    [name, xtype, dims, natts] = gridio ("inqVar", source, varid);
    type = elementType (xtype);
    if (isempty (type.operation))
      leaveOut ("variable %s", name, type);
      complete = false;
      continue;
    endif
    variable = struct ("name", name, "type", type, "source", source, "varid", varid, ...
                       "target", target, "chunk", ones (1, numel (dims)));
    variable.newid = gridio ("defVar", target, name, xtype, dimids(dims + 1));
    variable.lengths = arrayfun (@(d) nthargout (2, @gridio, "inqDim", source, d), dims);
    if (netcdf4)
      variable.chunk = copyStorage (variable);
    endif
    complete &= copyAttributes (source, varid, natts, target, variable.newid, name);
    variables{end + 1} = variable;
  endfor

  if (netcdf4)
    for group = gridio ("inqGrps", source)
      copy = gridio ("defGrp", target, gridio ("inqGrpName", group));
      [below, all] = defineGroup (group, copy, dimids, netcdf4);
      variables = [variables, below];
      complete &= all;
    endfor
  endif
endfunction

% The attribute _FillValue is among them, and sets the fill value of a netCDF-4 variable.
function complete = copyAttributes (source, varid, natts, target, newid, variable)
  complete = true;
  for attnum = 0:natts - 1
    name = gridio ("inqAttName", source, varid, attnum);
    xtype = gridio ("inqAtt", source, varid, name);
    type = elementType (xtype);
    if (isempty (type.operation) && ! strcmp (type.name, "string"))
      leaveOut ("attribute %s", [variable ":" name], type);
      complete = false;
    else
      gridio ("copyAtt", source, varid, name, target, newid);
    endif
  endfor
endfunction

function leaveOut (what, name, type)
  fprintf (stderr, ["copy.m: not copied: " what ": no operation reads values of type %s\n"], ...
           name, type.name);
endfunction

% Stores a new variable of a netCDF-4 file like its original. CHUNK is what to read and write at
% once: the size of a chunk, or single values where there are no chunks.
function chunk = copyStorage (variable)
  from = {variable.source, variable.varid};
  to = {variable.target, variable.newid};
  chunk = variable.chunk;
  try
    [storage, sizes] = gridio ("inqVarChunking", from{:});
  catch failure
    if (! strcmp (failure.identifier, "Ovard:gridio:netcdf:unrecognizedChunkingCode"))
      rethrow (failure);
    endif
    fprintf (stderr, "copy.m: %s is contiguous in the copy: its storage has no name here\n", ...
             variable.name);
    [storage, sizes] = deal ("contiguous", []);
  end_try_catch
  gridio ("defVarChunking", to{:}, gridio ("parameter", ["NC_" upper(storage)]), sizes);
  if (! isempty (sizes))
    chunk = sizes;
  endif

  [shuffle, deflate, level] = gridio ("inqVarDeflate", from{:});
  if (shuffle || deflate)
    gridio ("defVarDeflate", to{:}, shuffle, deflate, level);
  endif
  if (strcmp (gridio ("inqVarFletcher32", from{:}), "FLETCHER32"))
    gridio ("defVarFletcher32", to{:}, gridio ("parameter", "NC_FLETCHER32"));
  endif
  if (gridio ("inqVarFill", from{:}))
    gridio ("defVarFill", to{:}, true, []);
  endif
endfunction

function copyValues (variables)
  total = sum (cellfun (@(v) prod (v.lengths) * v.type.bytes, variables));
  terminal = system ("test -t 2") == 0;
  interval = merge (terminal, 0.2, 5);  % seconds
  progress = struct ("total", total, "done", 0, "start", tic, "next", interval, ...
                     "interval", interval, "terminal", terminal);
  for i = 1:numel (variables)
    progress = copyVariable (variables{i}, progress);
  endfor
  fprintf (stderr, "copy.m: %d variables, %.1f MiB in %.1f s\n", numel (variables), total / 2^20, ...
           toc (progress.start));
endfunction

function progress = copyVariable (variable, progress)
  [lengths, type] = deal (variable.lengths, variable.type);
  if (isempty (lengths))
    value = gridio (["getVar" type.operation], variable.source, variable.varid);
    gridio (["putVar" type.operation], variable.target, variable.newid, value);
    return;
  endif
  slab = slabShape (lengths, variable.chunk, type.bytes);
  start = zeros (size (lengths));
  while (all (start < lengths))
    count = min (slab, lengths - start);
    values = gridio (["getVara" type.operation], variable.source, variable.varid, start, count);
    gridio (["putVara" type.operation], variable.target, variable.newid, start, count, values);
    progress = showProgress (progress, prod (count) * type.bytes, variable.name);
    start = nextStart (start, slab, lengths);
  endwhile
endfunction

% The shape of the slabs to copy: whole chunks, so that each is packed and unpacked once, as many
% of them as fit, along the fastest varying dimension first.
function slab = slabShape (lengths, chunk, bytes)
  limit = 16 * 2^20;
  slab = min (chunk, lengths);
  for d = 1:numel (lengths)
    fit = floor (limit / (prod (slab) * bytes));
    slab(d) = min (lengths(d), slab(d) * max (1, fit));
    if (slab(d) < lengths(d))
      return;
    endif
  endfor
endfunction

% Counts up like an odometer, the fastest varying dimension first; past the end after the last slab.
function start = nextStart (start, slab, lengths)
  for d = 1:numel (lengths)
    start(d) += slab(d);
    if (start(d) < lengths(d))
      return;
    endif
    if (d < numel (lengths))
      start(d) = 0;
    endif
  endfor
endfunction

% One line that is written over on a terminal, a line every few seconds elsewhere.
function progress = showProgress (progress, bytes, name)
  progress.done += bytes;
  elapsed = toc (progress.start);
  if (elapsed < progress.next)
    return;
  endif
  progress.next = elapsed + progress.interval;
  line = sprintf ("copy.m: %3.0f%% of %.1f MiB, %.1f s: %s", 100 * progress.done / progress.total, ...
                  progress.total / 2^20, elapsed, name);
  if (progress.terminal)
    fprintf (stderr, "%s\33[K\r", line);
  else
    fprintf (stderr, "%s\n", line);
  endif
endfunction

% copy.m [-f] IN OUT: copies a netCDF file with all that gridio's operations can express.

try
  exit (main (argv ()));
catch failure
  fprintf (stderr, "copy.m: %s\n", failure.message);
  exit (1);
end_try_catch
