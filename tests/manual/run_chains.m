% SPDX-License-Identifier: BSD-3-Clause
% run_chains.m STEPS SAMPLES: runs the steps of every chain in the folder STEPS/N, in a scratch folder each and in one
% session. NN.code is run, NN.shell given to the shell, NN.file.NAME written, and NN.sample copies the files that
% examples/sample.m writes, which are kept in the folder SAMPLES. NN.out becomes the output of a step, with the folder of the
% manual's reader, /home/you/data, in place of the scratch folder; NN.raised has the identifiers of the last error and the
% last warning of code, or "hidden".
1;

function run_chain (steps__)
  for step__ = dir (fullfile (steps__, "*"))'
    name__ = step__.name;
    if (any (strcmp (name__, {".", ".."})))
      continue;
    endif
    text__ = fileread (fullfile (steps__, name__));
    parts__ = strsplit (name__, ".");
    printed__ = "";
    switch (parts__{2})
      case "code"
        lasterror ("reset");
        lastwarn ("", "");
        printed__ = evalc (text__, "printf (\"error: %s\\n\", lasterror ().message)");
        [~, warned__] = lastwarn ();
        % Octave 11 remembers warnings that are switched off, in place of the one that was shown.
        if (strncmp (warned__, "Octave:", 7) && ! isempty (strfind (printed__, "warning: ")))
          warned__ = "hidden";
        endif
        save_text (fullfile (steps__, [parts__{1} ".raised"]), sprintf ("%s\n%s\n", lasterror ().identifier, warned__));
      case "sample"
        cellfun (@(name) copyfile (fullfile (argv (){2}, name), name), {"sea.nc", "stations.nc"});
      case "shell"
        [~, printed__] = system ([strtrim(text__) " 2>&1"]);
      case "file"
        save_text (strjoin (parts__(3:end), "."), text__);
    endswitch
    printed__ = strrep (printed__, pwd (), "/home/you/data");
    save_text (fullfile (steps__, [parts__{1} ".out"]), printed__);
  endfor
endfunction

function save_text (name, text)
  stream = fopen (name, "w");
  fputs (stream, text);
  fclose (stream);
endfunction

confirm_recursive_rmdir (false);
home = pwd ();
cd (argv (){2});
source (fullfile (gridio_version ().examples, "sample.m"));
cd (home);
for chain = dir (fullfile (argv (){1}, "*"))'
  steps = fullfile (argv (){1}, chain.name);
  if (! any (strcmp (chain.name, {".", ".."})))
    scratch = tempname ();
    mkdir (scratch);
    cd (scratch);
    run_chain (steps);
    % Detects an example that leaves a file open.
    save_text (fullfile (steps, "left.out"), evalc ("clear -f gridio gridio_any gridio_native"));
    cd (home);
    rmdir (scratch, "s");
  endif
endfor
