## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{r} =} reduce_on_slurm (@var{question}, @var{options})
## Undocumented internal function: reduce by jobs of Slurm: an array job computes the partials that its folder lacks, and a
## job that depends on it combines them.  The result, or functions to ask for it where it is not waited for.
## @end deftypefn

function r = reduce_on_slurm (question, options)

  name = hash ("sha256", [question.keys{:}])(1:16);
  job = struct ("folder", question.keep, "name", name, "jobs", {{}}, "result", job_path (question.keep, name, "result"));
  [~, isDone] = read_whole (job.result, name);
  if (! isDone)
    [job.jobs, isThere] = read_whole (job_path (job.folder, name, "jobs"));
    if (! isThere || isempty (slurm_queue (job.jobs)))
      job.jobs = submit (question, options, job);
    endif
  endif
  if (options.wait)
    unwind_protect
      r = slurm_job ("fetch", job, question);
      job.jobs = {};
    unwind_protect_cleanup
      show_progress ("end");
      if (! isempty (job.jobs))
        slurm_job ("cancel", job); # after an error or Ctrl-C
      endif
    end_unwind_protect
    if (isempty (options.folder))
      remove_folder (question, job);
    endif
  else
    r = struct ("jobs", {job.jobs}, "folder", job.folder, "state", @() slurm_job ("state", job), ...
                "fetch", @() slurm_job ("fetch", job), "cancel", @() slurm_job ("cancel", job));
  endif

endfunction

function jobs = submit (question, options, job)

  for old = glob (job_path (job.folder, job.name, "{log,failure}*"))'
    unlink (old{1});
  endfor
  bins = 0:question.count-1;
  bins(arrayfun (@(k) ! isempty (stat (partial_path (question, k))), bins)) = [];
  tasks = min (options.tasks, numel (bins));
  ends = floor ((0:tasks) * numel (bins) / max (tasks, 1));
  question.tasks = arrayfun (@(k) bins(ends(k)+1:ends(k+1)), 1:tasks, "UniformOutput", false);
  write_whole (job_path (job.folder, job.name, "question"), carried_question (question, options.scope));
  common = [{"--parsable", "--requeue", "--open-mode=append", "--job-name=gridio_reduce", "--chdir", pwd()}, options.sbatch];
  jobs = {};
  dependency = {};
  if (tasks > 0)
    log = job_path (job.folder, job.name, "log-%a");
    jobs{1} = sbatch ([common, {sprintf("--array=0-%d", tasks - 1), "--output", log}], script (job, "task"));
    dependency = {["--dependency=afterok:" jobs{1}], "--kill-on-invalid-dep=yes"};
  endif
  jobs{end+1} = sbatch ([common, dependency, {"--output", job_path(job.folder, job.name, "log-combine")}], ...
                        script (job, "combine"));
  write_whole (job_path (job.folder, job.name, "jobs"), jobs);

endfunction

function path = script (job, what)

  words = interpreter_command (sprintf ("__gridio_reduce_worker__ (\"%s\", \"%s\", \"%s\")", what, ...
                                        undo_string_escapes (job.folder), job.name));
  path = job_path (job.folder, job.name, [what ".sh"]);
  [file, reason] = fopen (path, "w");
  if (file < 0)
    fail ("notWritten", "cannot write '%s': %s", visible_text (path), reason);
  endif
  fprintf (file, "#!/bin/sh\nOCTAVE_HISTFILE=/dev/null exec %s\n", shell_words (words));
  fclose (file);

endfunction

function id = sbatch (words, path)

  [status, said] = system ([shell_words([{"sbatch"}, words, {path}]) " 2>&1"]);
  id = regexp (said, '^\d+', "match", "once", "lineanchors");
  if (status != 0 || isempty (id))
    fail ("notSubmitted", "sbatch refused the job: %s", strtrim (said));
  endif

endfunction

## Where the user named no folder, nothing stays.
function remove_folder (question, job)

  for k = 0:question.count-1
    unlink (partial_path (question, k));
  endfor
  for path = glob (job_path (job.folder, job.name, "*"))'
    unlink (path{1});
  endfor
  [~, ~] = rmdir (job.folder); # unless another reduction uses it

endfunction
