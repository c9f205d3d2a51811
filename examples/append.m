% Appends the machine's load to a log, a netCDF file that is made if it is not there.
%   append.m FILE [N [SECONDS]]     N records, 1 by default, SECONDS apart, 1 by default
% SPDX-License-Identifier: BSD-3-Clause
1;  % a script, not a function
if (! exist ("gridio"))
  pkg load gridio
endif

function number = whole (name, text)
  number = str2double (text);
  if (! (number >= 0 && number == fix (number)))
    error ("%s must be a whole number, not %s", name, text);
  endif
endfunction

try
  args = [argv(); {"1"; "1"}];
  if (! any (numel (args) == 3:5))
    error ("usage: append.m FILE [N [SECONDS]]");
  endif
  count = whole ("N", args{2});
  wait = whole ("SECONDS", args{3});
  if (! exist (args{1}, "file"))
    out = gridio_dataset (args{1}, "new", "_Format", "classic");  % it suits records that come one by one
    out.put ("time", [], "time", "units", "seconds since 1970-01-01", "_Unlimited", true);
    out.put ("window", int32 ([1 5 15]), "window", "units", "min");
    out.put ("load", zeros (3, 0, "single"), {"window", "time"}, "units", "1", "long_name", "runnable processes");
    clear out  % what is closed is safe
  endif
  for i = 1:count
    pause (wait * (i > 1));
    out = gridio_dataset (args{1}, "write");
    out.append ("time", time () / 86400 + datenum (1970, 1, 1), "load", sscanf (fileread ("/proc/loadavg"), "%f", 3));
    clear out
  endfor
  printf ("%s: %d records, %d of them new\n", args{1}, numel (gridio_dataset (args{1}).time(:)), count);
catch failure
  fprintf (stderr, "append.m: %s\n", failure.message);
  exit (1);
end_try_catch
