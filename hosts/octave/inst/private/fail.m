## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} fail (@var{kind}, @var{template}, @dots{})
## Undocumented internal function: raise the error @code{Ovard:gridio:dataset:}@var{kind}.
## @end deftypefn

function fail (kind, template, varargin)

  error (error_identifier (kind), [template "%s"], varargin{:}, "");

endfunction
