## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{attributes} =} stored_attributes (@var{ncid}, @var{varid})
## Undocumented internal function: the attributes of a variable, a name and a value in each row.
## @end deftypefn

function attributes = stored_attributes (ncid, varid)

  [~, ~, ~, count] = gridio ("inqVar", ncid, varid);
  attributes = cell (count, 2);
  for i = 1:count
    attributes{i,1} = gridio ("inqAttName", ncid, varid, i - 1);
    attributes{i,2} = gridio_any ("getAtt", ncid, varid, attributes{i,1});
  endfor

endfunction
