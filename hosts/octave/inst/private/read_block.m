## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{x} =} read_block (@var{file}, @var{number}, @var{lists}, @var{shape})
## Undocumented internal function: the decoded values at lists of positions, one for each dimension of the values.
## @var{shape} is that of the variable.
## @end deftypefn

function x = read_block (file, number, lists, shape = variable_shape (file, number))

  d = file.d;
  ncid = d.groups.ncid(d.variables.group(number));
  varid = d.variables.varid(number);
  lengths = double (d.dimensions.length(double (d.variables.dimensions{number}))(:)');
  if (shape.isText)
    lists = [{":"}, lists];
  endif
  isOpaque = strcmp (d.variables.kind{number}, "opaque");
  place = joined_place (file, number);
  if (place > 0)
    x = read_joined (file, number, place, lengths, lists, isOpaque);
  else
    x = fetch ({"read", ncid, varid}, lengths, lists, bitand (file.flags, 63), isOpaque);
  endif
  warn_once (file, number);
  if (shape.isText)
    x = texts_of (x, lengths(1), block_size (lists(2:end), shape.lengths));
  elseif (ischar (x) && strcmp (d.variables.kind{number}, "string") && ! isempty (lengths))
    x = {x}; # also one of them is in a cell
  elseif (isnumeric (x))
    x = decoded_times (file, number, x);
  endif

endfunction

## Characters whose texts lie along the first dimension; one text as such.
function texts = texts_of (x, len, counts)

  if (len == 0 || isempty (x))
    texts = repmat ({""}, [counts, 1, 1]);
  else
    texts = reshape (cellstr (cut_at_nul (reshape (x, len, [])')), [counts, 1, 1]);
  endif
  if (isempty (counts))
    texts = texts{1};
  endif

endfunction

## A text ends at its first NUL.
function x = cut_at_nul (x)

  x(cumsum (x == 0, 2) > 0) = " ";

endfunction
