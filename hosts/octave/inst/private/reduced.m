## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{x}, @var{at}] =} reduced (@var{wanted}, @var{kind}, @var{self}, @dots{})
## Undocumented internal function: what reduce_variable returns, and its coordinates only if they are wanted.
## @end deftypefn

function [x, at] = reduced (wanted, kind, self, varargin)

  at = [];
  if (wanted > 1)
    [x, at] = reduce_variable (kind, self, varargin{:});
  else
    x = reduce_variable (kind, self, varargin{:});
  endif

endfunction
