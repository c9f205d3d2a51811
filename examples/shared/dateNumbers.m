% SPDX-License-Identifier: BSD-3-Clause

% dateNumbers (NCID, VARID, VALUES): values of a time variable in days as datenum counts them. Empty if
% its units are no "hours since 1900-01-01" or the like, or its calendar is not that of everyday life.
function days = dateNumbers (ncid, varid, values)
  days = [];
  calendar = textAttribute (ncid, varid, "calendar");
  pattern = ["^\\s*(second|minute|hour|day)s? since (\\d+)-(\\d+)-(\\d+)" ...
             "(?:[ T](\\d+):(\\d+)(?::([\\d.]+))?)?"];
  parts = regexp (textAttribute (ncid, varid, "units"), pattern, "tokens", "once");
  if (isempty (parts) || ! any (strcmp (calendar, {"", "standard", "gregorian", "proleptic_gregorian"})))
    return;
  endif
  unit = struct ("second", 86400, "minute", 1440, "hour", 24, "day", 1).(parts{1});
  since = [cellfun(@str2double, parts(2:end))(:).', zeros(1, 6)](1:6);
  since(isnan (since)) = 0;
  days = datenum (since) + values / unit;
endfunction
