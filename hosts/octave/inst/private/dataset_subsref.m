## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{values} =} dataset_subsref (@var{self}, @var{way}, @var{count})
## Undocumented internal function: a chain of indexes of a dataset, as a cell row of results.
## @end deftypefn

function values = dataset_subsref (self, way, count)

  name = way(1).subs;
  switch (way(1).type)
    case "."
      [method, most] = method_of ("dataset", name);
      if (! isempty (method))
        values = call_method (method, self, way, count, most);
      else
        values = follow (dataset_member (self, name), way(2:end), count);
      endif
    case "()"
      if (numel (name) != 1 || ! ischar (name{1}))
        fail ("badName", "a dataset takes the name of a variable in parentheses: ds(\"NAME\")");
      endif
      values = follow (dataset_member (self, name{1}), way(2:end), count);
    otherwise
      fail ("badName", "a dataset has no index in braces; ds(\"NAME\") is the variable of a name");
  endswitch

endfunction
