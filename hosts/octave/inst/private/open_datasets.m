## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} open_datasets ("add", @var{guarded})
## @deftypefnx {} {} open_datasets ("sweep")
## @deftypefnx {} {} open_datasets ("close", @var{isExiting})
## Undocumented internal function: remember which datasets are open, and close them at the end of the session, before the
## interpreter takes its functions down: a destructor that runs later may call none.
## @end deftypefn

function open_datasets (what, argument)

  persistent open = {};
  persistent isRegistered = false;
  switch (what)
    case "add"
      if (! isRegistered)
        atexit ("__gridio_close_datasets__");
        nargin ("__gridio_close_datasets__"); # reads it, so that no warning of its text takes the place of the last one
        isRegistered = true;
      endif
      open{end+1} = argument;
    case "sweep"
      open = open(cellfun (@(one) one.isOpen, open));
    case "close"
      cellfun (@(one) close_guarded (one, argument), open);
      open = {};
      isRegistered = false;
  endswitch

endfunction
