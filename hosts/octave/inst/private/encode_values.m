## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{stored} =} encode_values (@var{values}, @var{encoding})
## Undocumented internal function: the values as they are stored: day numbers in the units of time, packed, missing ones as
## the fill value.  Values that the type cannot hold are an error.
## @end deftypefn

function stored = encode_values (values, encoding)

  if (isempty (encoding.class))
    stored = values; # texts and types of the user
    return;
  endif
  isTime = ! isempty (encoding.units);
  if (isTime && (iscellstr (values) || ischar (values) || isa (values, "double")))
    values = encode_times (values, encoding);
  endif
  if (! (isnumeric (values) || islogical (values)) || iscomplex (values))
    fail ("badValues", "the values of '%s' must be real numbers, but they are of class %s%s", ...
          shown_text (encoding.name), class (values), merge (iscomplex (values), ", complex", ""));
  endif
  values = full (values);
  if (islogical (values))
    values = uint8 (values);
  endif

  isMissing = false;
  if (isfloat (values))
    isMissing = isnan (values);
  endif
  if (encoding.isCoordinate && any (isMissing(:)))
    fail ("missingCoordinate", "'%s' is a coordinate variable, which must not have missing values, but %d of them are NaN", ...
          shown_text (encoding.name), sum (isMissing(:)));
  endif
  if (isempty (encoding.fill) && any (isMissing(:)))
    fail ("doNotFit", "%d values of '%s' are NaN, but it has no '_FillValue', and its type, %s, has none of its own", ...
          sum (isMissing(:)), shown_text (encoding.name), encoding.type);
  endif
  if (encoding.isPacked)
    values = (double (values) - encoding.offset) / encoding.scale;
  endif

  if (any (strcmp (encoding.class, {"single", "double"})))
    stored = cast (values, encoding.class);
    isBad = (isinf (stored) & ! isinf (values)) | lost_digits (values, stored);
  else
    [stored, isBad] = whole_numbers (values, encoding, isTime);
    isBad &= ! isMissing;
  endif
  if (any (isBad(:)))
    report (values, isBad, encoding);
  endif
  if (any (isMissing(:)))
    stored(isMissing) = encoding.fill;
  endif
  if (encoding.isUnsigned)
    stored = reshape (typecast (stored(:), encoding.class(2:end)), size (stored));
  endif

endfunction

## Integers of 64 bits that a double does not hold exactly.
function isLost = lost_digits (values, stored)

  isLost = false;
  if (isinteger (values) && sizeof (values) == 8 * numel (values))
    isLost = values != cast (stored, class (values)) | abs (double (stored)) > flintmax ();
  endif

endfunction

## Packed values are rounded, and times to a thousandth of a unit; others have to be whole.
function [stored, isBad] = whole_numbers (values, encoding, isTime)

  if (encoding.isPacked)
    values = round (values);
  elseif (isTime && isfloat (values))
    near = abs (values - round (values)) < 1e-3;
    values(near) = round (values(near));
  endif
  stored = cast (values, encoding.class);
  isBad = stored != values;
  if (isfloat (values))
    isBad |= values >= 2 ^ 63 & strcmp (encoding.class, "int64") | values >= 2 ^ 64;
  endif
  if (encoding.isPacked && ! isempty (encoding.fill))
    isBad |= stored == encoding.fill;
  endif

endfunction

function report (values, isBad, encoding)

  first = double (values(find (isBad, 1)));
  place = shown_text (encoding.name);
  what = sprintf ("%d of %d values of '%s'", sum (isBad(:)), numel (values), place);
  if (encoding.isPacked)
    limits = double ([intmin(encoding.class), intmax(encoding.class)]) * encoding.scale + encoding.offset;
    fail ("doNotFit", ["%s do not fit, such as %.15g: as %s with this scale_factor and add_offset they can be from %.10g " ...
          "to %.10g, without the fill value; nothing was written"], what, first * encoding.scale + encoding.offset, ...
          encoding.type, min (limits), max (limits));
  elseif (! isempty (encoding.units))
    fail ("doNotFit", "%s do not fit, such as %.15g %s: type %s cannot hold it; nothing was written", what, first, ...
          shown_text (encoding.units), encoding.type);
  else
    fail ("doNotFit", ["%s do not fit, such as %.15g: type %s cannot hold it; choose another _Type, or pack with " ...
          "scale_factor and add_offset; nothing was written"], what, first, encoding.type);
  endif

endfunction
