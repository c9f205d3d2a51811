% Copies a netCDF file: types, groups, dimensions, attributes, values and storage.
%   copy.m IN OUT      OUT must not exist yet
%   copy.m -f IN OUT   replaces OUT, once the copy is complete
%
% Kept are also the format and how each variable is stored: chunks, filters, byte order, fill value or
% none. Values pass through memory in slabs of 16 MiB, or of one chunk where that is larger. What cannot
% be kept is named on stderr: null strings, which become empty ones, and storage that the library can
% read but not write.
%
% Exit status: 0 all is copied; 1 an error, and no OUT is left behind; 3 something could not be kept.
% SPDX-License-Identifier: BSD-3-Clause
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
    [variables, complete] = define (source, target, netcdf4);
    gridio ("endDef", target);
    complete &= copyValues (variables);
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

% Defines in TARGET all that SOURCE holds. Groups come first, then types and dimensions, since those of
% any group may be used in any other. VARIABLES lists what to copy.
function [variables, complete] = define (source, target, netcdf4)
  groups = struct ("source", source, "target", target);
  if (netcdf4)
    groups = defineGroups (groups);
  endif
  xtypes = 1:12;  % xtypes(t) is the target's number of the source's type t
  if (netcdf4)
    xtypes = copyTypes (groups);
  endif
  dimids = [];  % dimids(i + 1) is the target's identifier of the source's dimension i
  for group = groups
    dimids = defineDimensions (group, dimids);
  endfor
  if (netcdf4 && usesOtherDimensions (groups))
    gridio ("sync", target);
  endif
  NC_GLOBAL = gridio ("parameter", "NC_GLOBAL");
  [variables, complete] = deal ({}, true);
  for group = groups
    [~, ~, natts] = gridio ("inq", group.source);
    copyAttributes (group, NC_GLOBAL, natts, NC_GLOBAL, xtypes);
    for varid = gridio ("inqVarIDs", group.source)
      [variables{end + 1}, kept] = defineVariable (group, varid, dimids, xtypes, netcdf4);
      complete &= kept;
    endfor
  endfor
endfunction

% A list that grows takes the place of recursion, which the interpreter limits.
function groups = defineGroups (groups)
  next = 1;
  while (next <= numel (groups))
    for source = gridio ("inqGrps", groups(next).source)
      target = gridio ("defGrp", groups(next).target, gridio ("inqGrpName", source));
      groups(end + 1) = struct ("source", source, "target", target);
    endfor
    next += 1;
  endwhile
endfunction

function dimids = defineDimensions (group, dimids)
  unlimited = gridio ("inqUnlimDims", group.source);
  for dimid = gridio ("inqDimIDs", group.source, false)
    [name, len] = gridio ("inqDim", group.source, dimid);
    if (any (unlimited == dimid))
      len = gridio ("parameter", "NC_UNLIMITED");
    endif
    dimids(dimid + 1) = gridio ("defDim", group.target, name, len);
  endfor
endfunction

% True if a variable is over a dimension of a group that it is not in. The library writes a group's
% variables before the groups in it, and fails where such a dimension is not in the file yet.
function answer = usesOtherDimensions (groups)
  answer = false;
  for group = groups
    around = gridio ("inqDimIDs", group.source, true);
    for varid = gridio ("inqVarIDs", group.source)
      [~, ~, dims] = gridio ("inqVar", group.source, varid);
      answer |= ! all (ismember (dims, around));
    endfor
  endfor
endfunction

function [variable, kept] = defineVariable (group, varid, dimids, xtypes, netcdf4)
  [name, xtype, dims, natts] = gridio ("inqVar", group.source, varid);
  type = typeTree (group.source, xtype);
  variable = struct ("name", name, "type", type, "source", group.source, "varid", varid, ...
                     "target", group.target, "chunk", ones (1, numel (dims)));
  variable.newid = gridio ("defVar", group.target, name, xtypes(xtype), dimids(dims + 1));
  variable.lengths = arrayfun (@(d) nthargout (2, @gridio, "inqDim", group.source, d), dims);
  kept = true;
  if (netcdf4)
    [variable.chunk, kept] = copyStorage (variable);
  endif
  copyAttributes (group, varid, natts, variable.newid, xtypes);
endfunction

