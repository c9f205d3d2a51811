% SPDX-License-Identifier: BSD-3-Clause
% Calls that succeed or fail at any stage leak no memory: the session's memory does not grow.
1;
% Values of another class are written as raw bytes, on purpose.
warning ("off", "Ovard:gridio:octave:rawBytes");

function bytes = memory_in_use ()
  kilobytes = regexp (fileread ("/proc/self/status"), 'VmRSS:\s+(\d+)', "tokens"){1}{1};
  bytes = 1024 * str2double (kilobytes);
end

function repeat (count, arguments)
  for k = 1:count
    try
      result = gridio (arguments{:});
    catch
    end
  end
end

ncid = new_file ();
x = gridio ("defDim", ncid, "x", 1000);
v = gridio ("defVar", ncid, "v", gridio ("parameter", "NC_DOUBLE"), x);
t = gridio ("defVar", ncid, "t", gridio ("parameter", "NC_CHAR"), x);
gridio ("endDef", ncid);
gridio ("putVarDouble", ncid, v, 1:1000);
gridio ("putVarText", ncid, t, repmat ("x", 1, 1000));
long = repmat ("long", 1, 5000);
calls = {
  "a block read",                          {"getVaraDouble", ncid, v, 0, 1000}
  "text read",                             {"getVaraText", ncid, t, 0, 1000}
  "names in cells",                        {"getConstantNames"}
  "a sparse argument",                     {"getVar1Double", ncid, v, sparse(5)}
  "a sparse write",                        {"putVarDouble", ncid, v, sparse(1, 1000)}
  "a complex write",                       {"putVarDouble", ncid, v, (1:1000) * (1 + i)}
  "a text write",                          {"putVarText", ncid, t, repmat("y", 1, 1000)}
  "a refused read with its result made",   {"getVaraDouble", ncid, v, 500, 1000}
  "a refused text read",                   {"getVaraText", ncid, t, 500, 1000}
  "a refused read of a long text",         {"getVaraText", ncid, t, 500, 9000}
  "an unknown operation with a long name", {long, ncid}
  "an unknown name",                       {"inqVarID", ncid, long}
  "many arguments",                        num2cell(1:100)
  "a bad argument after a long text",      {"renameDim", ncid, x, {}}
  "a row that is too long",                {"defVar", ncid, long, 6, 1:2000}
  "more memory than there is",             {"getVaraDouble", ncid, v, 0, 2^61}
};
for k = 1:rows (calls)
  repeat (1000, calls{k, 2});
  before = memory_in_use ();
  repeat (4000, calls{k, 2});
  grown = memory_in_use () - before;
  % Less than a leaked array of 1000 elements would take; fluctuations of the heap take up to half as much.
  check (sprintf ("%s: %d bytes more", calls{k, 1}, grown), grown < 3e6);
end
gridio ("close", ncid);
conclude ();
