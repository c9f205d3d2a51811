## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} raise (@var{identifier}, @var{message})
## Undocumented internal function: raise an error that names, as the places that it was called from, those outside of the
## package only: the lines of the user's scripts, and none at the prompt.
## @end deftypefn

function raise (identifier, message)

  places = dbstack ("-completenames");
  here = fileparts (mfilename ("fullpath"));
  isOwn = cellfun (@(file) any (strcmp (fileparts (file), {here, fileparts(here)})), {places.file});
  if (all (isOwn))
    error (identifier, "%s\n", message);
  endif
  error (struct ("message", message, "identifier", identifier, "stack", places(! isOwn)));

endfunction
