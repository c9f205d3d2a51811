## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{carried} =} carried_question (@var{question}, @var{scope})
## Undocumented internal function: a reduction for other processes, with the load path and the working folder that they need.
## @end deftypefn

function carried = carried_question (question, scope)

  carried = question;
  carried.partial = carry_function (question.partial, "PARTIAL", scope);
  carried.combine = carry_function (question.combine, "COMBINE", scope);
  carried.folder = pwd ();
  carried.path = path ();

endfunction
