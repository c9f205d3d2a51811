## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn  {} {@var{progress} =} files_progress ()
## @deftypefnx {} {@var{progress} =} files_progress (@var{progress}, @var{done}, @var{count})
## @deftypefnx {} {} files_progress (@var{progress})
## Undocumented internal function: how many files are done, the rate, and the time left, on a terminal only, and only of
## work that takes more than two seconds.  With one argument the line goes.
## @end deftypefn

function progress = files_progress (progress, done, count)

  if (nargin == 0)
    progress = struct ("start", tic (), "isShown", false, "isAsked", false);
  elseif (nargin == 1)
    if (progress.isShown)
      fputs (stderr (), "\r\033[K");
    endif
  elseif (toc (progress.start) > 2)
    if (! progress.isAsked)
      progress.isAsked = true;
      progress.isShown = isunix () && system ("test -t 2") == 0;
    endif
    if (progress.isShown)
      rate = done / toc (progress.start);
      fprintf (stderr (), "\r\033[K%s of %s files, %s a second, %d s left", grouped (done), grouped (count), ...
               grouped (round (rate)), round ((count - done) / rate));
    endif
  endif

endfunction
