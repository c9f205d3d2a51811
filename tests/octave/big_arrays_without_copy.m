% SPDX-License-Identifier: BSD-3-Clause
% A big read needs the memory of its data once, and a big write none, since the interpreter's storage is used.
mebibyte = 2^20;
[ncid, path] = new_file ();
gridio ("setFill", ncid, gridio ("parameter", "NC_NOFILL"));
x = gridio ("defDim", ncid, "x", 32 * mebibyte);
y = gridio ("defDim", ncid, "y", 128 * mebibyte);
doubles = gridio ("defVar", ncid, "doubles", gridio ("parameter", "NC_DOUBLE"), x);
shorts = gridio ("defVar", ncid, "shorts", gridio ("parameter", "NC_SHORT"), x);
bytes = gridio ("defVar", ncid, "bytes", gridio ("parameter", "NC_BYTE"), y);
letters = gridio ("defVar", ncid, "letters", gridio ("parameter", "NC_CHAR"), x);
gridio ("endDef", ncid);
% The rest of each variable is a hole in the file and reads as zeros.
gridio ("putVar1Double", ncid, doubles, 32 * mebibyte - 1, 7);
gridio ("putVar1Short", ncid, shorts, 32 * mebibyte - 1, int16 (7));
gridio ("putVar1Schar", ncid, bytes, 128 * mebibyte - 1, int8 (7));

% In ascending order of size, since the peak of the process is never reset.
wide = zeros (1, 32 * mebibyte, "int16");
before = peak_memory ();
gridio ("putVarShort", ncid, shorts, wide);
check ("a write of 64 MiB copies nothing", peak_memory () - before < 0.05 * 64 * mebibyte);
gridio ("putVaraShort", ncid, shorts, 5, 16 * mebibyte, wide(1, 6:16 * mebibyte + 5));
check ("nor does a write of a slice", peak_memory () - before < 0.05 * 64 * mebibyte);
clear wide
reads = {"getVarSchar", bytes, 128; "getVarDouble", doubles, 256};
for k = 1:2
  baseline = regexp (fileread ("/proc/self/status"), 'VmRSS:\s+(\d+)', "tokens"){1}{1};
  baseline = 1024 * str2double (baseline);
  data = gridio (reads{k, 1}, ncid, reads{k, 2});
  used = (peak_memory () - baseline) / (reads{k, 3} * mebibyte);
  printf ("%s of %d MiB: peak %.4f of the data\n", reads{k, 1}, reads{k, 3}, used);
  check ([reads{k, 1} " needs at most 1.05 times its data"], used >= 0.9 && used <= 1.05);
  check ([reads{k, 1} " reads the last value"], data(end) == 7 && ! any (data(1:1000)));
  clear data
end

% A count beyond the data is refused before memory is used, one beyond all memory likewise.
before = peak_memory ();
for read = {"getVaraDouble", doubles; "getVaraText", letters}.'
  check_error ([read{1} " beyond the data"], "netcdf:libraryFailure", read{1}, ncid, read{2}, 0, 2^31);
  failure = "";
  try
    gridio (read{1}, ncid, read{2}, 0, 2^61);
  catch caught
    failure = caught.message;
  end
  check ([read{1} " beyond all memory: " failure], ! isempty (strfind (failure, "out of memory")));
end
check ("a refused count uses no memory", peak_memory () - before < 16 * mebibyte);
gridio ("close", ncid);
conclude ();
