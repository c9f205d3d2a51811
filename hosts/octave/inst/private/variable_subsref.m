## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{values} =} variable_subsref (@var{self}, @var{way}, @var{count})
## Undocumented internal function: a chain of indexes of a variable, as a cell row of results.
## @end deftypefn

function values = variable_subsref (self, way, count)

  switch (way(1).type)
    case "()"
      [file, number] = inside (self);
      values = follow (read_positions (file, number, way(1).subs), way(2:end), count);
    case "."
      [method, most] = method_of ("variable", way(1).subs);
      if (! isempty (method))
        values = call_method (method, self, way, count, most);
      elseif (strcmp (way(1).subs, "raw"))
        values = follow (masked (self, 0), way(2:end), count);
      else
        values = follow (variable_member (self, way(1).subs), way(2:end), count);
      endif
    otherwise
      fail ("badIndex", "a variable is indexed in parentheses");
  endswitch

endfunction
