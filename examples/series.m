% Draws a series, perhaps at the point nearest to a place, into a PNG picture.
%   series.m FILE VARIABLE OUT.png [LONGITUDE LATITUDE]
% SPDX-License-Identifier: BSD-3-Clause
1;  % a script, not a function
if (! exist ("gridio"))
  pkg load gridio
endif

try
  args = argv ();
  if (! any (numel (args) == [3 5]))
    error ("usage: series.m FILE VARIABLE OUT.png [LONGITUDE LATITUDE]");
  endif
  place = str2double (args(4:end));
  if (any (isnan (place)))
    error ("LONGITUDE and LATITUDE must be numbers, not %s", strjoin (args(4:5), " and "));
  endif
  ds = gridio_dataset (args{1});
  names = {"lon", "lat"}(1:numel (place));
  [x, at] = ds(args{2}).at ([names; num2cell(place(:)')]{:});
  fig = gridio_plot (x, at);
  print (fig, args{3}, "-dpng", "-S900,500");
  printf ("%s: %d values from %.6g to %.6g, %d missing\n", args{3}, numel (x), min (x(:)), max (x(:)), sum (isnan (x(:))));
catch failure
  fprintf (stderr, "series.m: %s\n", failure.message);
  exit (1);
end_try_catch
