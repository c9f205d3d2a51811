## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} write_block (@var{ncid}, @var{varid}, @var{start}, @var{count}, @var{stride}, @var{values})
## Undocumented internal function: write stored values; none where a count is 0.
## @end deftypefn

function write_block (ncid, varid, start, count, varargin)

  values = varargin{end};
  if (isempty (count))
    gridio_any ("putVar", ncid, varid, values);
  elseif (all (count > 0))
    if (numel (varargin) > 1 && any (varargin{1} != 1))
      gridio_any ("putVars", ncid, varid, start, count, varargin{:});
    else
      gridio_any ("putVara", ncid, varid, start, count, values);
    endif
  endif

endfunction
