% SPDX-License-Identifier: BSD-3-Clause
% A big compressed read needs the memory of its data once, a big compressed write none, and both at most 64 MiB for the
% chunks that are in work.
mebibyte = 2^20;
bound = 64 * mebibyte;
data = 256 * mebibyte;
setenv ("GRIDIO_THREADS", "8");

% The memory in use, from which the peak is counted from now on.
function bytes = reset_peak ()
  fid = fopen ("/proc/self/clear_refs", "w");
  fputs (fid, "5");
  fclose (fid);
  bytes = peak_memory ();
end

[ncid, path] = new_file ("netcdf4");
dims = [gridio("defDim", ncid, "x", mebibyte), gridio("defDim", ncid, "y", 32)];
varid = gridio ("defVar", ncid, "v", gridio ("parameter", "NC_DOUBLE"), dims);
gridio ("defVarChunking", ncid, varid, gridio ("parameter", "NC_CHUNKED"), [mebibyte/4 1]);
gridio ("defVarDeflate", ncid, varid, true, true, 1);
gridio ("endDef", ncid);

values = repmat ((1:mebibyte).', 1, 32);
before = reset_peak ();
gridio_any ("putVar", ncid, varid, values);
used = peak_memory () - before;
printf ("a write of %d MiB: %.0f MiB more\n", [data, used] / mebibyte);
check ("a compressed write copies nothing", used < 0.05 * data + bound);

clear values
before = reset_peak ();
values = gridio_any ("getVar", ncid, varid);
used = peak_memory () - before;
printf ("a read of %d MiB: %.0f MiB more\n", [data, used] / mebibyte);
check ("a compressed read needs at most 1.05 times its data and the bound",
       used >= 0.9 * data && used <= 1.05 * data + bound);
check ("it reads the values", isequal (values, repmat ((1:mebibyte).', 1, 32)));
gridio ("close", ncid);
conclude ();
