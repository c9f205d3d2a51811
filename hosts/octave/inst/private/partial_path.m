## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{path} =} partial_path (@var{question}, @var{k})
## Undocumented internal function: the file that keeps the partial of bin @var{k}, counted from 0.  Its name has the bin's
## key, so that a changed question finds no old partial.
## @end deftypefn

function path = partial_path (question, k)

  path = fullfile (question.keep, ["partial-" question.keys{k+1}]);

endfunction
