## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} work_on_task (@var{what}, @var{folder}, @var{name})
## Undocumented internal function: one task of the array job that computes partials, or the job that combines them.
## @end deftypefn

function work_on_task (what, folder, name)

  task = getenv ("SLURM_ARRAY_TASK_ID");
  who = merge (strcmp (what, "combine"), "the combining job", ["task " task]);
  try
    question = received_question (job_path (folder, name, "question"));
    if (strcmp (what, "combine"))
      tree = reduce_here (question, 0, question.count - 1, @(k) []);
      write_whole (job_path (folder, name, "result"), tree.value{1}, name);
    else
      for k = question.tasks{str2double(task)+1}
        printf ("begins %s\n", range_of_files (question.files(question.edges(k+1)+1:question.edges(k+2))));
        fflush (stdout ());
        partial_of_bin (question, k);
      endfor
    endif
    printf ("ends\n");
  catch failure
    fprintf (stderr (), "error: %s\n", failure.message);
    write_whole (job_path (folder, name, ["failure-" what task]), ...
                 struct ("message", [who ": " failure.message], "identifier", failure.identifier));
    exit (1);
  end_try_catch

endfunction
