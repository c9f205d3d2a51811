% SPDX-License-Identifier: BSD-3-Clause
% Draws profiles side by side into a PNG picture, the surface at the top.
%   section.m FILE VARIABLE DEPTH OUT.png
%
% VARIABLE has two dimensions, levels (fastest varying) and profiles. DEPTH is the variable of the
% depths or pressures, over both or over the levels alone. Between the depths of a profile its values
% are interpolated; above the first and below the last there are none. If a variable over the profiles
% has dates, these label them.
1;
if (! exist ("gridio"))
  pkg load gridio
endif
addpath (fullfile (fileparts (mfilename ("fullpath")), "shared"));

function main (args)
  if (numel (args) != 4)
    error ("usage: section.m FILE VARIABLE DEPTH OUT.png");
  endif
  root = gridio ("open", args{1}, "nowrite");
  unwind_protect
    [ncid, varid] = findVariable (root, args{2});
    field = readSection (ncid, varid, gridio ("inqVarID", ncid, args{3}));
  unwind_protect_cleanup
    gridio ("close", root);
  end_unwind_protect

  [picture, layout] = drawField (field);
  imwrite (picture, args{4}, "png");
  printf ("%s: %d profiles, depths %.6g to %.6g, values from %.6g to %.6g\n", args{4}, ...
          rows (field.values), field.y.values([1 end]), min (field.values(:)), max (field.values(:)));
  printf ("cells of %d x %d pixels from column %d, row %d on; colour scale from column %d on\n", ...
          layout.cell, layout.left, layout.top, layout.scaleLeft);
endfunction

function field = readSection (ncid, varid, depthid)
  [name, ~, dimids] = gridio ("inqVar", ncid, varid);
  [depthName, ~, depthDims] = gridio ("inqVar", ncid, depthid);
  if (numel (dimids) != 2 || ! (isequal (depthDims, dimids) || isequal (depthDims, dimids(1))))
    error ("%s has no two dimensions, or %s not the same", name, depthName);
  endif
  values = readWhole (ncid, varid);
  depths = readWhole (ncid, depthid) + zeros (size (values));  % the same for each profile, perhaps
  profiles = columns (values);
  if (! any (isfinite (values(:) + depths(:))))
    error ("%s has no values", name);
  endif

  grid_ = depthGrid (depths(isfinite (values)));
  field.values = NaN (profiles, numel (grid_));
  for p = 1:profiles
    good = isfinite (values(:, p)) & isfinite (depths(:, p));
    [z, order] = unique (depths(good, p));
    if (numel (z) > 1)
      field.values(p, :) = interp1 (z, values(good, p)(order), grid_);
    endif
  endfor
  field.x = profileAxis (ncid, dimids(2), profiles);
  field.y = struct ("label", titleText (ncid, depthid), "values", grid_, "down", true);
  field.title = titleText (ncid, varid);
  field.subtitle = sprintf ("%d profiles", profiles);
  field.width = 700;
endfunction

function values = readWhole (ncid, varid)
  [~, ~, dimids] = gridio ("inqVar", ncid, varid);
  for d = 1:numel (dimids)
    [~, count(d)] = gridio ("inqDim", ncid, dimids(d));
  endfor
  values = readValues (ncid, varid, zeros (size (count)), count, ones (size (count)));
endfunction

% About 200 depths, a round number apart.
function depths = depthGrid (known)
  [low, high] = deal (min (known), max (known));
  step = max ((high - low) / 200, eps (high));
  power = 10 ^ floor (log10 (step));
  step = power * [1 2 5 10](find (step <= power * [1 2 5 10] * (1 + 1e-9), 1));
  depths = step * (ceil (low / step):floor (high / step));
endfunction

% The dates of the profiles if they ascend, else their numbers.
function axis_ = profileAxis (ncid, dimid, profiles)
  axis_ = struct ("label", gridio ("inqDim", ncid, dimid), "values", 0:profiles - 1);
  for id = gridio ("inqVarIDs", ncid)
    [name, xtype, dimids] = gridio ("inqVar", ncid, id);
    if (isequal (dimids, dimid) && xtype != gridio ("parameter", "NC_CHAR"))
      days = dateNumbers (ncid, id, readWhole (ncid, id).');
      if (! isempty (days) && all (diff (days) > 0))
        axis_ = struct ("label", name, "values", days, "dates", true);
        return;
      endif
    endif
  endfor
endfunction

% section.m FILE VARIABLE DEPTH OUT.png: draws profiles side by side.

try
  main (argv ());
catch failure
  fprintf (stderr, "section.m: %s\n", failure.message);
  exit (1);
end_try_catch
