## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} catalogue_write (@var{output}, @var{file})
## Undocumented internal function: write the catalogue of a dataset of many files, whole or not at all.
## @end deftypefn

function catalogue_write (output, file)

  many = file.many;
  ncid = file_create (output, "replace");
  temporary = gridio_any ("inqPath", ncid);
  try
    attributes = {"title", "catalogue of many netCDF files, to be opened as one by gridio_dataset", ...
                  "gridio_catalogue", int32(1), "joined_dimension", file.d.dimensions.name{many.dimension}, ...
                  "joined_dimension_is_new", int32(many.isNew), "coordinate", path_of(file.d, many.coordinate, many), ...
                  "bounds", path_of(file.d, many.bounds, many), "described_by", int32(many.first)};
    begin_definitions (ncid);
    for k = 1:2:numel (attributes)
      put_attribute (ncid, -1, attributes{k:k+1});
    endfor
    end_definitions (ncid);
    put_variable (ncid, "path", relative_paths (many.paths, output), "file", "_Type", "string");
    put_variable (ncid, "length", int64 (many.lengths(:)), "file");
    put_variable (ncid, "size", int64 (many.sizes(:)), "file", "units", "byte");
    put_variable (ncid, "changed", many.changed(:), "file", "long_name", "time of the last change, in seconds since 1970");
    put_variable (ncid, "fingerprint", int64 (many.fingerprints(:)), "file", "long_name", ...
                  "number that is the same for files whose variables have the same types, shapes and decoding");
    put_variable (ncid, "units", many.units(:), "file", "_Type", "string");
    put_variable (ncid, "calendar", many.calendars(:), "file", "_Type", "string");
    if (many.coordinate > 0 && ! many.isNew)
      put_variable (ncid, "value", many.values(:), "position", "long_name", "coordinates of all files, in the units of the first");
    endif
  catch failure
    gridio ("close", ncid);
    unlink (temporary);
    rethrow (failure);
  end_try_catch
  file_close (struct ("ncid", ncid, "path", output, "mode", "replace", "part", temporary, "isBroken", false, "many", []));

endfunction

function path = path_of (d, k, many)

  path = " "; # the library has no empty attributes in every format
  if (k > 0 && ! many.isNew)
    path = d.variables.path{k};
  endif

endfunction

function paths = relative_paths (paths, output)

  base = folders_of (fileparts (make_absolute_filename (output)));
  [folders, names, extensions] = cellfun (@fileparts, paths(:), "UniformOutput", false);
  [distinct, ~, which] = unique (folders);
  for k = 1:numel (distinct)
    if (isempty (strfind (distinct{k}, "://")))
      own = folders_of (make_absolute_filename ([distinct{k} "."](1:max (end - 1, isempty (distinct{k})))));
      least = min (numel (own), numel (base));
      same = find ([! strcmp(own(1:least), base(1:least)), true], 1) - 1;
      distinct{k} = strjoin ([repmat({".."}, 1, numel (base) - same), own(same+1:end)], "/");
    endif
  endfor
  paths = strcat (names, extensions);
  isBelow = ! cellfun (@isempty, distinct(which));
  paths(isBelow) = strcat (distinct(which(isBelow)), {"/"}, paths(isBelow));

endfunction

function parts = folders_of (folder)

  found = canonicalize_file_name (folder);
  if (ischar (found) && ! isempty (found))
    folder = found;
  endif
  parts = ostrsplit (strrep (folder, '\', "/"), "/", true);

endfunction
