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
if (! exist ("gridio"))
  pkg load gridio
endif
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
  [~, ~, dimids] = gridio ("inqVar", ncid, varid);
  values = readValues (ncid, varid, start, count, stride);

  wide = [find(count > 1), find(count == 1)];
  axes_ = sort (wide(1:2));
  [x, y] = deal (axes_(1), axes_(2));
  others = setdiff (1:numel (dimids), axes_);
  values = reshape (values, count(x), count(y));
  [field.x, values] = readAxis (ncid, dimids(x), start(x), count(x), stride(x), values);
  [field.y, values] = readAxis (ncid, dimids(y), start(y), count(y), stride(y), values.');
  field.values = values.';

  field.title = titleText (ncid, varid);
  field.subtitle = placeText (ncid, dimids(others), start(others));
endfunction

% subset.m FILE VARIABLE OUT.png [START COUNT [STRIDE]]: draws a region of a field.

try
  main (argv ());
catch failure
  fprintf (stderr, "subset.m: %s\n", failure.message);
  exit (1);
end_try_catch
