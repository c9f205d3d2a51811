## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{file} =} file_changed (@var{file}, @var{outcome})
## Undocumented internal function: what is known of a file, looked up again after a change that is @qcode{"done"}, was
## @qcode{"refused"}, or has failed in its midst, @qcode{"broken"}.
## @end deftypefn

function file = file_changed (file, outcome)

  switch (outcome)
    case "done"
      file.d = file_description (file.ncid);
      file.lastError = lasterror ();
    case "broken"
      file.isBroken = true;
      try
        file.d = file_description (file.ncid);
      catch
        ## What is raised is the failure of the change.
      end_try_catch
  endswitch

endfunction
