## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn  {} {} show_progress ("begin", @var{total})
## @deftypefnx {} {} show_progress ("go on", @var{done})
## @deftypefnx {} {} show_progress ("end")
## Undocumented internal function: begin, continue and end a line on the terminal that says how many files are done, how
## fast, and how long the rest will take.  Nothing appears where stderr is no terminal, or in the first seconds.
## @end deftypefn

function show_progress (what, number)

  persistent progress;
  switch (what)
    case "begin"
      progress = struct ("total", number, "since", tic (), "next", 2, "shown", 0, "isShown", is_on_terminal ());
    case "end"
      if (! isempty (progress) && progress.shown > 0)
        fprintf (stderr (), "\r%s\r", blanks (progress.shown));
        fflush (stderr ());
        progress.shown = 0;
      endif
    otherwise
      if (progress.isShown && toc (progress.since) >= progress.next)
        progress = with_line (progress, number);
      endif
  endswitch

endfunction

function progress = with_line (progress, done)

  elapsed = toc (progress.since);
  line = sprintf ("gridio_reduce: %d of %d files", done, progress.total);
  if (done > 0)
    rate = done / elapsed;
    line = sprintf ("%s, %.3g a second, %s left", line, rate, time_words ((progress.total - done) / rate));
  endif
  fprintf (stderr (), "\r%s%s", line, blanks (max (progress.shown - numel (line), 0)));
  fflush (stderr ());
  progress.shown = numel (line);
  progress.next = elapsed + 0.5;

endfunction

function words = time_words (seconds)

  if (seconds < 120)
    words = sprintf ("%.0f s", seconds);
  elseif (seconds < 7200)
    words = sprintf ("%.0f min", seconds / 60);
  else
    words = sprintf ("%.1f h", seconds / 3600);
  endif

endfunction

## The interpreter has no function for that.
function yes = is_on_terminal ()

  yes = isunix () && system ("test -t 2") == 0;

endfunction
