% SPDX-License-Identifier: BSD-3-Clause
% help_entries.m NAMES: prints gridio_help's output for each name in the file NAMES, and compares
% its return value with it.
for name = strsplit (strtrim (fileread (argv (){1})), "\n")
  printed = evalc ("gridio_help (name{1})");
  assert (printed, gridio_help (name{1}));
  assert (evalc ("text = gridio_help (name{1});"), "");
  printf ("@@ %s\n%s", name{1}, printed);
end
