## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{tree} =} reduce_here (@var{question}, @var{first}, @var{last}, @var{report})
## Undocumented internal function: the tree of a reduction with the partials of bins @var{first} to @var{last}, counted from
## 0, computed in this process.  @var{report} is called before each bin with its number, and at the end with @var{last}+1.
## @end deftypefn

function tree = reduce_here (question, first, last, report)

  tree = struct ("count", question.count, "combine", question.combine, "files", {question.files}, ...
                 "edges", question.edges, "level", [], "index", [], "value", {{}});
  for k = first:last
    report (k);
    tree = add_node (tree, 0, k, partial_of_bin (question, k));
  endfor
  report (last + 1);

endfunction
