## SPDX-License-Identifier: BSD-3-Clause
## The same work as bench/native_worker.cpp, by gridio in the interpreter. See bench/worker.h for what it is asked, and
## below for one more command, "call FILE COUNT |OPERATION|ARGUMENTS".
1;

function ncid = new_file (format, path)
  ncid = gridio ("create", path, ifelse_word (strcmp (format, "netcdf4"), "netcdf4", "clobber"));
endfunction

function word = ifelse_word (condition, yes, no)
  word = no;
  if (condition)
    word = yes;
  endif
endfunction

function [seconds, values] = read_whole (operation, path)
  ncid = gridio ("open", path, "nowrite");
  start = tic;
  values = gridio (operation, ncid, 0);
  seconds = toc (start);
  gridio ("close", ncid);
endfunction

function [seconds, values] = read_double (format, path, count)
  [seconds, values] = read_whole ("getVarDouble", path);
endfunction

function [seconds, values] = read_float (format, path, count)
  [seconds, values] = read_whole ("getVarFloat", path);
endfunction

function [seconds, values] = read_short (format, path, count)
  [seconds, values] = read_whole ("getVarShort", path);
endfunction

function [seconds, values] = read_text (format, path, count)
  [seconds, values] = read_whole ("getVarText", path);
endfunction

function [seconds, values] = read_strings (format, path, count)
  ncid = gridio ("open", path, "nowrite");
  start = tic;
  values = gridio_any ("getVar", ncid, 0);
  seconds = toc (start);
  gridio ("close", ncid);
endfunction

function [seconds, values] = read_strided (format, path, count)
  ncid = gridio ("open", path, "nowrite");
  start = tic;
  values = gridio ("getVarsDouble", ncid, 0, [0 0 0], [128 128 count], [2 2 1]);
  seconds = toc (start);
  gridio ("close", ncid);
endfunction

function seconds = write_whole (format, path, count, operation, type, fill, values)
  start = tic;
  ncid = new_file (format, path);
  x = gridio ("defDim", ncid, "x", 256);
  y = gridio ("defDim", ncid, "y", 256);
  z = gridio ("defDim", ncid, "z", count / 65536);
  varid = gridio ("defVar", ncid, "v", gridio ("parameter", type), [x y z]);
  gridio ("setFill", ncid, gridio ("parameter", fill));
  gridio ("endDef", ncid);
  gridio (operation, ncid, varid, values);
  gridio ("close", ncid);
  seconds = toc (start);
endfunction

function [seconds, sum] = write_double (format, path, count)
  sum = 0;
  seconds = write_whole (format, path, count, "putVarDouble", "NC_DOUBLE", "NC_FILL", numbers (count));
endfunction

function [seconds, sum] = write_without_fill (format, path, count)
  sum = 0;
  seconds = write_whole (format, path, count, "putVarDouble", "NC_DOUBLE", "NC_NOFILL", numbers (count));
endfunction

function [seconds, sum] = write_text (format, path, count)
  sum = 0;
  letters = repmat ("abcdefghijklmnopqrstuvwxyz", 1, ceil (count / 26));
  seconds = write_whole (format, path, count, "putVarText", "NC_CHAR", "NC_FILL", letters(1:count));
endfunction

function values = numbers (count)
  values = repmat ((0:1008) * 0.25, 1, ceil (count / 1009))(1:count);
endfunction

function [seconds, sum] = read_values (format, path, count)
  ncid = gridio ("open", path, "nowrite");
  sum = 0;
  positions = mod ((0:count - 1) * 7919, 100000);
  start = tic;
  for i = positions
    sum += gridio ("getVar1Double", ncid, 0, i);
  endfor
  seconds = toc (start);
  gridio ("close", ncid);
endfunction

function [seconds, sum] = read_blocks (format, path, count)
  ncid = gridio ("open", path, "nowrite");
  sum = 0;
  positions = mod ((0:count - 1) * 7919, 100000);
  start = tic;
  for i = positions
    values = gridio ("getVaraDouble", ncid, 0, i, 100);
    sum += values(1);
  endfor
  seconds = toc (start);
  gridio ("close", ncid);
endfunction

