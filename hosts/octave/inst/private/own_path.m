## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{path} =} own_path (@var{in_package}, @var{in_tree})
## The full path of something that comes with gridio, empty if it is not there.  The arguments are its path within the
## installed package and within the source tree.
## @end deftypefn

function path = own_path (in_package, in_tree)

  inst = fileparts (fileparts (mfilename ("fullpath")));
  path = fullfile (inst, in_package);
  in_source = fullfile ("hosts", "octave", "inst");
  if (numel (inst) > numel (in_source) && strcmp (inst(end-numel (in_source)+1:end), in_source))
    path = fullfile (inst(1:end-numel (in_source)-1), in_tree);
  endif
  if (! exist (path, "file"))
    path = "";
  endif

endfunction
