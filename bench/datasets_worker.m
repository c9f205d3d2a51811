## SPDX-License-Identifier: BSD-3-Clause
## The work of bench/native_datasets.cpp, by datasets in the interpreter. See bench/worker.h for what it is asked.
1;

function [seconds, total] = maxima (~, path, maps)
  v = gridio_dataset (path).v;
  total = 0;
  start = tic;
  for k = 1:maps
    x = v(:,:,k);
    total += max (x(:));
  endfor
  seconds = toc (start);
endfunction

## Of a field that is compressed, from opening to the mean in memory.
function [seconds, total] = time_mean (~, path, maps)
  start = tic;
  x = gridio_dataset (path).v.mean ("time");
  seconds = toc (start);
  total = mean (x(:));
endfunction

function [seconds, total] = show_many (~, path, count)
  start = tic;
  text = evalc ("disp (gridio_dataset (path))");
  seconds = toc (start);
  total = ! isempty (strfind (text, "temperature"));
endfunction

works = struct ("maxima", @maxima, "time_mean", @time_mean, "show_many", @show_many);
serve (works);
