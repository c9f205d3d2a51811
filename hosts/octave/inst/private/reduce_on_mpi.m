## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{r}, @var{rank}, @var{size}] =} reduce_on_mpi (@var{question}, @var{options})
## Undocumented internal function: reduce by the ranks of a script that a launcher of MPI started.  Each rank has consecutive
## bins; rank 0 combines what they send and sends every rank the outcome, be it an error.
## @end deftypefn

function [r, rank, size] = reduce_on_mpi (question, options)

  [ranks, rank, size] = started_ranks ();
  identity = identity_of (question, options.scope);
  first = floor (question.count * rank / size);
  last = floor (question.count * (rank + 1) / size) - 1;
  ranks_at_work ("begin", ranks, question);
  failure = [];
  tree = [];
  try
    tree = reduce_here (question, first, last, @(k) begin_bin (ranks, k, last));
  catch failure
    failure = struct ("identifier", failure.identifier, "message", sprintf ("rank %d of %d on %s: %s", rank, size, ...
                                                                            gethostname (), failure.message));
  end_try_catch
  if (rank == 0)
    r = collect (ranks, question, tree, failure, identity);
  else
    r = hand_in (ranks, tree, failure, identity);
  endif
  ranks_at_work ("end");

endfunction

function text = identity_of (question, scope)

  functions = {carry_function(question.partial, "PARTIAL", scope), carry_function(question.combine, "COMBINE", scope)};
  text = hash ("sha256", char (pack_value ({question.files, question.edges, functions}, "")));

endfunction

## Rank 0 hears which bin each rank begins.  Nobody goes on when the outcome is an error already.
function begin_bin (ranks, k, last)

  ranks_at_work ("bin", k);
  if (ranks.rank == 0)
    isOver = feval (ranks.mpi, "probe", -1, [ranks.failed, ranks.leaving]);
  else
    if (k <= last)
      feval (ranks.mpi, "post", pack_value (k, ""), 0, ranks.begins);
    endif
    isOver = feval (ranks.mpi, "probe", 0, [ranks.outcome, ranks.leaving]);
  endif
  if (isOver)
    fail ("rankFailed", "stopped, since another rank has failed");
  endif

endfunction

function r = collect (ranks, question, tree, failure, identity)

  gone = [];
  waiting = 1:ranks.size - 1;
  while (! isempty (waiting) && (isempty (failure) || strcmp (failure.identifier, "Ovard:gridio:dataset:rankFailed")))
    [bytes, from, tag] = feval (ranks.mpi, "receive", -1, [ranks.failed, ranks.leaving, ranks.partial]);
    waiting = setdiff (waiting, from);
    if (tag == ranks.leaving)
      gone(end+1) = from;
      failure = failure_of ("rankFailed", "rank %d of %d ended before the others", from, ranks.size);
    elseif (tag == ranks.failed)
      failure = unpack_value (bytes);
    elseif (isempty (failure))
      sent = unpack_value (bytes);
      if (! strcmp (sent.identity, identity))
        failure = failure_of ("rankFailed", "rank %d of %d has other files or other functions than rank 0", from, ranks.size);
      else
        [tree, failure] = add_nodes (tree, sent);
      endif
    endif
  endwhile
  bytes = uint8 ([]);
  if (isempty (failure))
    r = tree.value{1};
    bytes = pack_value (r, "the result");
  endif
  outcome = pack_value (struct ("failure", {{failure}}, "length", numel (bytes)), "");
  for rank = setdiff (1:ranks.size - 1, gone)(:)'
    feval (ranks.mpi, "send", outcome, rank, ranks.outcome, ranks.leaving);
  endfor
  if (! isempty (failure))
    ranks_at_work ("end");
    error (failure);
  endif
  feval (ranks.mpi, "broadcast", bytes, numel (bytes));

endfunction

function failure = failure_of (kind, template, varargin)

  failure = struct ("identifier", ["Ovard:gridio:dataset:" kind], "message", sprintf (template, varargin{:}));

endfunction

function [tree, failure] = add_nodes (tree, sent)

  failure = [];
  try
    for k = 1:numel (sent.level)
      tree = add_node (tree, sent.level(k), sent.index(k), sent.value{k});
    endfor
  catch failure
    failure = struct ("identifier", failure.identifier, "message", failure.message);
  end_try_catch

endfunction

function r = hand_in (ranks, tree, failure, identity)

  if (isempty (failure))
    sent = struct ("identity", identity, "level", tree.level, "index", tree.index, "value", {tree.value});
    feval (ranks.mpi, "send", pack_value (sent, "a partial"), 0, ranks.partial, ranks.outcome);
  elseif (! strcmp (failure.identifier, "Ovard:gridio:dataset:rankFailed"))
    feval (ranks.mpi, "send", pack_value (failure, ""), 0, ranks.failed, ranks.outcome);
  endif
  [bytes, ~, tag] = feval (ranks.mpi, "receive", 0, [ranks.outcome, ranks.leaving]);
  if (tag == ranks.leaving)
    ranks_at_work ("end");
    fail ("rankFailed", "rank 0 of %d ended before the others", ranks.size);
  endif
  outcome = unpack_value (bytes);
  if (! isempty (outcome.failure{1}))
    ranks_at_work ("end");
    error (outcome.failure{1});
  endif
  r = unpack_value (feval (ranks.mpi, "broadcast", uint8 ([]), outcome.length));

endfunction
