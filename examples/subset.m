% SPDX-License-Identifier: BSD-3-Clause
% Draws a region of a field into a PNG picture.
%   subset.m FILE VARIABLE OUT.png                         a whole field, the first if there are more
%   subset.m FILE VARIABLE OUT.png START COUNT [STRIDE]    a region, such as 0,40,2 360,200,1 2,2,1
%
% VARIABLE may have a path of groups before it. START (counted from 0), COUNT and STRIDE have one
% number for each dimension, the fastest varying first: the reverse of what ncdump prints. Two
% dimensions may have a COUNT above 1: the faster one goes to the right, the other upwards.
% Values are unpacked (scale_factor, add_offset, _Unsigned); those that are missing become grey.
1;
addpath (fullfile (fileparts (mfilename ("fullpath")), "shared"));

function main (args)
  if (! any (numel (args) == [3 5 6]))
    error ("usage: subset.m FILE VARIABLE OUT.png [START COUNT [STRIDE]]");
  endif
  [file, path, out] = args{1:3};
  root = gridio ("open", file, "nowrite");
  unwind_protect
    [ncid, varid] = findVariable (root, path);
    [start, count, stride] = readRegion (ncid, varid, args(4:end));
    field = readField (ncid, varid, start, count, stride);
  unwind_protect_cleanup
    gridio ("close", root);
  end_unwind_protect

  [picture, layout] = drawField (field);
  imwrite (picture, out, "png");
  printf ("%s: %d x %d values from %.6g to %.6g, %d without value\n", out, size (field.values), ...
          min (field.values(:)), max (field.values(:)), sum (isnan (field.values(:))));
  printf ("cells of %d x %d pixels from column %d, row %d on; colour scale from column %d on\n", ...
          layout.cell, layout.left, layout.top, layout.scaleLeft);
endfunction

function [ncid, varid] = findVariable (ncid, path)
  names = strsplit (path, "/");
  for group = names(1:end - 1)
    if (! isempty (group{1}))
      ncid = gridio ("inqNcid", ncid, group{1});
    endif
  endfor
  varid = gridio ("inqVarID", ncid, names{end});
endfunction

function [start, count, stride] = readRegion (ncid, varid, args)
  [name, ~, dimids] = gridio ("inqVar", ncid, varid);
  if (numel (dimids) < 2)
    error ("%s has fewer than two dimensions", name);
  endif
  start = zeros (size (dimids));
  count = stride = ones (size (dimids));
  if (isempty (args))
    for d = 1:2
      [~, count(d)] = gridio ("inqDim", ncid, dimids(d));
    endfor
  else
    start = wholeNumbers ("START", args{1});
    count = wholeNumbers ("COUNT", args{2});
  endif
  if (numel (args) > 2)
    stride = wholeNumbers ("STRIDE", args{3});
  endif
  if (sum (count > 1) > 2 || any (count < 1) || any (count > 4000))
    error ("COUNT must have numbers from 1 to 4000, two of them above 1; a STRIDE gives fewer values");
  endif
endfunction

function numbers = wholeNumbers (name, text)
  numbers = str2double (strsplit (text, ","));
  if (! all (numbers >= 0 & numbers == fix (numbers)))
    error ("%s must be whole numbers with commas between, not %s", name, text);
  endif
endfunction

% What to draw, in the form that drawField takes.
function field = readField (ncid, varid, start, count, stride)
  [name, ~, dimids] = gridio ("inqVar", ncid, varid);
  values = readValues (ncid, varid, start, count, stride);

  wide = [find(count > 1), find(count == 1)];
  axes_ = sort (wide(1:2));
  [x, y] = deal (axes_(1), axes_(2));
  others = setdiff (1:numel (dimids), axes_);
  values = reshape (values, count(x), count(y));
  [field.x, values] = readAxis (ncid, dimids(x), start(x), count(x), stride(x), values);
  [field.y, values] = readAxis (ncid, dimids(y), start(y), count(y), stride(y), values.');
  field.values = values.';

  title = textAttribute (ncid, varid, "long_name");
  if (isempty (title))
    title = name;
  endif
  field.title = [title unitsText(ncid, varid)];
  places = {};
  for d = others
    place = readAxis (ncid, dimids(d), start(d), 1, 1, 0);
    places{end + 1} = sprintf ("%s: %.10g", place.label, place.values);
  endfor
  field.subtitle = strjoin (places, ", ");
endfunction

% A slice of a variable as double, unpacked, NaN where there is no value.
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

% The values along a dimension: those of its coordinate variable, else the indices. Axis values
% ascend; the rows of VALUES are reversed with them where they did not.
function [axis_, values] = readAxis (ncid, dimid, start, count, stride, values)
  name = gridio ("inqDim", ncid, dimid);
  axis_ = struct ("label", name, "values", start + stride * (0:count - 1));
  [group, varid] = findCoordinate (ncid, dimid, name);
  if (isempty (varid))
    return;
  endif
  coordinates = readValues (group, varid, start, count, stride).';
  steps = sign (diff (coordinates));
  if (any (isnan (coordinates)) || any (steps == 0) || any (steps != steps(1:min (1, end))))
    return;
  endif
  axis_ = struct ("label", [name unitsText(group, varid)], "values", coordinates);
  if (any (steps < 0))
    axis_.values = fliplr (coordinates);
    values = flipud (values);
  endif
endfunction

% The variable of a dimension's name over just that dimension, in this group or one above.
function [ncid, varid] = findCoordinate (ncid, dimid, name)
  varid = [];
  while (true)
    for id = gridio ("inqVarIDs", ncid)
      [variable, xtype, dimids] = gridio ("inqVar", ncid, id);
      if (strcmp (variable, name) && isequal (dimids, dimid) && xtype != gridio ("parameter", "NC_CHAR"))
        varid = id;
        return;
      endif
    endfor
    try
      ncid = gridio ("inqGrpParent", ncid);
    catch
      return;  % this was the root group, or a format without groups
    end_try_catch
  endwhile
endfunction

function text = unitsText (ncid, varid)
  text = textAttribute (ncid, varid, "units");
  if (! isempty (text))
    text = sprintf (" (%s)", text);
  endif
endfunction

% Empty if there is no such attribute, or one of another kind.
function text = textAttribute (ncid, varid, name)
  try
    text = gridio ("getAttText", ncid, varid, name);
  catch
    text = "";
  end_try_catch
endfunction

function values = numericAttribute (ncid, varid, name, operation)
  try
    values = gridio (["getAtt" operation], ncid, varid, name);
  catch
    values = [];
  end_try_catch
endfunction

try
  main (argv ());
catch failure
  fprintf (stderr, "subset.m: %s\n", failure.message);
  exit (1);
end_try_catch
