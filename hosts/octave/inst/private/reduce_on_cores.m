## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{r} =} reduce_on_cores (@var{question}, @var{options})
## Undocumented internal function: reduce by interpreters that are started for it.  Each is given a range of bins after
## another, combines them as far as the tree allows, and leaves the nodes in a file.
## @end deftypefn

function r = reduce_on_cores (question, options)

  count = options.workers;
  if (isempty (count))
    count = nproc ();
  endif
  folder = tempname ();
  [isMade, reason] = mkdir (folder);
  if (! isMade)
    fail ("notWritten", "cannot create the folder '%s': %s", visible_text (folder), reason);
  endif
  workers = {};
  show_progress ("begin", numel (question.files));
  unwind_protect
    write_whole (fullfile (folder, "question"), carried_question (question, options.scope));
    ranges = ranges_of_bins (question.count, 4 * count);
    for k = 1:min (count, rows (ranges))
      workers{k} = start_worker (folder);
    endfor
    tree = reduce_here (question, 0, -1, @(k) []);
    done = zeros (1, rows (ranges));
    next = 1;
    while (! isequal (tree.level, root_level (question.count)))
      isIdle = true;
      for k = 1:numel (workers)
        if (isempty (workers{k}.range) && next <= rows (ranges))
          workers{k} = give_range (workers{k}, ranges, next++);
        endif
        [workers{k}, lines] = lines_of (workers{k});
        for line = lines
          isIdle = false;
          [workers{k}, tree, done] = take_line (workers{k}, tree, done, line{1}, question, folder);
        endfor
        check_worker (workers{k}, k, question);
      endfor
      show_progress ("go on", sum (done));
      if (isIdle)
        pause (0.005);
      endif
    endwhile
    r = tree.value{1};
  unwind_protect_cleanup
    cellfun (@stop_worker, workers);
    show_progress ("end");
    confirm_recursive_rmdir (false, "local");
    rmdir (folder, "s");
  end_unwind_protect

endfunction

function level = root_level (count)

  level = ceil (log2 (count));

endfunction

## Ranges of 2^n bins, at least as many as wanted where there are as many bins.
function ranges = ranges_of_bins (count, wanted)

  size = 2^max (0, floor (log2 (count / wanted)));
  first = (0:size:count-1)';
  ranges = [first, min(first + size, count) - 1];

endfunction

function worker = give_range (worker, ranges, which)

  worker.range = which;
  worker.bin = ranges(which,1);
  fprintf (worker.input, "%d %d %d\n\n", which, ranges(which,:)); # a line is read when the next character is there
  fflush (worker.input);

endfunction

## What has arrived, without waiting.
function [worker, lines] = lines_of (worker)

  while (ischar (text = fgets (worker.output)))
    worker.text = [worker.text text];
  endwhile
  fclear (worker.output); # nothing more for now
  last = max ([0, find(worker.text == "\n", 1, "last")]);
  lines = ostrsplit (worker.text(1:last), "\n", true);
  worker.text = worker.text(last+1:end);

endfunction

## A worker says which bin it begins, that its range is done, or that it has failed.
function [worker, tree, done] = take_line (worker, tree, done, line, question, folder)

  number = str2double (line(2:end));
  switch (line(1))
    case "b"
      done(worker.range) += question.edges(number+1) - question.edges(worker.bin+1);
      worker.bin = number;
    case "d"
      path = fullfile (folder, sprintf ("nodes-%d", worker.range));
      nodes = read_whole (path);
      unlink (path);
      for k = 1:numel (nodes.level)
        tree = add_node (tree, nodes.level(k), nodes.index(k), nodes.value{k});
      endfor
      worker.range = [];
    case "f"
      failure = read_whole (fullfile (folder, "failure"));
      error (failure);
  endswitch

endfunction

function check_worker (worker, number, question)

  [pid, status] = waitpid (worker.pid, WNOHANG ());
  if (pid == 0)
    return;
  endif
  ending = sprintf ("with status %d", WEXITSTATUS (status));
  if (WIFSIGNALED (status))
    ending = sprintf ("by signal %d", WTERMSIG (status));
  endif
  doing = "before its first file";
  if (! isempty (worker.range))
    k = min (worker.bin, question.count - 1);
    doing = ["at " range_of_files(question.files(question.edges(k+1)+1:question.edges(k+2)))];
  endif
  fail ("workerFailed", "worker %d (process %d) ended %s %s", number, worker.pid, ending, doing);

endfunction
