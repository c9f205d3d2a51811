% Cuts a part out of a variable, and writes it with its coordinates into a new file.
%   subset.m FILE VARIABLE OUT.nc NAME VALUE ...
%   subset.m era5.nc t2m may.nc time 2013-05 lat 40,60 lon -10,30
% SPDX-License-Identifier: BSD-3-Clause
1;
if (! exist ("gridio"))
  pkg load gridio
endif
addpath (fullfile (fileparts (mfilename ("fullpath")), "shared"));

% Attributes that say how values are stored in the file that is read do not hold for the new one.
function kept = described (v)
  stored = {"_FillValue", "missing_value", "scale_factor", "add_offset", "valid_range", "valid_min", "valid_max", ...
            "_Unsigned", "bounds", "cell_measures"};
  kept = v.attributes;
  kept = rmfield (kept, intersect (fieldnames (kept), stored));
endfunction

% Reads the selection, and writes it with its coordinates.
try
  args = argv ();
  if (numel (args) < 5)
    error ("usage: subset.m FILE VARIABLE OUT.nc NAME VALUE ...");
  endif
  ds = gridio_dataset (args{1});
  [x, at] = ds(args{2}).at (selection (args(4:end)){:});
  out = gridio_dataset (args{3}, "replace");
  for one = at.about.coordinates
    out.put (one.name, at.(one.name), one.dimensions, described (ds(one.name)));
  endfor
  out.put (at.about.variable, x, at.about.dimensions, described (ds(args{2})), "_DeflateLevel", 1);
  printf ("%s: %d values, %d missing\n", args{3}, numel (x), sum (isnan (x(:))));
catch failure
  fprintf (stderr, "subset.m: %s\n", failure.message);
  exit (1);
end_try_catch
