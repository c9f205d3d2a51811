## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} warn_once (@var{file}, @var{number})
## Undocumented internal function: warn of the attributes of a variable that decoding ignores, the first time that values of
## the variable are read.
## @end deftypefn

function warn_once (file, number)

  persistent known = [];
  most = 2 ^ 20; # variables of a file
  key = file.serial * most + number;
  if (any (known == key) || bitand (file.flags, 63) == 0)
    return;
  endif
  known = [known(max (1, end - 1000):end), key];
  d = file.d;
  decoding = gridio_native ("decoding", d.groups.ncid(d.variables.group(number)), d.variables.varid(number), bitand (file.flags, 63));
  for k = 1:numel (decoding.warnings)
    warning (error_identifier ("attributeIgnored"), "%s\n", visible_text (decoding.warnings{k}));
  endfor

endfunction
