## SPDX-License-Identifier: BSD-3-Clause
## ./gridio run bench/advice.m [FOLDER] [NAME...]
## What a script can do for its speed, measured: each way of doing something against the usual one, in turns. Files are
## made in a new folder under FOLDER (else /dev/shm), which is removed. NAME... chooses among the functions below.
1;

## --- Files and timing

function path = file_in (name)
  global folder
  path = fullfile (folder, name);
endfunction

function mode = mode_of (format)
  mode = {"clobber", "netcdf4"}{1 + strcmp (format, "netcdf4")};
endfunction

## A file with one variable "v" of that type and size; what is set up between its definition and the end of define
## mode is the function's part.
function [ncid, varid] = new_field (path, mode, type, lengths, setup = @(ncid, varid) [])
  ncid = gridio ("create", path, mode);
  dimids = arrayfun (@(i) gridio ("defDim", ncid, sprintf ("d%d", i), lengths(i)), 1:numel (lengths));
  varid = gridio ("defVar", ncid, "v", gridio ("parameter", ["NC_" type]), dimids);
  setup (ncid, varid);
  gridio ("endDef", ncid);
endfunction

function path = file_of (name, mode, type, lengths, values, setup = @(ncid, varid) [])
  path = file_in (name);
  [ncid, varid] = new_field (path, mode, type, lengths, setup);
  gridio (["putVar" toupper(type(1)) tolower(type(2:end))], ncid, varid, values);
  gridio ("close", ncid);
endfunction

function seconds = timed (work)
  start = tic;
  work ();
  seconds = toc (start);
endfunction

## Prints the median time of each way, and its ratio to the first. All do the same, and show it by equal results.
function compare (title, varargin)
  labels = varargin(1:2:end);
  works = varargin(2:2:end);
  rounds = 5;
  seconds = zeros (rounds, numel (works));
  for round = 1:rounds
    for i = 1:numel (works)
      seconds(round,i) = timed (works{i});
    endfor
  endfor
  middle = median (seconds);
  printf ("\n%s\n", title);
  for i = 1:numel (works)
    printf ("  %-58s %9.2f ms  %7.3f\n", labels{i}, middle(i) * 1e3, middle(i) / middle(1));
  endfor
  fflush (stdout);
endfunction

## Opens, works, closes: for ways that differ in how the file is opened.
function values = with_file (path, work, hint = 0)
  if (hint > 0)
    [~, ncid] = gridio ("pOpen", path, "nowrite", hint);
  else
    ncid = gridio ("open", path, "nowrite");
  endif
  values = work (ncid);
  gridio ("close", ncid);
endfunction

## --- Advice

function strides ()
  lengths = [400 300 100];
  values = rand (lengths);
  half = lengths ./ [2 2 1];
  for format = {"classic", "netcdf4"}
    path = file_of ("strides.nc", mode_of (format{1}), "DOUBLE", lengths, values);
    strided = @(ncid) gridio ("getVarsDouble", ncid, 0, [0 0 0], half, [2 2 1]);
    assert (with_file (path, strided), values(1:2:end,1:2:end,:));
    compare (["Every 2nd value of two dimensions, 96 MB file, " format{1}],
             "getVarsDouble with strides [2 2 1]", @() with_file (path, strided),
             "getVarDouble, then values(1:2:end,1:2:end,:)",
             @() with_file (path, @(ncid) gridio ("getVarDouble", ncid, 0)(1:2:end,1:2:end,:)),
             "the same, opened with a buffer of 1 MiB (pOpen)",
             @() with_file (path, @(ncid) gridio ("getVarDouble", ncid, 0)(1:2:end,1:2:end,:), 2^20));
    compare (["Every 2nd record, " format{1}],
             "getVarsDouble with stride [1 1 2]",
             @() with_file (path, @(ncid) gridio ("getVarsDouble", ncid, 0, [0 0 0], [400 300 50], [1 1 2])),
             "getVaraDouble for each record",
             @() with_file (path, @(ncid) every_second_record (ncid)),
             "getVarDouble, then values(:,:,1:2:end)",
             @() with_file (path, @(ncid) gridio ("getVarDouble", ncid, 0)(:,:,1:2:end)));
    compare (["A block, strides of one, " format{1}],
             "getVaraDouble", @() with_file (path, @(ncid) gridio ("getVaraDouble", ncid, 0, [0 0 0], lengths)),
             "getVarsDouble with stride [1 1 1]",
             @() with_file (path, @(ncid) gridio ("getVarsDouble", ncid, 0, [0 0 0], lengths, [1 1 1])),
             "getVarDouble", @() with_file (path, @(ncid) gridio ("getVarDouble", ncid, 0)));
  endfor
