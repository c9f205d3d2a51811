## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{tree} =} add_node (@var{tree}, @var{level}, @var{index}, @var{value})
## Undocumented internal function: add a node to the tree of a reduction.  Level 0 has the partials of the bins; node
## @var{index} of a level, counted from 0, combines nodes 2*@var{index} and 2*@var{index}+1 of the level below, or is the
## first of these where the second is missing.  Nodes are combined as soon as both are there, in whatever order they come,
## so that the result does not depend on it.  A new tree is a struct with @code{count}, the number of bins, @code{combine},
## and empty @code{level}, @code{index} and @code{value}.
## @end deftypefn

function tree = add_node (tree, level, index, value)

  count = ceil (tree.count / 2^level);
  while (count > 1)
    if (index != count - 1 || mod (index, 2) == 1)
      beside = bitxor (index, 1);
      k = find (tree.level == level & tree.index == beside);
      if (isempty (k))
        break;
      endif
      other = tree.value{k};
      tree.level(k) = tree.index(k) = [];
      tree.value(k) = [];
      if (beside < index)
        value = joined (tree, level, beside, other, value);
      else
        value = joined (tree, level, index, value, other);
      endif
    endif
    level++;
    index = floor (index / 2);
    count = ceil (count / 2);
  endwhile
  tree.level(end+1) = level;
  tree.index(end+1) = index;
  tree.value{end+1} = value;

endfunction

function value = joined (tree, level, index, left, right)

  files = tree.files(tree.edges(index*2^level+1)+1:tree.edges(min ((index+2)*2^level, tree.count)+1));
  try
    value = tree.combine (left, right);
  catch failure
    fail ("partialFailed", "combining the partials of %s: %s", range_of_files (files), failure.message);
  end_try_catch
  if (! isstruct (value) || ! isscalar (value))
    fail ("badPartial", "COMBINE must return one struct, as PARTIAL does; of %s it returned %s", range_of_files (files), ...
          shown_text (value));
  endif

endfunction
