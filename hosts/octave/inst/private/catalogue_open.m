## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{file} =} catalogue_open (@var{path}, @var{option}, @var{value}, @dots{})
## Undocumented internal function: the files of a catalogue as one, as @code{many_open} returns them.  Files that have changed
## are scanned again.
## @end deftypefn

function file = catalogue_open (path, varargin)

  [request, options] = many_options (varargin);
  [paths, scans, joining] = read_catalogue (path);
  if (! isempty (request.along) || ! isempty (request.newDimension))
    fail ("badOption", "a catalogue says how its files are joined; \"along\" and \"new dimension\" are options of gridio_catalogue");
  endif
  try
    file = file_open (paths{joining.first}, "read", options{:});
  catch failure
    if (! request.isSkipping || strncmp (failure.identifier, "Ovard:gridio:dataset:", 21))
      rethrow (failure);
    endif
    file = many_open (paths, path, varargin{:}, joining.option{:});
    return;
  end_try_catch
  try
    joining = joining_of (file, paths, setfield (setfield (request, joining.field, joining.name), "isSkipping", false), ...
                          joining.first);
    scans = renewed (path, paths, scans, joining, file);
    file = many_joined (file, paths, scans, joining, request, read_first (paths, file));
  catch failure
    file_close (file);
    rethrow (failure);
  end_try_catch
  file.path = path;

endfunction

function first = read_first (paths, file)

  first = find (strcmp (paths, file.path), 1);

endfunction

function [paths, scans, joining] = read_catalogue (path)

  try
    ncid = gridio ("open", path, "nowrite");
    unwind_protect
      text = @(name) strtrim (gridio_any ("getAtt", ncid, -1, name));
      if (gridio_any ("getAtt", ncid, -1, "gridio_catalogue") != 1)
        error ("it is of a later version of gridio");
      endif
      values = @(name) gridio_any ("getVar", ncid, gridio ("inqVarID", ncid, name));
      joining = struct ("name", text ("joined_dimension"), "field", "along", "option", {{"along", text("joined_dimension")}}, ...
                        "first", double (gridio_any ("getAtt", ncid, -1, "described_by")));
      if (gridio_any ("getAtt", ncid, -1, "joined_dimension_is_new"))
        joining.field = "newDimension";
        joining.option{1} = "new dimension";
      endif
      paths = values ("path")(:);
      count = numel (paths);
      scans = struct ("lengths", double (values ("length")(:)), "sizes", double (values ("size")(:)), ...
                      "changed", values ("changed")(:), "fingerprints", double (values ("fingerprint")(:)), ...
                      "units", {values("units")(:)}, "calendars", {values("calendar")(:)}, ...
                      "problems", {repmat({""}, count, 1)});
      lengths = scans.lengths;
      all = zeros (0, 1);
      if (isempty (text ("coordinate")))
        lengths(:) = 0;
      else
        all = values ("value")(:);
      endif
      scans.values = mat2cell (all, lengths, 1);
      if (count == 0 || ! any (joining.first == 1:count) || any (scans.lengths < 0))
        error ("its numbers contradict each other");
      endif
    unwind_protect_cleanup
      gridio ("close", ncid);
    end_unwind_protect
  catch failure
    if (! exist (path, "file"))
      fail ("badCatalogue", "there is no catalogue \"%s\"; gridio_catalogue (FILES, \"%s\") makes it", shown_text (path), ...
            shown_text (path));
    endif
    fail ("badCatalogue", "the catalogue \"%s\" is damaged (%s); gridio_catalogue (FILES, \"%s\") makes it anew", ...
          shown_text (path), strtok (failure.message, "\n"), shown_text (path));
  end_try_catch
  folder = fileparts (path);
  isBelow = cellfun (@isempty, strfind (paths, "://"));
  if (! isempty (folder))
    paths(isBelow) = strcat (folder, {"/"}, paths(isBelow));
  endif

endfunction

## What was scanned, again for files that are no longer as they were.
function scans = renewed (path, paths, scans, joining, file)

  [sizes, changed] = gridio_native ("fileStates", paths);
  isStale = ! (sizes == scans.sizes & abs (changed - scans.changed) < 1e-6);
  isStale(isnan (sizes) & ! cellfun (@isempty, strfind (paths, "://"))) = false;
  if (! any (isStale))
    return;
  endif
  if (isStale(read_first (paths, file)))
    isStale(:) = true; # the units of all may be others
  endif
  again = scan_files (paths(isStale), joining, file);
  for name = fieldnames (again)'
    scans.(name{1})(isStale) = again.(name{1});
  endfor
  isThere = cellfun (@isempty, again.problems);
  if (any (isThere))
    stale = paths(isStale)(isThere);
    warning (error_identifier ("staleCatalogue"), ...
             "%s since the catalogue \"%s\" was made, and %s read again; gridio_catalogue (FILES, \"%s\") makes it anew", ...
             merge (numel (stale) == 1, sprintf ("\"%s\" has changed", shown_text (stale{1})), ...
                    sprintf ("\"%s\" has changed, one of up to %s files,", shown_text (stale{1}), grouped (numel (stale)))), ...
             shown_text (path), merge (numel (stale) == 1, "was", "these were"), shown_text (path));
  endif

endfunction
