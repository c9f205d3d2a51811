## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{words} =} interpreter_command (@var{code})
## Undocumented internal function: the command that runs code in a new interpreter like this one, with gridio.
## @end deftypefn

function words = interpreter_command (code)

  program = fullfile (OCTAVE_EXEC_HOME (), "bin", "octave-cli");
  if (! exist (program, "file"))
    program = "octave-cli";
  endif
  inst = fileparts (fileparts (mfilename ("fullpath")));
  words = {program, "--quiet", "--norc", "--no-history", "--path", inst, "--eval", code};

endfunction
