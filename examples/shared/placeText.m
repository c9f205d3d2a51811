% SPDX-License-Identifier: BSD-3-Clause

% placeText (NCID, DIMIDS, START): where positions along dimensions lie: "time (days): 3, level: 0".
% placeText (NCID, DIMIDS, START, true): the same, with dates where there are dates: "time: 2015-01-16".
function text = placeText (ncid, dimids, start, dates)
  places = {};
  for d = 1:numel (dimids)
    place = readAxis (ncid, dimids(d), start(d), 1, 1, 0);
    if (nargin > 3 && dates)
      place = dated (ncid, dimids(d), place);
    endif
    if (isfield (place, "dates"))
      places{end + 1} = sprintf ("%s: %s", place.label, datestr (place.values, "yyyy-mm-dd HH:MM"));
    else
      places{end + 1} = sprintf ("%s: %.10g", place.label, place.values);
    endif
  endfor
  text = strjoin (places, ", ");
endfunction
