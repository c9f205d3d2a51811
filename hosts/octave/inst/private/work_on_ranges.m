## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} work_on_ranges (@var{folder})
## Undocumented internal function: a worker's loop.  It ends when the process that started it closes the pipe.
## @end deftypefn

function work_on_ranges (folder)

  reports = fopen ("/dev/fd/3", "w");
  try
    question = received_question (fullfile (folder, "question"));
    while (ischar (line = fgetl (stdin ())))
      if (isempty (line))
        continue;
      endif
      [which, first, last] = num2cell (sscanf (line, "%d")){:};
      tree = reduce_here (question, first, last, @(k) report (reports, "b", k));
      write_whole (fullfile (folder, sprintf ("nodes-%d", which)), rmfield (tree, {"combine", "files"}));
      report (reports, "d", which);
    endwhile
  catch failure
    write_whole (fullfile (folder, "failure"), struct ("message", failure.message, "identifier", failure.identifier));
    report (reports, "f", 0);
    pause (60); # until it is stopped
  end_try_catch

endfunction

function report (file, what, number)

  fprintf (file, "%s %d\n", what, number);
  fflush (file);

endfunction
