% What is in a netCDF file, or in some of its variables?
%   field.m FILE                its dimensions, coordinates with their ranges, variables and attributes
%   field.m FILE VARIABLE ...   each variable, its smallest and largest value, and its mean
% SPDX-License-Identifier: BSD-3-Clause
1;
if (! exist ("gridio"))
  pkg load gridio
endif

function describe (v)
  disp (v);
  x = v(:);
  if (! isnumeric (x))
    printf ("\n%d values of class %s\n", numel (x), class (x));
    return;
  endif
  known = double (x(! isnan (x)));
  printf ("\n%d values, %d of them missing", numel (x), numel (x) - numel (known));
  if (! isempty (known))
    printf (", from %.10g to %.10g, mean %.10g", min (known), max (known), mean (known));
  endif
  printf ("\n");
endfunction

% The whole file, or each variable that was named.
try
  args = argv ();
  if (isempty (args))
    error ("usage: field.m FILE [VARIABLE ...]");
  endif
  ds = gridio_dataset (args{1});
  if (numel (args) == 1)
    disp (ds);
  endif
  cellfun (@(name) describe (ds(name)), args(2:end));
catch failure
  fprintf (stderr, "field.m: %s\n", failure.message);
  exit (1);
end_try_catch
