% SPDX-License-Identifier: BSD-3-Clause
% A log that grows: appends the machine's load averages to the unlimited dimension of a netCDF file.
%   append.m FILE              one record, with the time; the file is created if it does not exist
%   append.m FILE N [SECONDS]  N records, so many seconds apart (1 if not given)
% Then the end of the series is shown.
1;
if (! exist ("gridio"))
  pkg load gridio
endif

function main (args)
  if (numel (args) < 1 || numel (args) > 3)
    error ("usage: append.m FILE [N [SECONDS]]");
  endif
  [count, pause_] = deal (1);
  if (numel (args) > 1)
    count = wholeNumber ("N", args{2});
  endif
  if (numel (args) > 2)
    pause_ = wholeNumber ("SECONDS", args{3});
  endif

  ncid = openLog (args{1});
  unwind_protect
    for i = 1:count
      if (i > 1)
        pause (pause_);
      endif
      appendRecord (ncid);
    endfor
    showEnd (ncid, args{1}, count);
  unwind_protect_cleanup
    gridio ("close", ncid);
  end_unwind_protect
endfunction

function number = wholeNumber (name, text)
  number = str2double (text);
  if (! (number >= 0 && number == fix (number)))
    error ("%s must be a whole number, not %s", name, text);
  endif
endfunction

function ncid = openLog (file)
  [~, missing] = stat (file);
  if (! missing)
    ncid = gridio ("open", file, "write");
    return;
  endif
  % The classic format suits records that come one by one.
  ncid = gridio ("create", file, "noclobber");
  NC_DOUBLE = gridio ("parameter", "NC_DOUBLE");
  NC_FLOAT = gridio ("parameter", "NC_FLOAT");
  NC_INT = gridio ("parameter", "NC_INT");
  window = gridio ("defDim", ncid, "window", 3);
  record = gridio ("defDim", ncid, "time", gridio ("parameter", "NC_UNLIMITED"));

  varid = gridio ("defVar", ncid, "time", NC_DOUBLE, record);
  gridio ("putAttText", ncid, varid, "units", "seconds since 1970-01-01 00:00:00");
  windows = gridio ("defVar", ncid, "window", NC_INT, window);
  gridio ("putAttText", ncid, windows, "units", "min");
  % Dimensions stand fastest varying first, so the unlimited one is the last.
  varid = gridio ("defVar", ncid, "load", NC_FLOAT, [window record]);
  gridio ("putAttText", ncid, varid, "long_name", "mean number of runnable processes");
  gridio ("putAttText", ncid, varid, "units", "1");
  gridio ("endDef", ncid);
  gridio ("putVarInt", ncid, windows, int32 ([1 5 15]));
endfunction

function appendRecord (ncid)
  [now_, loads] = deal (time (), loadAverages ());
  records = countRecords (ncid);
  % A start at the present length is the next record; the values must be of the operation's class.
  gridio ("putVaraDouble", ncid, gridio ("inqVarID", ncid, "time"), records, 1, now_);
  gridio ("putVaraFloat", ncid, gridio ("inqVarID", ncid, "load"), [0 records], [3 1], ...
          single (loads));
  gridio ("sync", ncid);  % readers see it now, and a crash later does not lose it
endfunction

function records = countRecords (ncid)
  [~, records] = gridio ("inqDim", ncid, gridio ("inqDimID", ncid, "time"));
endfunction

function loads = loadAverages ()
  loads = sscanf (fileread ("/proc/loadavg"), "%f", 3);
endfunction

function showEnd (ncid, file, appended)
  records = countRecords (ncid);
  printf ("%s: records: %d, new: %d\n", file, records, appended);
  count = min (records, 20);
  if (count == 0)
    return;
  endif
  first = records - count;
  times = gridio ("getVaraDouble", ncid, gridio ("inqVarID", ncid, "time"), first, count);
  loads = gridio ("getVaraDouble", ncid, gridio ("inqVarID", ncid, "load"), [0 first], [3 count]);
  longest = max (loads(1, :));
  for i = 1:count
    bar = repmat ("#", 1, round (40 * loads(1, i) / max (longest, 1)));
    printf ("%s %6.2f %6.2f %6.2f  %s\n", strftime ("%Y-%m-%d %H:%M:%S", gmtime (times(i))), ...
            loads(:, i), bar);
  endfor
endfunction

% append.m FILE [N [SECONDS]]: appends the load averages, and shows the end of the series.

try
  main (argv ());
catch failure
  fprintf (stderr, "append.m: %s\n", failure.message);
  exit (1);
end_try_catch
