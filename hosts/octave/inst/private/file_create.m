## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn  {} {@var{ncid} =} file_create (@var{path}, @var{mode})
## @deftypefnx {} {@var{ncid} =} file_create (@var{path}, @var{mode}, @var{format})
## Undocumented internal function: create a file.  With @var{mode} @qcode{"replace"} it is created beside the file that it
## is to replace; @code{file_close} renames it.
## @end deftypefn

function ncid = file_create (path, mode, format = "netCDF-4")

  flags = struct ("format", {"classic", "64-bit offset", "cdf5", "64-bit data", "netCDF-4", "netCDF-4 classic model"}, ...
                  "value", {0, 512, 32, 32, 4096, 4352});
  at = strcmpi (format, {flags.format});
  if (! any (at))
    fail ("badFormat", "\"%s\" is not a format; the formats are %s", shown_text (format), ...
          strjoin (cellfun (@(name) ["\"" name "\""], {flags.format}, "UniformOutput", false), ", "));
  endif
  isThere = exist (path, "file") || exist (path, "dir");
  target = path;
  if (isThere && strcmp (mode, "new"))
    fail ("exists", ["\"%s\" exists already; open it with \"write\" to change it, or with \"replace\" to write it anew"], ...
          shown_text (path));
  elseif (strcmp (mode, "replace"))
    target = beside (path);
  endif
  NC_NOCLOBBER = 4;
  ncid = gridio ("create", target, flags(at).value + NC_NOCLOBBER);
  gridio ("putAttText", ncid, -1, "Conventions", "CF-1.11");
  end_definitions (ncid);

endfunction

## A name of its own in the same folder; of a link, in that of the file behind it.
function target = beside (path)

  [folder, name, extension] = fileparts (replaced_path (path));
  if (isempty (folder))
    folder = ".";
  endif
  target = [tempname(folder, ["." name extension "."]) ".part"];

endfunction
