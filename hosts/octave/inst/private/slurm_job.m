## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{r} =} slurm_job (@var{what}, @var{job}, @dots{})
## Undocumented internal function: ask for the state of a reduction by Slurm, wait for its result, or cancel it.
## @end deftypefn

function r = slurm_job (what, job, question = [])

  switch (what)
    case "state"
      r = state_of (job);
    case "cancel"
      [~, ~] = system ([shell_words([{"scancel"}, job.jobs]) " 2>&1"]);
    case "fetch"
      r = wait_for (job, question);
  endswitch

endfunction

function state = state_of (job)

  queue = slurm_queue (job.jobs);
  [~, isDone] = read_whole (job.result, job.name);
  if (isDone)
    state = "done";
  elseif (isempty (queue))
    state = "failed";
  elseif (all (ismember (queue, {"PENDING", "REQUEUED", "CONFIGURING"})))
    state = "waiting";
  else
    state = "running";
  endif

endfunction

function r = wait_for (job, question)

  seconds = 0.1;
  if (! isempty (question))
    show_progress ("begin", numel (question.files));
  endif
  isOver = false;
  do
    [r, isDone] = read_whole (job.result, job.name);
    if (isDone)
      break;
    elseif (isOver)
      raise_failure (job);
    endif
    if (! isempty (question))
      done = arrayfun (@(k) ! isempty (stat (partial_path (question, k))) * diff (question.edges(k+1:k+2)), ...
                       0:question.count-1);
      show_progress ("go on", sum (done));
    endif
    pause (seconds);
    seconds = min (1.5 * seconds, 10);
    isOver = isempty (slurm_queue (job.jobs)); # the result is looked for once more
    if (isOver)
      pause (1); # a shared file system may show it late
    endif
  until (false)

endfunction

## What the first task that failed has said, or what it was at when it ended without a word.
function raise_failure (job)

  for path = sort (glob (job_path (job.folder, job.name, "failure-*")))'
    [failure, isThere] = read_whole (path{1});
    if (isThere)
      error (failure);
    endif
  endfor
  for path = sort (glob (job_path (job.folder, job.name, "log-*")))'
    lines = ostrsplit (strtrim (fileread (path{1})), "\n", true);
    begun = find (strncmp (lines, "begins ", 7), 1, "last");
    if (! isempty (begun) && ! any (strcmp (lines(begun:end), "ends")))
      fail ("workerFailed", "task %s of job %s ended without a result at %s; its log is %s", path{1}(rindex (path{1}, "-")+1:end), ...
            job.jobs{1}, lines{begun}(8:end), path{1});
    endif
  endfor
  fail ("workerFailed", "the jobs %s ended without a result; what they printed is in %s", strjoin (job.jobs, " and "), ...
        job_path (job.folder, job.name, "log-*"));

endfunction
