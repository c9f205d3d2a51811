## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{value}, @var{is_there}] =} read_whole (@var{path}, @var{key})
## Undocumented internal function: the value that @code{write_whole} wrote to a file.  What has another key, or is not whole,
## is not there.
## @end deftypefn

function [value, isThere] = read_whole (path, key = "")

  value = [];
  [file, ~] = fopen (path, "r");
  isThere = file >= 0;
  if (isThere)
    unwind_protect
      line = fgetl (file);
      start = sprintf ("gridio value 1 %s ", key);
      isThere = ischar (line) && strncmp (line, start, numel (start));
      if (isThere)
        bytes = fread (file, Inf, "uint8=>uint8")';
        isThere = numel (bytes) == str2double (line(numel (start)+1:end));
      endif
    unwind_protect_cleanup
      fclose (file);
    end_unwind_protect
  endif
  if (isThere)
    value = unpack_value (bytes);
  endif

endfunction
