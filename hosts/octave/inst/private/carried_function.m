## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{f} =} carried_function (@var{carried})
## Undocumented internal function: the function of which @code{carry_function} made plain values.
## @end deftypefn

function f = carried_function (carried)

  cellfun (@eval, carried.sources);
  switch (carried.kind)
    case "anonymous"
      f = function_with (carried.text, carried.variables);
    case "simple"
      f = str2func (carried.text);
    otherwise
      f = loaded_function (carried.saved);
  endswitch

endfunction

## The variables that the text names become those of the function.
function f__ = function_with (text__, variables__)

  for name__ = fieldnames (variables__)'
    eval ([name__{1} " = unpack_value (variables__.(name__{1}));"]);
  endfor
  f__ = eval (text__);

endfunction

function f = loaded_function (bytes)

  path = tempname ();
  unwind_protect
    file = fopen (path, "w");
    fwrite (file, bytes);
    fclose (file);
    f = load ("-binary", path).f;
  unwind_protect_cleanup
    unlink (path);
  end_unwind_protect

endfunction
