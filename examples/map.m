% Draws a field over longitude and latitude into a PNG picture.
%   map.m FILE VARIABLE OUT.png [NAME VALUE ...]
%   map.m nemo.nc tos sst.png lon -30,30 lat 30,70 time 2015-01-16
%
% What is not selected of other dimensions, such as time, is drawn at its first position. The coordinates may
% be fields themselves.
% SPDX-License-Identifier: BSD-3-Clause
1;  % a script, not a function
if (! exist ("gridio"))
  pkg load gridio
endif
addpath (fullfile (fileparts (mfilename ("fullpath")), "shared"));

try
  args = argv ();
  if (numel (args) < 3)
    error ("usage: map.m FILE VARIABLE OUT.png [NAME VALUE ...]");
  endif
  ds = gridio_dataset (args{1});
  fig = gridio_plot (ds(args{2}), selection (args(4:end)){:});
  print (fig, args{3}, "-dpng", "-S900,650");
catch failure
  fprintf (stderr, "map.m: %s\n", failure.message);
  exit (1);
end_try_catch
