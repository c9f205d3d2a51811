% Draws a section, depths or pressures downwards, into a PNG picture.
%   section.m FILE VARIABLE OUT.png [NAME VALUE ...]
%   section.m ocean.nc thetao section.png lon -30 time 2015-01-16
%   section.m float.nc TEMP float.png along PRES
%
% The levels may be the same for all profiles, or a field of their own, which "along NAME" names if the file does
% not say which it is.
% SPDX-License-Identifier: BSD-3-Clause
1;  % a script, not a function
if (! exist ("gridio"))
  pkg load gridio
endif
addpath (fullfile (fileparts (mfilename ("fullpath")), "shared"));

try
  args = argv ();
  if (numel (args) < 3)
    error ("usage: section.m FILE VARIABLE OUT.png [NAME VALUE ...]");
  endif
  ds = gridio_dataset (args{1});
  fig = gridio_plot (ds(args{2}), selection (args(4:end)){:});
  print (fig, args{3}, "-dpng", "-S900,550");
catch failure
  fprintf (stderr, "section.m: %s\n", failure.message);
  exit (1);
end_try_catch
