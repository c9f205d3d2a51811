## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{worker} =} start_worker (@var{folder})
## Undocumented internal function: start an interpreter that works on the question in a folder.  It reads requests from its
## standard input and reports on descriptor 3, so that what it prints appears here.  It is in a session of its own, so
## that Ctrl-C reaches this process alone, and where the system can do it, it is killed when this process ends.
## @end deftypefn

function worker = start_worker (folder)

  code = sprintf ("__gridio_reduce_worker__ (\"cores\", \"%s\")", undo_string_escapes (folder));
  command = ["way=; for word in setsid 'setpriv --pdeathsig KILL'; do " ...
             "$way $word true 2>/dev/null && way=\"$way $word\"; done; exec $way \"$0\" \"$@\" 3>&1 1>&2"];
  [input, output, pid] = popen2 ("/bin/sh", [{"-c", command}, interpreter_command(code)]);
  ## Without this, later workers would keep the pipes open.
  fcntl (input, F_SETFD (), 1);
  fcntl (output, F_SETFD (), 1);
  fcntl (output, F_SETFL (), bitor (fcntl (output, F_GETFL (), 0), O_NONBLOCK ()));
  worker = struct ("pid", pid, "input", input, "output", output, "text", "", "range", [], "bin", 0);

endfunction
