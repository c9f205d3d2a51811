## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{values} =} call_method (@var{method}, @var{self}, @var{way}, @var{count}, @var{most})
## Undocumented internal function: the call that a chain of indexes, beginning with the method's name, stands for, and what
## the rest of the chain makes of its result.  @var{most} is how many results the method has.
## @end deftypefn

function values = call_method (method, self, way, count, most)

  given = {};
  rest = way(2:end);
  if (! isempty (rest) && strcmp (rest(1).type, "()"))
    given = rest(1).subs;
    rest(1) = [];
  endif
  wanted = max (count, 1);
  if (! isempty (rest))
    wanted = 1;
  endif
  if (most == 0)
    method (self, given{:});
    values = {};
  else
    values = cell (1, min (wanted, most));
    [values{:}] = method (self, given{:});
    if (! isempty (rest))
      values = follow (values{1}, rest, count);
    endif
  endif

endfunction
