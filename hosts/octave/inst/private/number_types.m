## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn  {} {@var{types} =} number_types ()
## @deftypefnx {} {@var{type} =} number_types (@var{name})
## Undocumented internal function: what is known of the numeric types of netCDF, or of one of them: its name as
## @command{ncdump} writes it, the class of its values, and its default fill value.  Empty for another type.
## @end deftypefn

function types = number_types (name)

  persistent all = [];
  if (isempty (all))
    names = {"byte", "ubyte", "short", "ushort", "int", "uint", "int64", "uint64", "float", "double"};
    classes = {"int8", "uint8", "int16", "uint16", "int32", "uint32", "int64", "uint64", "single", "double"};
    fills = {int8(-127), intmax("uint8"), int16(-32767), intmax("uint16"), int32(-2147483647), intmax("uint32"), ...
             intmin("int64") + 2, intmax("uint64") - 1, single(9.9692099683868690e+36), 9.9692099683868690e+36};
    all = struct ("name", names, "class", classes, "fill", fills);
  endif

  types = all;
  if (nargin > 0)
    types = all(strcmp (name, {all.name}));
  endif

endfunction
