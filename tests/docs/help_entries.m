% SPDX-License-Identifier: BSD-3-Clause
% help_entries.m NAMES: what gridio_help prints for each name in the file NAMES, with what it returns checked against it.
for name = strsplit (strtrim (fileread (argv (){1})), "\n")
  printed = evalc ("gridio_help (name{1})");
  assert (printed, gridio_help (name{1}));
  assert (evalc ("text = gridio_help (name{1});"), "");
  printf ("@@ %s\n%s", name{1}, printed);
end