% The attribute _FillValue is among them, and sets the fill value of a netCDF-4 variable.
function copyAttributes (group, varid, natts, newid, xtypes)
  for attnum = 0:natts - 1
    name = gridio ("inqAttName", group.source, varid, attnum);
    xtype = gridio ("inqAtt", group.source, varid, name);
    if (xtype <= 12)
      gridio ("copyAtt", group.source, varid, name, group.target, newid);
      continue;
    endif
    values = gridio_any ("getAtt", group.source, varid, name);
    if (strcmp (name, "_FillValue") && newid >= 0)
      gridio_any ("defVarFill", group.target, newid, false, values);
    else
      gridio_any ("putAtt", group.target, newid, name, xtypes(xtype), values);
    endif
  endfor
endfunction

% Stores a new variable of a netCDF-4 file like its original. CHUNK is what to read and write at
% once: the size of a chunk, or single values where there are no chunks.
function [chunk, kept] = copyStorage (variable)
  from = {variable.source, variable.varid};
  to = {variable.target, variable.newid};
  [chunk, kept] = deal (variable.chunk, true);
  [storage, sizes] = gridio_any ("inqVarChunking", from{:});
  if (any (strcmp (storage, {"virtual", "unknown"})))
    fprintf (stderr, "copy.m: %s is contiguous in the copy: its storage is %s\n", variable.name, storage);
    [storage, kept] = deal ("contiguous", false);
  endif
  gridio_any ("defVarChunking", to{:}, storage, sizes);
  if (! isempty (sizes))
    chunk = sizes;
  endif
  [ids, parameters] = gridio_any ("inqVarFilters", from{:});
  for k = 1:numel (ids)
    copyFilter (to, ids(k), parameters{k});
  endfor
  order = gridio_any ("inqVarEndian", from{:});
  if (any (strcmp (variable.type.class, {"number", "char"})) && ! strcmp (order, "native"))
    gridio_any ("defVarEndian", to{:}, order);
  endif
  if (gridio_any ("inqVarFill", from{:}))
    gridio_any ("defVarFill", to{:}, true, []);
  endif
endfunction

% The library sets the parameters of its own filters itself.
function copyFilter (to, id, parameters)
  if (id == 2)
    gridio ("defVarDeflate", to{:}, true, false, 0);
  elseif (id == 3)
    gridio ("defVarFletcher32", to{:}, gridio ("parameter", "NC_FLETCHER32"));
  else
    gridio_any ("defVarFilter", to{:}, id, parameters);
  endif
endfunction

function kept = copyValues (variables)
  kept = true;
  total = sum (cellfun (@(v) prod (v.lengths) * v.type.bytes, variables));
  terminal = system ("test -t 2") == 0;
  interval = merge (terminal, 0.2, 5);  % seconds
  progress = struct ("total", total, "done", 0, "start", tic, "next", interval, ...
                     "interval", interval, "terminal", terminal);
  for i = 1:numel (variables)
    [progress, nulls] = copyVariable (variables{i}, progress);
    if (nulls > 0)
      fprintf (stderr, "copy.m: %s: null strings became empty ones: %d\n", variables{i}.name, nulls);
      kept = false;
    endif
  endfor
  fprintf (stderr, "copy.m: %d variables, %.1f MiB in %.1f s\n", numel (variables), total / 2^20, ...
           toc (progress.start));
endfunction

function [progress, nulls] = copyVariable (variable, progress)
  [lengths, type] = deal (variable.lengths, variable.type);
  [from, to] = deal ({variable.source, variable.varid}, {variable.target, variable.newid});
  if (isempty (lengths))
    values = gridio_any ("getVar", from{:});
    gridio_any ("putVar", to{:}, values);
    nulls = nullStrings (type, values);
    return;
  endif
  nulls = 0;
  % Of strings and vlens, whose size shows when they are read, few at first.
  ownsMemory = ! any (strcmp (type.class, {"number", "char", "enum", "opaque"}));
  chunk = merge (ownsMemory, ones (size (lengths)), min (variable.chunk, lengths));
  bytes = merge (ownsMemory, 2^14, type.bytes);
  start = zeros (size (lengths));
  while (all (start < lengths))
    slab = slabShape (start, lengths, chunk, bytes, 16 * 2^20);
    count = min (slab, lengths - start);
    values = gridio_any ("getVara", from{:}, start, count);
    gridio_any ("putVara", to{:}, start, count, values);
    if (ownsMemory)
      nulls += nullStrings (type, values);
      bytes = max (bytes / 8, 128 + sizeof (values) / prod (count));
    endif
    progress = showProgress (progress, prod (count) * type.bytes, variable.name);
    start = nextStart (start, slab, lengths);
  endwhile
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
