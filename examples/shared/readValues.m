% SPDX-License-Identifier: BSD-3-Clause

% readValues (NCID, VARID, START, COUNT, STRIDE): a slice of a variable as double, unpacked (scale_factor,
% add_offset, _Unsigned), and NaN where there is no value (_FillValue, missing_value, valid_range,
% valid_min, valid_max).
function values = readValues (ncid, varid, start, count, stride)
  [name, xtype] = gridio ("inqVar", ncid, varid);
  type = elementType (xtype);
  if (isempty (type.operation) || strcmp (type.name, "char"))
    error ("%s holds no numbers, but values of type %s", name, type.name);
  endif
  values = gridio (["getVars" type.operation], ncid, varid, start, count, stride);

  % Attributes that are compared with packed values are read in the type of these.
  packed = @(name) numericAttribute (ncid, varid, name, type.operation);
  missing = [packed("_FillValue"), packed("missing_value")];
  if (isempty (packed ("_FillValue")) && type.bytes > 1)  % single bytes have no fill value by default
    [~, missing(end + 1)] = gridio ("inqVarFill", ncid, varid);
  endif
  low = [packed("valid_min"), packed("valid_range")(1:end / 2)];
  high = [packed("valid_max"), packed("valid_range")(end / 2 + 1:end)];
  if (isinteger (values) && strcmp (textAttribute (ncid, varid, "_Unsigned"), "true"))
    class_ = strrep (["u" class(values)], "uu", "u");
    values = reshape (typecast (values(:), class_), size (values));
    [missing, low, high] = deal (typecast (missing, class_), typecast (low, class_), ...
                                 typecast (high, class_));
  endif
  outside = false (size (values));
  for value = missing
    outside |= values == value;
  endfor
  if (! isempty (low))
    outside |= values < low(1);
  endif
  if (! isempty (high))
    outside |= values > high(1);
  endif

  scale = [numericAttribute(ncid, varid, "scale_factor", "Double"), 1](1);
  offset = [numericAttribute(ncid, varid, "add_offset", "Double"), 0](1);
  values = double (values) * scale + offset;
  values(outside | ! isfinite (values)) = NaN;
endfunction
