## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{scans} =} scan_files (@var{paths}, @var{joining}, @var{file})
## Undocumented internal function: what must be known of each of many files to join them, as gridio_native scans it, the
## coordinate's values in a cell for each file.
## @end deftypefn

function scans = scan_files (paths, joining, file)

  request = struct ("dimension", "", "coordinate", "", "bounds", "", "units", "", "calendar", "", ...
                    "longUnits", file.months);
  d = file.d;
  if (! joining.isNew)
    group = d.dimensions.group(joining.dimension);
    request.dimension = [d.groups.name{group} "/" joining.name](1+(group == 1):end);
  endif
  if (joining.coordinate > 0)
    request.coordinate = ["/" d.variables.path{joining.coordinate}];
    [request.units, calendar] = time_of (file, joining.coordinate);
    request.calendar = strtok (calendar, "|");
  endif
  if (joining.bounds > 0)
    request.bounds = ["/" d.variables.path{joining.bounds}];
  endif
  scans = scanned_in_batches (paths(:), request);
  counts = scans.lengths(:)';
  counts(isnan (counts) | joining.coordinate == 0) = 0;
  scans.values = mat2cell (scans.values(:), counts, 1);

endfunction

## In several calls, so that the user sees how far it is.
function scans = scanned_in_batches (paths, request)

  batch = 250;
  count = numel (paths);
  parts = cell (1, max (1, ceil (count / batch)));
  progress = files_progress ();
  for k = 1:numel (parts)
    last = min (count, k * batch);
    parts{k} = gridio_native ("scan", paths((k-1)*batch+1:last), request);
    progress = files_progress (progress, last, count);
  endfor
  files_progress (progress);
  parts = [parts{:}];
  for name = fieldnames (parts)'
    scans.(name{1}) = vertcat (parts.(name{1}));
  endfor

endfunction
