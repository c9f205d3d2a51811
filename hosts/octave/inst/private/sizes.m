## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@dots{}] =} sizes (@var{lengths}, @var{which})
## Undocumented internal function: what @code{size} returns for an array of these lengths.
## @end deftypefn

function varargout = sizes (lengths, which)

  if (nargin > 1)
    lengths(end+1:max (which)) = 1;
    varargout = {lengths(which)};
  elseif (nargout <= 1)
    varargout = {lengths};
  else
    lengths(end+1:nargout) = 1;
    varargout = num2cell ([lengths(1:nargout-1), prod(lengths(nargout:end))]);
  endif

endfunction
