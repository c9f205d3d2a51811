## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{lines} =} plot_heading (@var{at})
## Undocumented internal function: the title of a picture: the name of what is drawn, and then the date and the other
## coordinates that are the same for all of it.
## @end deftypefn

function lines = plot_heading (at)

  name = at.about.long_name;
  if (isempty (name))
    name = strrep (at.about.standard_name, "_", " ");
  endif
  if (isempty (name))
    name = at.about.variable;
  endif
  places = {};
  named = {};
  for one = at.about.coordinates
    value = at.(one.name);
    if (numel (value) == 1 && (isnumeric (value) || iscellstr (value)))
      places{end+1} = place_text (one, value);
      named = [named, one.name, one.dimensions];
    endif
  endfor
  for dimension = setdiff (at.about.dimensions, named, "stable")(:)'
    if (isscalar (at.(dimension{1})))
      places{end+1} = sprintf ("%s: position %d", dimension{1}, at.(dimension{1}));
    endif
  endfor
  lines = [wrapped(name, 64), wrapped(strjoin (places, ", "), 64)];

endfunction

function text = place_text (one, value)

  if (iscellstr (value))
    text = sprintf ("%s: %s", one.name, value{1});
  elseif (one.isDatenum && isfinite (value))
    text = datestr (value, "yyyy-mm-dd HH:MM");
    if (strcmp (text(end-4:end), "00:00"))
      text = text(1:10);
    endif
  elseif (! isempty (one.calendar) && ! one.isDatenum && isfinite (value))
    text = gridio_native ("timesToText", value, one.units, one.calendar){1};
  else
    text = strtrim (sprintf ("%s: %.6g %s", one.name, value, one.units));
  endif

endfunction
