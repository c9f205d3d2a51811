% SPDX-License-Identifier: BSD-3-Clause
% reduce_files.m PLACE WHAT [OPTION VALUE]...: reduces the files f*.nc here, at a place, and prints the rank and a hash of the
% result, all bits of which count. WHAT is "good", or how the file that is named by the variable BAD fails.
1;

function p = sums (files)
  p = struct ("sum", 0, "count", 0, "files", {files}, "zero", -0);
  for k = 1:numel (files)
    fails (files{k});
    x = gridio_read (files{k}, "v");
    there = ! isnan (x);
    x(! there) = 0;
    p.sum += x;
    p.count += there;
  end
  p.sum /= 3; % so that the order of the additions shows
end

function fails (file)
  if (strcmp (getenv ("WHAT"), "slow"))
    pause (0.35);
  end
  if (! strcmp (file, getenv ("BAD")) || exist ("mended", "file"))
    return;
  end
  switch (getenv ("WHAT"))
    case "raises"
      error ("this file is bad");
    case "dies"
      kill (getpid (), 9);
    case "waits"
      fclose (fopen ("waiting", "w"));
      pause (30);
  end
end

function p = add (a, b)
  p = struct ("sum", a.sum + b.sum, "count", a.count + b.count, "files", {[a.files b.files]}, "zero", a.zero);
end

arguments = argv ();
setenv ("WHAT", arguments{2});
for k = 4:2:numel (arguments)
  if (! isnan (str2double (arguments{k})))
    arguments{k} = str2double (arguments{k});
  end
end
seconds = [];
if (strcmp (arguments{2}, "other") && str2double (getenv ("OMPI_COMM_WORLD_RANK")) == 1)
  unlink ("f07.nc");
elseif (strcmp (arguments{2}, "other"))
  pause (0.5);
end
files = glob ("f*.nc");
if (strcmp (arguments{2}, "leaves"))
  r = gridio_reduce (files, @sums, @add, "on", arguments{1});
  if (strcmp (getenv ("OMPI_COMM_WORLD_RANK"), getenv ("BAD")))
    error ("this rank has enough");
  end
end
[r, info] = gridio_reduce (files, @sums, @add, "on", arguments{[1, 3:end]});
bytes = [typecast(r.sum(:)', "uint8"), typecast(r.count(:)', "uint8"), typecast(r.zero, "uint8"), uint8(strjoin (r.files, " "))];
libraries = unique (regexp (fileread ("/proc/self/maps"), '\S*libhdf5\w*\.so\S*', "match"));
line = sprintf ("rank %d of %d: %s, %d files, %d bins, libraries %d\n", info.rank, info.ranks, hash ("md5", char (bytes)), ...
        numel (r.files), info.bins, sum (cellfun (@isempty, regexp (libraries, 'hdf5(_\w+)?_hl'))));
puts (line); # in one piece, as other ranks print too
if (info.rank == 0)
  [~] = unlink ("mean.nc");
  gridio_write ("mean.nc", "v", 3 * r.sum ./ r.count, {"x", "y"});
end
