## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{paths}, @var{label}] =} many_paths (@var{file})
## Undocumented internal function: the files that a pattern or a cell of paths names, and what to call them; no files for a
## text that names one file.
## @end deftypefn

function [paths, label] = many_paths (file)

  paths = {};
  label = "";
  if (iscell (file))
    if (isempty (file) || ! all (cellfun (@(one) ischar (one) && rows (one) == 1, file(:))))
      fail ("notAFile", "a cell of files must have the path of at least one, each a text");
    endif
    paths = cellfun (@expanded, file(:), "UniformOutput", false);
    paths = vertcat (paths{:});
    label = file{1};
    if (numel (file) > 1)
      label = sprintf ("%s ... %s", file{1}, file{end});
    endif
  elseif (is_pattern (file))
    paths = expanded (file);
    label = file;
  endif

endfunction

function paths = expanded (file)

  paths = {file};
  if (is_pattern (file))
    paths = glob (file);
    paths(! cellfun ("isempty", regexp (paths, '\.catalogue\.nc$', "once"))) = [];
    if (isempty (paths))
      fail ("notAFile", "no file has a name like \"%s\"; the present folder is \"%s\"", shown_text (file), pwd ());
    endif
  endif

endfunction

## A file may have such a name, and an address such a character.
function yes = is_pattern (file)

  yes = ischar (file) && rows (file) == 1 && any (ismember (file, "*?[")) && isempty (strfind (file, "://")) ...
        && ! exist (file, "file");

endfunction
