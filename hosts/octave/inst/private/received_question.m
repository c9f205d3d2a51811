## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{question} =} received_question (@var{path})
## Undocumented internal function: the reduction that @code{carried_question} and @code{write_whole} handed over, with this
## process prepared for it.
## @end deftypefn

function question = received_question (path_of_question)

  [question, isThere] = read_whole (path_of_question);
  if (! isThere)
    fail ("workerFailed", "cannot read '%s'", visible_text (path_of_question));
  endif
  cd (question.folder);
  path (question.path);
  question.partial = carried_function (question.partial);
  question.combine = carried_function (question.combine);

endfunction
