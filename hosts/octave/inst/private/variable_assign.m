## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} variable_assign (@var{self}, @var{way}, @var{value})
## Undocumented internal function: assign values or an attribute of a variable.
## @end deftypefn

function variable_assign (self, way, value)

  [file, number, dataset] = inside (self);
  if (numel (way) == 2 && strcmp (way(1).type, ".") && strcmp (way(1).subs, "raw") && strcmp (way(2).type, "()"))
    variable_assign (masked (self, 0), way(2), value);
    return;
  endif
  writable (file);
  ncid = file.d.groups.ncid(file.d.variables.group(number));
  varid = file.d.variables.varid(number);
  if (numel (way) != 1 || strcmp (way(1).type, "{}"))
    fail ("badName", "values are assigned as in ds.sst(:,:,1) = x, and attributes as in ds.sst.units = \"K\"");
  endif
  if (strcmp (way(1).type, "."))
    change_file (dataset, @assign_attribute, ncid, varid, way(1).subs, value);
  else
    change_file (dataset, @assign_block, ncid, varid, way(1).subs, value, file.flags != 0);
  endif

endfunction
