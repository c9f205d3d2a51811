## SPDX-License-Identifier: BSD-3-Clause
## The same work as bench/octave_worker.m, by native functions that make the library's calls and nothing else.
script = fileread (fullfile (fileparts (mfilename ("fullpath")), "octave_worker.m"));
script = strrep (script, "gridio (operation, ncid, varid", "direct_putVar (operation, ncid, varid");
eval (regexprep (script, 'gridio \("(\w+)"', 'direct_$1 ("$1"'));