endfunction

function values = every_second_record (ncid)
  values = zeros (400, 300, 50);
  for i = 1:50
    values(:,:,i) = gridio ("getVaraDouble", ncid, 0, [0 0 2*i-2], [400 300 1]);
  endfor
endfunction

function strided_writes ()
  values = rand (200, 300, 100);
  whole = zeros (400, 300, 100);
  whole(1:2:end,:,:) = values;
  for format = {"classic", "netcdf4"}
    path = file_of ("strided.nc", mode_of (format{1}), "DOUBLE", size (whole), whole);
    compare (["Writing every 2nd value of the first dimension, " format{1}],
             "putVarsDouble with stride [2 1 1]",
             @() rewrite (path, @(ncid) gridio ("putVarsDouble", ncid, 0, [0 0 0], size (values), [2 1 1], values)),
             "getVarDouble, values(1:2:end,:,:) = ..., putVarDouble", @() rewrite (path, @(ncid) read_and_write (ncid, values)));
  endfor
endfunction

function rewrite (path, work)
  ncid = gridio ("open", path, "write");
  work (ncid);
  gridio ("close", ncid);
endfunction

function read_and_write (ncid, values)
  whole = gridio ("getVarDouble", ncid, 0);
  whole(1:2:end,:,:) = values;
  gridio ("putVarDouble", ncid, 0, whole);
endfunction

function calls ()
  values = rand (1000, 100);
  for format = {"classic", "netcdf4"}
    path = file_of ("calls.nc", mode_of (format{1}), "DOUBLE", size (values), values);
    compare (["1,000 values, " format{1}],
             "getVar1Double for each", @() with_file (path, @(ncid) one_by_one (ncid)),
             "one getVaraDouble", @() with_file (path, @(ncid) gridio ("getVaraDouble", ncid, 0, [0 5], [1000 1])));
  endfor
endfunction

function values = one_by_one (ncid)
  values = zeros (1000, 1);
  for i = 1:1000
    values(i) = gridio ("getVar1Double", ncid, 0, [i-1 5]);
  endfor
endfunction

function chunks ()
  lengths = [200 200 400];
  values = single (rand (lengths));
  shapes = {[200 200 1], [1 1 400], [50 50 50]};
  paths = {file_of("chunks0.nc", "netcdf4", "FLOAT", lengths, values)};
  labels = {"contiguous"};
  for i = 1:3
    paths{end+1} = file_of (sprintf ("chunks%d.nc", i), "netcdf4", "FLOAT", lengths, values,
                            @(ncid, varid) gridio ("defVarChunking", ncid, varid, 0, shapes{i}));
    labels{end+1} = sprintf ("chunks of [%s]", num2str (shapes{i}, "%d "));
  endfor
  map = @(ncid) gridio ("getVaraFloat", ncid, 0, [0 0 77], [200 200 1]);
  series = @(ncid) gridio ("getVaraFloat", ncid, 0, [77 77 0], [1 1 400]);
  every = @(ncid) gridio ("getVarFloat", ncid, 0);
  for kind = {"One map of [200 200 400] floats", map; "One series", series; "Everything", every}'
    ways = cellfun (@(path) @() with_file (path, kind{2}), paths, "UniformOutput", false);
    compare (kind{1}, [labels; ways]{:});
  endfor
endfunction

