## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} dataset_assign (@var{self}, @var{way}, @var{value})
## Undocumented internal function: assign an attribute of a dataset, or values or an attribute of a variable in it.
## @end deftypefn

function dataset_assign (self, way, value)

  [file, group] = content (self);
  name = way(1).subs;
  if (iscell (name) && numel (name) == 1)
    name = name{1};
  endif
  if (strcmp (way(1).type, "{}") || ! ischar (name))
    fail ("badName", "an assignment names a variable or an attribute, as in ds.sst(:,:,1) = x and ds.title = \"SST\"");
  elseif (numel (way) > 1)
    member = dataset_member (self, name);
    if (isa (member, "gridio_variable"))
      variable_assign (member, way(2:end), value);
    elseif (isa (member, "gridio_dataset"))
      dataset_assign (member, way(2:end), value);
    else
      fail ("badName", "parts of the attribute '%s' cannot be assigned; assign it whole", shown_text (name));
    endif
    return;
  elseif (strcmp (way(1).type, "()") || ! isempty (find_variable (file.d, group, name)))
    fail ("badName", "values are assigned with their positions: ds.%s(:) = values; a new variable is made by put", ...
          shown_text (name));
  endif
  writable (file);
  change_file (self, @assign_attribute, file.d.groups.ncid(group), -1, name, value);

endfunction
