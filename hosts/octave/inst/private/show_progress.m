## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn  {} {@var{progress} =} show_progress (@var{total})
## @deftypefnx {} {@var{progress} =} show_progress (@var{progress}, @var{done})
## @deftypefnx {} {} show_progress (@var{progress})
## Undocumented internal function: begin, continue and end a line on the terminal that says how many files are done, how
## fast, and how long the rest will take.  Nothing appears where stderr is no terminal, or in the first seconds.
## @end deftypefn

function progress = show_progress (progress, done)

  if (! isstruct (progress))
    progress = struct ("total", progress, "since", tic (), "next", 2, "shown", 0, "isShown", is_on_terminal ());
  elseif (nargin == 1)
    if (progress.shown > 0)
      fprintf (stderr (), "\r%s\r", blanks (progress.shown));
    endif
  elseif (progress.isShown && (elapsed = toc (progress.since)) >= progress.next)
    line = sprintf ("gridio_reduce: %d of %d files", done, progress.total);
    if (done > 0)
      rate = done / elapsed;
      line = sprintf ("%s, %.3g a second, %s left", line, rate, time_words ((progress.total - done) / rate));
    endif
    fprintf (stderr (), "\r%s%s", line, blanks (max (progress.shown - numel (line), 0)));
    fflush (stderr ());
    progress.shown = numel (line);
    progress.next = elapsed + 0.5;
  endif

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
