## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn  {} {@var{encoding} =} value_encoding (@var{name}, @var{type}, @var{attributes}, @var{fill})
## Undocumented internal function: how the values of a variable become those that are stored.  @var{type} is the name of its
## type, @var{attributes} has a name and a value in each row, and @var{fill} is the fill value, or empty.
## @end deftypefn

function encoding = value_encoding (name, type, attributes, fill)

  encoding = struct ("name", name, "type", type, "class", "", "scale", 1, "offset", 0, "isPacked", false, ...
                     "fill", fill, "isUnsigned", false, "units", "", "calendar", "standard", "isCoordinate", false);
  number = number_types (type);
  if (isempty (number))
    return;
  endif
  encoding.class = number.class;
  if (isequal (given (attributes, "_Unsigned"), "true") && any (strcmp (number.class, {"int8", "int16", "int32", "int64"})))
    encoding.isUnsigned = true;
    encoding.class = ["u" number.class];
  endif
  encoding.isPacked = ! (isempty (given (attributes, "scale_factor")) && isempty (given (attributes, "add_offset")));
  encoding.scale = factor (name, attributes, "scale_factor", 1);
  encoding.offset = factor (name, attributes, "add_offset", 0);
  if (encoding.scale == 0)
    fail ("badAttribute", "'scale_factor' of '%s' is 0; it must be another number", shown_text (name));
  endif
  units = given (attributes, "units");
  if (ischar (units) && ! isempty (regexp (units, '^\s*[A-Za-z]+\s+since\s', "once")))
    encoding.units = units;
    calendar = given (attributes, "calendar");
    if (! isempty (calendar))
      encoding.calendar = calendar;
    endif
  endif
  encoding.fill = fill_value (name, encoding, number, fill, given (attributes, "missing_value"));

endfunction

function value = given (attributes, name)

  value = [];
  at = find (strcmp (attributes(:,1), name), 1);
  if (! isempty (at))
    value = attributes{at,2};
  endif

endfunction

function value = factor (name, attributes, attribute, default)

  value = given (attributes, attribute);
  if (isempty (value))
    value = default;
  elseif (! (isnumeric (value) && isscalar (value) && isfinite (value)))
    fail ("badAttribute", "'%s' of '%s' must be one number", attribute, shown_text (name));
  endif
  value = double (value);

endfunction

## As it is stored, in the class of the values that it is compared with.
function value = fill_value (name, encoding, number, fill, missing)

  value = number.fill;
  if (isempty (fill) && ! isempty (missing) && isnumeric (missing))
    fill = missing(1);
  endif
  if (isempty (fill))
    if (encoding.isUnsigned)
      value = typecast (value, encoding.class);
    endif
    return;
  endif
  if (encoding.isUnsigned && isnumeric (fill) && fill < 0)
    fill = typecast (cast (fill, number.class), encoding.class);
  endif
  value = cast (fill, encoding.class);
  if (! isnumeric (fill) || (isinteger (value) && value != fill))
    fail ("badAttribute", "'_FillValue' of '%s' is not a number of its type, %s", shown_text (name), number.name);
  endif

endfunction
