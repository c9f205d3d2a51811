## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{words} =} range_of_files (@var{files})
## Undocumented internal function: some files of a list, for a message.
## @end deftypefn

function words = range_of_files (files)

  words = visible_text (files{1});
  if (numel (files) > 1)
    words = sprintf ("%s to %s (%d files)", words, visible_text (files{end}), numel (files));
  endif

endfunction
