## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{bounds} =} stored_bounds (@var{file}, @var{k})
## Undocumented internal function: the bounds of a coordinate's cells as the file has them, with the corners first; empty if
## it has none.
## @end deftypefn

function bounds = stored_bounds (file, k)

  d = file.d;
  bounds = [];
  name = attribute_text (d.variables.attributes{k}, "bounds");
  if (isempty (name))
    name = attribute_text (d.variables.attributes{k}, "climatology");
  endif
  if (isempty (name))
    return;
  endif
  number = in_scope (d, d.variables.group(k), name);
  dimensions = double (d.variables.dimensions{k}(:)');
  if (isempty (number) || ! strcmp (d.variables.kind{number}, "number")
      || ! isequal (double (d.variables.dimensions{number}(:)')(2:end), dimensions))
    return;
  endif
  file.flags = bitand (bitor (file.flags, 31), 255 - 64 - 32);
  bounds = double (read_positions (file, number, {}));
  attributes = d.variables.attributes{k};
  bounds = in_degrees (bounds, axis_role (attributes, d.variables.name{k}), attribute_text (attributes, "units"));

endfunction
