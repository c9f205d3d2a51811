## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{request}, @var{options}] =} many_options (@var{options})
## Undocumented internal function: how files are to be joined, taken out of the options of @code{gridio_dataset}.
## @end deftypefn

function [request, options] = many_options (options)

  request = struct ("along", "", "newDimension", "", "isSkipping", false);
  if (mod (numel (options), 2) == 1)
    if (! any (strcmp (options{1}, {"read", "write", "new", "replace"})))
      fail ("badOption", "options of gridio_dataset are pairs of a name and a value; %s has none", shown_text (options{1}));
    elseif (! strcmp (options{1}, "read"))
      fail ("badMode", "many files are opened for reading only; one of them is written to by itself");
    endif
    options(1) = [];
  endif
  isTaken = false (1, numel (options));
  for k = 1:2:numel (options)
    [name, value] = options{k:k+1};
    if (strcmp (name, "missing") && ischar (value))
      if (! strcmp (value, "skip"))
        fail ("badOption", "option \"missing\" must be \"skip\", true or false, not %s", shown_text (value));
      endif
      request.isSkipping = isTaken(k:k+1) = true;
    elseif (any (strcmp (name, {"along", "new dimension"})))
      if (! ischar (value) || isempty (value) || rows (value) > 1)
        fail ("badOption", "option \"%s\" must be the name of a dimension, a text", name);
      endif
      request.(merge (strcmp (name, "along"), "along", "newDimension")) = value;
      isTaken(k:k+1) = true;
    endif
  endfor
  options = options(! isTaken);
  if (! isempty (request.along) && ! isempty (request.newDimension))
    fail ("badOption", "files are joined \"along\" a dimension that they have or along a \"new dimension\", not both");
  endif

endfunction
