## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn  {} {} gridio_manual ()
## @deftypefnx {} {@var{path} =} gridio_manual ()
## Open the manual of gridio, which is about netCDF files in Octave, in a browser.
##
## Where there is no display or no browser, the place of the manual is printed instead.  @code{doc gridio} shows the same
## manual in the terminal, if the package is installed.
##
## If an output is asked for, nothing is opened or printed, and the path of the manual's first page is returned, or an
## empty text if there is no manual.  The installed package has one.  In gridio's source tree @kbd{./gridio manual} makes
## it.
##
## @example
## @group
## gridio_manual ()
## web (["file://" gridio_manual()])
## @end group
## @end example
##
## @seealso{gridio, gridio_help}
## @end deftypefn

function path = gridio_manual ()

  page = own_path (fullfile ("doc", "html", "index.html"), fullfile ("dist", "manual", "html", "index.html"));
  if (nargout > 0)
    path = page;
  elseif (isempty (page))
    puts ("The manual has not been made yet: \"./gridio manual\", in the source tree of gridio, makes it.\n");
  else
    printf ("The manual: %s\n", page);
    if (has_browser ())
      web (address_of (page));
    endif
  endif

endfunction

## On other systems than Windows and macOS, web does not say whether anything was opened.
function yes = has_browser ()

  yes = ispc () || ismac () ...
        || (! (isempty (getenv ("DISPLAY")) && isempty (getenv ("WAYLAND_DISPLAY")))
            && ! isempty (file_in_path (getenv ("PATH"), "xdg-open")));

endfunction

## A path as an address, in characters that no shell treats specially.
function address = address_of (path)

  bytes = strrep (path, "\\", "/");
  plain = isalnum (bytes) & bytes < 128 | any (bytes == "/-_.~:"', 1);
  pieces = num2cell (bytes);
  pieces(! plain) = arrayfun (@(byte) sprintf ("%%%02X", byte), bytes(! plain), "UniformOutput", false);
  address = ["file://" merge(bytes(1) == "/", "", "/") pieces{:}];

endfunction

%!test
%! path = gridio_manual ();
%! assert (ischar (path));
%! if (! isempty (path))
%!   assert (strncmp (fileread (path), "<!DOCTYPE html", 14));
%! endif

%!test
%! ## Prints the place, or how to get a manual.
%! names = {"DISPLAY", "WAYLAND_DISPLAY"};
%! values = cellfun (@getenv, names, "UniformOutput", false);
%! unwind_protect
%!   cellfun (@(name) setenv (name, ""), names);
%!   shown = evalc ("gridio_manual ()");
%! unwind_protect_cleanup
%!   cellfun (@setenv, names, values);
%! end_unwind_protect
%! path = gridio_manual ();
%! if (isempty (path))
%!   assert (! isempty (strfind (shown, "./gridio manual")));
%! else
%!   assert (shown, sprintf ("The manual: %s\n", path));
%! endif

%!error <too many inputs> gridio_manual (1)
