% SPDX-License-Identifier: BSD-3-Clause
% raise_errors.m CALLS [SETUP]: runs each line of the file CALLS and prints the identifier and the message of its error.
% With a file SETUP, that code runs before each line, in a scratch folder and with the module loaded afresh.
1;

function [identifier, message] = error_of (code, setup)
  evalc (setup);
  try
    evalc (code);
    identifier = message = "none";
  catch err
    [identifier, message] = deal (err.identifier, err.message);
  end
end

confirm_recursive_rmdir (false);
setup = "";
if numel (argv ()) > 1
  setup = fileread (argv (){2});
end
for line = strsplit (strtrim (fileread (argv (){1})), "\n")
  if isempty (setup)
    [identifier, message] = error_of (line{1}, "");
  else
    home = pwd ();
    scratch = tempname ();
    mkdir (scratch);
    cd (scratch);
    [identifier, message] = error_of (line{1}, setup);
    evalc ("clear gridio gridio_any");
    cd (home);
    rmdir (scratch, "s");
  end
  printf ("%s\t%s\n", identifier, strrep (message, "\n", " "));
end
