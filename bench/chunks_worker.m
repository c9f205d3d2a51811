## SPDX-License-Identifier: BSD-3-Clause
## The work of bench/native_chunks.cpp, by gridio_any in the interpreter. See bench/worker.h for what it is asked.
1;

function [seconds, values] = read_whole (~, path, maps)
  ncid = gridio ("open", path, "nowrite");
  start = tic;
  values = gridio_any ("getVar", ncid, 0);
  seconds = toc (start);
  gridio ("close", ncid);
endfunction

function [seconds, total] = read_maps (~, path, maps)
  ncid = gridio ("open", path, "nowrite");
  total = 0;
  start = tic;
  for i = 0:19
    values = gridio_any ("getVara", ncid, 0, [0 0 mod(i * 37, maps)], [1000 1000 1]);
    total += double (values(1));
  endfor
  seconds = toc (start);
  gridio ("close", ncid);
endfunction

## The values are those of a file, which is read first.
function [seconds, total] = write_whole (path, maps, type)
  [~, values] = read_whole ("", strrep (path, "written", "source"), maps);
  total = 0;
  start = tic;
  ncid = gridio ("create", path, "netcdf4");
  dims = [gridio("defDim", ncid, "x", 1000), gridio("defDim", ncid, "y", 1000), gridio("defDim", ncid, "z", maps)];
  varid = gridio ("defVar", ncid, "v", gridio ("parameter", type), dims);
  gridio ("defVarChunking", ncid, varid, gridio ("parameter", "NC_CHUNKED"), [500 500 1]);
  gridio ("defVarDeflate", ncid, varid, true, true, 4);
  gridio ("endDef", ncid);
  gridio_any ("putVar", ncid, varid, values);
  gridio ("close", ncid);
  seconds = toc (start);
endfunction

works = struct ("read_chunks_float", @read_whole, "read_chunks_short", @read_whole, "read_chunks_zstd", @read_whole,
                "read_chunks_maps", @read_maps,
                "write_chunks_float", @(~, path, maps) write_whole (path, maps, "NC_FLOAT"),
                "write_chunks_short", @(~, path, maps) write_whole (path, maps, "NC_SHORT"));

serve (works);