function cache ()
  lengths = [4000 500 4];
  values = single (repmat ((1:4000)', 1, 500, 4));
  path = file_of ("cache.nc", "netcdf4", "FLOAT", lengths, values, @large_chunks);
  compare ("20 rows of [4000 500 4] floats, one a call, deflated in chunks of [500 500 4]: 32 MB in a row of chunks",
           "the library's own cache, 16 MiB", @() with_file (path, @read_rows),
           "setChunkCache of 64 MB before open", @() with_cache (64e6, @() with_file (path, @read_rows)));
  compare ("The same rows written",
           "the library's own cache, 16 MiB", @() write_rows (lengths),
           "setChunkCache of 64 MB before create", @() with_cache (64e6, @() write_rows (lengths)));
endfunction

function large_chunks (ncid, varid)
  gridio ("defVarChunking", ncid, varid, 0, [500 500 4]);
  gridio ("defVarDeflate", ncid, varid, false, true, 1);
endfunction

function values = read_rows (ncid)
  for i = 0:19
    values = gridio ("getVaraFloat", ncid, 0, [0 i 0], [4000 1 1]);
  endfor
endfunction

function write_rows (lengths)
  [ncid, varid] = new_field (file_in ("written.nc"), "netcdf4", "FLOAT", lengths, @large_chunks);
  row = single (1:4000);
  for i = 0:19
    gridio ("putVaraFloat", ncid, varid, [0 i 0], [4000 1 1], row);
  endfor
  gridio ("close", ncid);
endfunction

function with_cache (bytes, work)
  [before, slots, preemption] = gridio ("getChunkCache");
  gridio ("setChunkCache", bytes, 4133, single (0.75));
  work ();
  gridio ("setChunkCache", before, slots, single (preemption));
endfunction

function fill_mode ()
  values = rand (1000, 1000, 16);
  for format = {"classic", "netcdf4"}
    mode = mode_of (format{1});
    compare (["Writing 128 MB, " format{1}],
             "as usual", @() write_field (mode, values, @(ncid, varid) []),
             "setFill with NC_NOFILL", @() write_field (mode, values, @no_fill));
    if (strcmp (format{1}, "classic"))
      compare ("The same with pCreate and a buffer of 1 MiB",
               "create", @() write_field (mode, values, @(ncid, varid) []),
               "pCreate", @() write_hinted (values, @(ncid) []),
               "pCreate and NC_NOFILL", @() write_hinted (values, @(ncid) no_fill (ncid, 0)));
    endif
  endfor
endfunction

function no_fill (ncid, varid)
  gridio ("setFill", ncid, gridio ("parameter", "NC_NOFILL"));
endfunction

function write_field (mode, values, setup)
  [ncid, varid] = new_field (file_in ("written.nc"), mode, "DOUBLE", size (values), setup);
  gridio ("putVarDouble", ncid, varid, values);
  gridio ("close", ncid);
endfunction

function write_hinted (values, setup)
  [~, ncid] = gridio ("pCreate", file_in ("written.nc"), "clobber", 0, 2^20);
  dimids = arrayfun (@(i) gridio ("defDim", ncid, sprintf ("d%d", i), size (values, i)), 1:3);
  varid = gridio ("defVar", ncid, "v", gridio ("parameter", "NC_DOUBLE"), dimids);
  setup (ncid);
  gridio ("endDef", ncid);
  gridio ("putVarDouble", ncid, varid, values);
  gridio ("close", ncid);
endfunction

function header ()
  values = rand (1000, 1000, 16);
  grow = @(path) rewrite (path, @add_attribute);
  plain = file_of ("plain.nc", "clobber", "DOUBLE", size (values), values);
  padded = file_in ("padded.nc");
  ncid = gridio ("create", padded, "clobber");
  dimids = arrayfun (@(i) gridio ("defDim", ncid, sprintf ("d%d", i), size (values, i)), 1:3);
  gridio ("defVar", ncid, "v", gridio ("parameter", "NC_DOUBLE"), dimids);
  gridio ("pEndDef", ncid, 65536, 4, 0, 4);
  gridio ("putVarDouble", ncid, 0, values);
  gridio ("close", ncid);
  compare ("A new attribute in a classic file of 128 MB",
           "made with endDef", @() grow (plain), "made with pEndDef, h_minfree 65536", @() grow (padded));
  compare ("100 attributes in a classic file of 8 MB",
           "a redef and endDef for each", @() attributes (true), "one redef and endDef", @() attributes (false));
endfunction

function add_attribute (ncid)
  persistent number = 0;
  number++;
  gridio ("redef", ncid);
  gridio ("putAttText", ncid, -1, sprintf ("note%d", number), repmat ("x", 1, 100));
  gridio ("endDef", ncid);
endfunction

function attributes (each)
  path = file_of ("attributes.nc", "clobber", "DOUBLE", [1000 1000], zeros (1000));
  ncid = gridio ("open", path, "write");
  gridio ("redef", ncid);
  for i = 1:100
    gridio ("putAttDouble", ncid, -1, sprintf ("a%d", i), gridio ("parameter", "NC_DOUBLE"), i);
    if (each)
      gridio ("endDef", ncid);
      gridio ("redef", ncid);
    endif
  endfor
  gridio ("close", ncid);
endfunction

function buffers ()
  values = rand (1000, 1000, 32);
  path = file_of ("buffers.nc", "clobber", "DOUBLE", size (values), values);
  whole = @(hint) with_file (path, @(ncid) gridio ("getVarDouble", ncid, 0), hint);
  compare ("Whole read of a classic file of 256 MB",
           "open", @() whole (0), "pOpen with 64 KiB", @() whole (2^16), "pOpen with 1 MiB", @() whole (2^20),
           "pOpen with 64 MiB", @() whole (2^26));
  scattered = mod ((0:1999) * 7919993, 32e6);
  near = 0:1999;
  for kind = {"2,000 scattered values of it", scattered; "2,000 neighbouring values of it", near}'
    read = @(hint) with_file (path, @(ncid) single_values (ncid, kind{2}), hint);
    compare (kind{1}, "open", @() read (0), "pOpen with 512 bytes", @() read (512),
             "pOpen with 64 KiB", @() read (2^16), "pOpen with 1 MiB", @() read (2^20));
  endfor
endfunction

function sum_ = single_values (ncid, places)
  sum_ = 0;
  for place = places
    sum_ += gridio ("getVar1Double", ncid, 0, [mod(place, 1000), mod(floor (place / 1000), 1000), floor(place / 1e6)]);
  endfor
endfunction

function compression ()
  [x, y, t] = ndgrid (1:400, 1:400, 1:50);
  smooth = single (20 + 10 * sin (x / 40 + t / 9) .* cos (y / 55) + 0.05 * rand (size (x)));
  packed = int16 (smooth * 100);
  for kind = {"FLOAT", smooth; "SHORT", packed}'
    [type, values] = kind{:};
    settings = {false, 0; true, 0; false, 1; true, 1; true, 4; true, 9};
    writes = reads = labels = {};
    for i = 1:rows (settings)
      [shuffle, level] = settings{i,:};
      name = sprintf ("level%d.nc", i);
      setup = @(ncid, varid) deflated (ncid, varid, shuffle, level);
      path = file_of (name, "netcdf4", type, size (values), values, setup);
      labels{i} = sprintf ("level %d%s: %.1f MB of %.1f", level, {"", ", shuffle"}{1 + shuffle},
                           stat (path).size / 1e6, sizeof (values) / 1e6);
      writes{i} = @() file_of (name, "netcdf4", type, size (values), values, setup);
      reads{i} = @() with_file (path, @(ncid) gridio (["getVar" toupper(type(1)) tolower(type(2:end))], ncid, 0));
    endfor
    compare (["Writing a smooth field with a little noise, " type ", in maps"], [labels; writes]{:});
    compare (["Reading it, " type], [labels; reads]{:});
  endfor
endfunction

function deflated (ncid, varid, shuffle, level)
  gridio ("defVarChunking", ncid, varid, 0, [400 400 1]);
  gridio ("defVarDeflate", ncid, varid, shuffle, level > 0, level);
endfunction

function appending ()
  for kind = {"classic", "clobber", 0; "netcdf4", "netcdf4", 0; "netcdf4 with chunks of 100 records", "netcdf4", 100}'
    [title, mode, chunk] = kind{:};
    compare (["1,000 records of 10 values, " title],
             "one a call", @() append (mode, chunk, 1), "10 a call", @() append (mode, chunk, 10),
             "100 a call", @() append (mode, chunk, 100));
  endfor
endfunction

function append (mode, chunk, step)
  ncid = gridio ("create", file_in ("appended.nc"), mode);
  dimids = [gridio("defDim", ncid, "x", 10), gridio("defDim", ncid, "time", 0)];
  varid = gridio ("defVar", ncid, "v", gridio ("parameter", "NC_DOUBLE"), dimids);
  if (chunk > 0)
    gridio ("defVarChunking", ncid, varid, 0, [10 chunk]);
  endif
  gridio ("endDef", ncid);
  records = rand (10, step);
  for i = 0:step:999
    gridio ("putVaraDouble", ncid, varid, [0 i], [10 step], records);
  endfor
  gridio ("close", ncid);
endfunction

## --- The choice

every = {@strides, @strided_writes, @calls, @chunks, @cache, @fill_mode, @header, @buffers, @compression, @appending};
global folder
arguments = argv ()';
base = "/dev/shm";
if (! isempty (arguments) && isfolder (arguments{1}))
  base = arguments{1};
  arguments(1) = [];
endif
folder = tempname (base, "gridio-advice-");
mkdir (folder);
unwind_protect
  for advice = every
    if (isempty (arguments) || any (strcmp (func2str (advice{1}), arguments)))
      advice{1} ();
      delete (fullfile (folder, "*.nc"));
    endif
  endfor
unwind_protect_cleanup
  confirm_recursive_rmdir (false, "local");
  rmdir (folder, "s");
end_unwind_protect
