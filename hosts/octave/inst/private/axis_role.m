## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{role}, @var{stage}] =} axis_role (@var{attributes}, @var{name})
## Undocumented internal function: which axis a variable with these attributes and this name serves as: lon, lat, time,
## level or none, and by what it is known: 1 its axis, 2 its standard_name, 3 its units, 4 a usual name.
## @end deftypefn

function [role, stage] = axis_role (attributes, name)

  standard = attribute_text (attributes, "standard_name");
  units = attribute_text (attributes, "units");
  isOf = struct ("lon", is_angle (units, 'e(ast)?'), "lat", is_angle (units, 'n(orth)?'), ...
                 "time", ! isempty (regexpi (units, '^[a-z]+\s+(since|after|from|ref|@)\s', "once")), ...
                 "level", any (strcmpi (attribute_text (attributes, "positive"), {"up", "down"})));
  standards = struct ("lon", {{"longitude"}}, "lat", {{"latitude"}}, "time", {{"time"}}, "level", {vertical_names()});
  letters = struct ("lon", "X", "lat", "Y", "time", "T", "level", "Z");
  usual = struct ("lon", '^(lon|long|longitude|nav_lon|xlong?|glamt)$', "lat", '^(lat|latitude|nav_lat|xlat|gphit)$', ...
                  "time", '^(time|t)$', "level", '^(lev|level|levels|plev|depth|deptht|altitude|height|z)$');
  for candidate = {"lon", "lat", "time", "level"}
    role = candidate{1};
    fits = isempty (standard) || any (strcmp (standard, standards.(role)));
    if (strcmp (role, "level"))
      isPossible = fits;
    else
      isPossible = fits && (isempty (units) || isOf.(role) || is_plain_angle (role, units));
    endif
    if (isPossible)
      known = [strcmpi(attribute_text (attributes, "axis"), letters.(role)), ! isempty(standard), isOf.(role), ...
               ! isempty(regexpi (name, usual.(role), "once"))];
      stage = find (known, 1);
      if (! isempty (stage))
        return;
      endif
    endif
  endfor
  role = "";
  stage = Inf;

endfunction

function yes = is_angle (units, direction)

  yes = ! isempty (regexpi (units, ['^degrees?_?' direction '$'], "once"));

endfunction

## Units that either coordinate may have, though they do not say which it is.
function yes = is_plain_angle (role, units)

  yes = ! strcmp (role, "time") && ! isempty (regexpi (units, '^(degrees?|deg|radians?|rad)$', "once"));

endfunction
