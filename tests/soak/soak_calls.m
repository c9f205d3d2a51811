% SPDX-License-Identifier: BSD-3-Clause
% soak_calls.m REPETITIONS BYTES: repeats the recorded programs in one session, and fails if the session
% grows by more than BYTES, which the same calls leak in plain C, and the heap's own unrest.
1;

% Less than an element for each call of a full run.
UNREST = 6e6;
WARMING_UP = 5;

function bytes = memory_in_use ()
  kilobytes = regexp (fileread ("/proc/self/status"), 'VmRSS:\s+(\d+)', "tokens"){1}{1};
  bytes = 1024 * str2double (kilobytes);
end

function count = descriptors ()
  count = rows (readdir ("/proc/self/fd"));
end

function ids = groups_from (ncid)
  ids = ncid;
  for group = gridio ("inqGrps", ncid)
    ids = [ids groups_from(group)];
  end
end

function run_program (calls)
  ids = [];
  for k = 1:numel (calls)
    call = calls{k};
    starts = any (strcmp (call{1}, {"create", "open"}));
    if (starts)
      call = [call(1) {"soak.nc"} call(2:end)];
    end
    for n = 2:numel (call)
      if (is_function_handle (call{n}))
        call{n} = call{n} (ids);
      end
    end
    try
      if (starts)
        ids = groups_from (gridio (call{:}));
      elseif (strcmp (call{1}, "defGrp"))
        ids(end+1) = gridio (call{:});
      else
        gridio (call{:});
      end
    catch err
      if (! strncmp (err.identifier, "Ovard:gridio:", 13))
        rethrow (err);
      end
    end
  end
end

function repeat (programs, count)
  for k = 1:count
    cellfun (@run_program, programs);
  end
end

repetitions = str2double (argv (){end-1});
leaked_in_c = str2double (argv (){end});
programs = recorded_programs ();
repeat (programs, WARMING_UP);
memory = memory_in_use ();
open_before = descriptors ();
repeat (programs, repetitions);
grown = memory_in_use () - memory;
left = descriptors () - open_before;
printf ("interpreter: %d calls; plain C leaks %d bytes, the session grew by %d beyond that; %d descriptors left\n",
        repetitions * sum (cellfun (@numel, programs)), leaked_in_c, grown - leaked_in_c, left);
exit (grown - leaked_in_c > UNREST || left != 0);