function [seconds, sum] = append_records (format, path, count)
  sum = 0;
  row = 0:9;
  start = tic;
  ncid = new_file (format, path);
  time = gridio ("defDim", ncid, "time", 0);
  x = gridio ("defDim", ncid, "x", 10);
  varid = gridio ("defVar", ncid, "v", gridio ("parameter", "NC_DOUBLE"), [x time]);
  gridio ("endDef", ncid);
  for i = 0:count - 1
    gridio ("putVaraDouble", ncid, varid, [0 i], [10 1], row);
  endfor
  gridio ("close", ncid);
  seconds = toc (start);
endfunction

function [seconds, sum] = open_inquire_close (format, path, count)
  sum = 0;
  start = tic;
  for i = 1:count
    ncid = gridio ("open", path, "nowrite");
    [ndims, nvars] = gridio ("inq", ncid);
    sum += nvars;
    gridio ("close", ncid);
  endfor
  seconds = toc (start);
endfunction

function [seconds, sum] = read_attributes (format, path, count)
  ncid = gridio ("open", path, "nowrite");
  start = tic;
  for i = 1:2:count
    units = gridio ("getAttText", ncid, 0, "units");
    range = gridio ("getAttDouble", ncid, 0, "valid_range");
  endfor
  seconds = toc (start);
  sum = units(1) + range(2);
  gridio ("close", ncid);
endfunction

function [seconds, sum] = write_attributes (format, path, count)
  sum = 0;
  start = tic;
  ncid = new_file (format, path);
  for i = 0:count - 1
    gridio ("putAttDouble", ncid, -1, "a", 6, i);
  endfor
  gridio ("close", ncid);
  seconds = toc (start);
endfunction

function [seconds, sum] = inquire_variables (format, path, count)
  ncid = gridio ("open", path, "nowrite");
  sum = 0;
  start = tic;
  for i = 1:count
    sum += gridio ("inqVarID", ncid, "v10");
  endfor
  seconds = toc (start);
  gridio ("close", ncid);
endfunction

## Microseconds of a call of an empty native function, of one that makes the library's calls and nothing else, and of
## gridio, with the same arguments, in turns; of each the least, which a busy machine disturbs little.
function least = call_cost (operation, arguments, path, count)
  ncid = gridio ("open", path, "nowrite");
  arguments = sprintf ('"%s"%s', operation, arguments);
  functions = {"empty_call", ["direct_" operation], "gridio"};
  for i = 1:3
    eval (sprintf (["function seconds = loop_%d_ (ncid, n), start = 3; t = tic; " ...
                    "for k = 1:n, %s (%s); end, seconds = toc (t); end"], i, functions{i}, arguments));
  endfor
  count /= 100; # in rounds shorter than the time for which a busy machine lets a process run
  seconds = zeros (100, 3);
  for round = 1:100
    seconds(round,:) = [loop_1_(ncid, count), loop_2_(ncid, count), loop_3_(ncid, count)];
  endfor
  gridio ("close", ncid);
  least = min (seconds) / count * 1e6;
endfunction

function text = call_line (line)
  parts = strsplit (line, "|");
  words = strsplit (parts{1}, " ");
  text = sprintf ("%.6f %.6f %.6f\n", call_cost (parts{2:3}, words{2}, str2double (words{3})));
endfunction

function text = versions (line)
  about = gridio_version ();
  text = sprintf ("gridio %s, Octave %s, libnetcdf %s, HDF5 %s\n", about.gridio, OCTAVE_VERSION, about.netcdf, about.hdf5);
endfunction

for name = {"open", "create", "close", "defDim", "defVar", "setFill", "endDef", "parameter", "putVar", ...
            "putVaraDouble", "getVar1Double", "getVaraDouble", "inq", "inqLibVers", "inqFormat", "inqDim", ...
            "inqVar", "inqVarID", "getAttText", "getAttDouble", "putAttDouble"}
  autoload (["direct_" name{1}], file_in_loadpath ("direct_calls.oct"));
endfor

works = struct (
  "read_double", @read_double, "read_short", @read_short, "read_short_as_double", @read_double,
  "read_packed", @read_float, "read_strided", @read_strided, "read_text", @read_text, "read_strings", @read_strings,
  "write_double", @write_double, "write_without_fill", @write_without_fill, "write_text", @write_text,
  "read_values", @read_values, "read_blocks", @read_blocks, "append_records", @append_records,
  "open_inquire_close", @open_inquire_close, "read_attributes", @read_attributes,
  "write_attributes", @write_attributes, "inquire_variables", @inquire_variables);

serve (works, struct ("call", @call_line, "versions", @versions));
