% SPDX-License-Identifier: BSD-3-Clause
% The values of a variable of numbers as ncdump prints them: a source independent of gridio.
function values = dumped (path, variable)
  [status, text] = system (sprintf ("ncdump -p 9,17 -v %s '%s'", variable, path));
  assert (status, 0);
  data = text(strfind (text, "\ndata:"):end);
  list = regexp (data, ["\\s" variable " =([^;]*);"], "tokens"){1}{1};
  values = str2double (strtrim (strsplit (list, ",")));
end
