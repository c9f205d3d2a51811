## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} fail (@var{kind}, @var{template}, @dots{})
## Undocumented internal function: raise an error of a kind that @code{error_identifier} lists.
## @end deftypefn

function fail (kind, template, varargin)

  raise (error_identifier (kind), sprintf ([template "%s"], varargin{:}, ""));

endfunction
