## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{below} =} dataset_group (@var{self}, @var{name})
## Undocumented internal function: the method @code{group} of @code{gridio_dataset}.
## @end deftypefn

function below = dataset_group (self, name)

  [file, group] = content (self);
  number = [];
  if (nargin > 1 && ischar (name))
    number = find_group (file.d, group, name);
  else
    fail ("badName", "group takes the name of a group, a text");
  endif
  if (isempty (number))
    unknown_name ("unknownName", "group", name, groups_below (file.d, group));
  endif
  below = gridio_dataset (self, number);

endfunction
