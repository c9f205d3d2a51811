## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} unknown_name (@var{kind}, @var{what}, @var{name}, @var{names}, @var{where})
## Undocumented internal function: raise the error that there is no @var{what} of a name, with those that are near it, and
## with a list of @var{names}.
## @end deftypefn

function unknown_name (kind, what, name, names, where = "")

  message = sprintf ("no %s '%s'%s", what, shown_text (name), where);
  near = near_names (name, names);
  if (! isempty (near))
    message = sprintf ("%s; did you mean %s?", message, strjoin (near(:)', " or "));
  endif
  if (isempty (names))
    message = sprintf ("%s\nThere is nothing of that kind.", message);
  else
    message = sprintf ("%s\nThere %s: %s", message, merge (numel (names) == 1, "is", "are"), listed_names (names));
  endif
  fail (kind, "%s", message);

endfunction
