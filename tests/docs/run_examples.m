% SPDX-License-Identifier: BSD-3-Clause
% run_examples.m EXAMPLES OUTPUTS: runs the code in each file of one folder, in a scratch folder of its own and with
% the module loaded afresh, and writes what it printed into the file of the same name in the other.
1;

function output = run_alone (code)
  try
    output = evalc (code);
  catch err
    output = sprintf ("error: %s: %s\n", err.identifier, err.message);
  end
end

% A line for each file in the folder that the process still has open.
function lines = open_files (folder)
  lines = "";
  for link = glob ("/proc/self/fd/*")'
    target = readlink (link{1});
    if strncmp (target, folder, numel (folder))
      lines = sprintf ("%sleft open: %s\n", lines, target);
    end
  end
end

[examples, outputs] = argv (){:};
confirm_recursive_rmdir (false);
for file = dir (fullfile (examples, "*.txt"))'
  scratch = tempname ();
  mkdir (scratch);
  cd (scratch);
  output = run_alone (fileread (fullfile (examples, file.name)));
  output = [output, open_files(scratch), evalc("clear gridio gridio_any")];
  cd (examples);
  rmdir (scratch, "s");
  stream = fopen (fullfile (outputs, file.name), "w");
  fputs (stream, output);
  fclose (stream);
end
