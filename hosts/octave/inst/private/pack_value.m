## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{bytes} =} pack_value (@var{value}, @var{name})
## Undocumented internal function: a value as a row of bytes, exact to the last bit, for another process; the interpreter's
## own files lose the sign of zeros.  @var{name} is what a value that cannot travel is called in the error.
## @end deftypefn

function bytes = pack_value (value, name)

  bytes = [pieces_of(value, name){:}];

endfunction

function pieces = pieces_of (value, name)

  kind = class (value);
  if (issparse (value))
    [rows, columns, entries] = find (value);
    value = struct ("rows", rows, "columns", columns, "entries", entries, "size", size (value));
    pieces = [{header("sparse", value)}, pieces_of(value, name)];
  elseif (isnumeric (value) || ischar (value) || islogical (value))
    pieces = {header([kind, "*"(iscomplex (value))], value), bytes_of(real (value)(:), kind)};
    if (iscomplex (value))
      pieces{3} = bytes_of (imag (value)(:), kind);
    endif
  elseif (iscell (value))
    pieces = [{header("cell", value)}, pieces_of_all(value, [name "{...}"])];
  elseif (isstruct (value))
    names = fieldnames (value);
    pieces = [{header("struct", value)}, pieces_of(names, name)];
    for k = 1:numel (names)
      pieces = [pieces, pieces_of_all({value.(names{k})}, [name "." names{k}])];
    endfor
  elseif (is_function_handle (value))
    pieces = [{header("function", 1)}, pieces_of(carry_function (value, name), name)];
  else
    fail ("cannotTravel", "%s is a %s, which no other process can take", visible_text (name), kind);
  endif

endfunction

function pieces = pieces_of_all (values, name)

  pieces = cellfun (@(one) pieces_of (one, name), values(:)', "UniformOutput", false);
  pieces = [pieces{:}, {}];

endfunction

function bytes = header (kind, value)

  bytes = uint8 ([kind, sprintf(" %d", size (value)), "\n"]);

endfunction

function bytes = bytes_of (values, kind)

  if (any (strcmp (kind, {"char", "logical"})))
    bytes = uint8 (values)(:)';
  else
    bytes = typecast (full (values), "uint8")(:)';
  endif

endfunction
