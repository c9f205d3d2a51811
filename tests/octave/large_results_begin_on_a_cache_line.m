% SPDX-License-Identifier: BSD-3-Clause
% A result beyond 32 MiB is deliberately allocated in another way than the interpreter releases it:
% it begins on a cache line, and grows, shrinks and is released like any other array.
ncid = new_file ();
x = gridio ("defDim", ncid, "x", 5 * 2^20);
v = gridio ("defVar", ncid, "v", gridio ("parameter", "NC_DOUBLE"), x);
gridio ("endDef", ncid);
expected = (1:5 * 2^20)';
gridio ("putVarDouble", ncid, v, expected);

kept = {};
for k = 1:9
  values = gridio ("getVarDouble", ncid, v);
  check ("begins on a cache line", mod (address_of (values), 64) == 0);
  check ("is not moved when it is kept", address_of (values) == address_of (values(:)));
  kept{mod (k, 3) + 1} = values;
  values(end + 1) = k;
  values(1:2:end) = [];
  check ("changes like any other array", isequal (values, [expected; k](2:2:end)));
end
check ("holds what was written", isequal (kept, {expected, expected, expected}));
clear kept values
gridio ("close", ncid);
conclude ();
