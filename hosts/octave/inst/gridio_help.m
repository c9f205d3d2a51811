## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn  {} {} gridio_help ()
## @deftypefnx {} {} gridio_help (@var{operation})
## @deftypefnx {} {@var{text} =} gridio_help (@dots{})
## Explain an operation of @code{gridio} or @code{gridio_any}, or list all operations.
##
## Without an argument, the names of all operations are listed by family, those of @code{gridio} and then those of
## @code{gridio_any}.  With the name of an operation, its entry of the manual is printed: how it is called, its arguments,
## its results, the errors that it can raise, and an example that can be run as it stands.  Of a name that both functions
## have, both entries are printed.
##
## If an output is asked for, nothing is printed, and the text is returned as a character row.
##
## A name that does not exist is an error with the identifier @code{Ovard:gridio:help:unknownOperation}, whose message
## holds the nearest names, if there are any.  Names of operations are case-sensitive.
##
## @example
## @group
## gridio_help ()
## gridio_help ("defVar")
## text = gridio_help ("getVaraDouble");
## @end group
## @end example
##
## @seealso{gridio, gridio_any, gridio_manual}
## @end deftypefn

function text = gridio_help (operation)

  if (nargin > 0 && ! (ischar (operation) && rows (operation) <= 1))
    fail ("help:nameWasNotChar", ...
          "gridio_help: the name of the operation must be text, such as \"open\"");
  endif

  ## The overview, then one part for each operation, which begins with its name.
  file = fullfile (fileparts (mfilename ("fullpath")), "gridio_operations.txt");
  parts = strsplit (fileread (file), "@@ ");
  if (nargin == 0)
    found = parts{1};
  else
    [names, entries] = strtok (parts(2:end), "\n");
    known = strcmp (names, operation);
    if (! any (known))
      fail ("help:unknownOperation", ...
            "gridio_help: there is no operation \"%s\"; %s", ...
            visible_text (operation), advice (nearest_names (operation, unique (names, "stable"))));
    endif
    ## A name may be in both tables.
    found = strjoin (cellfun (@(entry) entry(2:end), entries(known), "UniformOutput", false), "\n");
  endif

  if (nargout > 0)
    text = found;
  else
    puts (found);
  endif

endfunction

function text = advice (names)

  if (isempty (names))
    text = "gridio_help () lists all";
  else
    text = ["did you mean " strjoin(names, ", ") "?"];
  endif

endfunction

## The same name but for case; else at most five names that hold the word, are held by it, or differ in few characters.
function nearest = nearest_names (operation, names)

  word = lower (operation);
  others = lower (names);
  distances = cellfun (@(other) edit_distance (word, other), others);
  far = max (2, floor (numel (word) / 3));
  is_part = @(a, b) numel (a) > 2 && ! isempty (strfind (b, a));
  related = cellfun (@(other) is_part (word, other) || is_part (other, word), others);
  distances(related) = min (distances(related), far);
  [distances, order] = sort (distances);
  if (distances(1) == 0)
    nearest = names(order(1));
  else
    nearest = names(order(distances <= far));
    nearest = nearest(1:min (5, end));
  endif

endfunction

## The number of characters to insert, delete or replace.
function distance = edit_distance (a, b)

  row = 0:numel (b);
  for i = 1:numel (a)
    replaced = row(1:end-1) + (a(i) != b);
    deleted = row(2:end) + 1;
    ## An insertion takes the best so far to the left: a running minimum once the position is taken off.
    best = [i, min(replaced, deleted)] - (0:numel (b));
    row = cummin (best) + (0:numel (b));
  endfor
  distance = row(end);

endfunction

%!demo
%! ## All operations by family
%! gridio_help ()

%!demo
%! ## One operation, with an example that runs as it stands
%! gridio_help ("defVar")

%!test
%! text = gridio_help ("defVar");
%! assert (ischar (text) && rows (text) == 1);
%! assert (strncmp (text, "defVar (Variables)\n", 19));
%! for heading = {"Arguments", "Results", "Errors", "Notes", "Example", "Prints"}
%!   assert (! isempty (strfind (text, ["\n" heading{1} "\n"])));
%! endfor
%! assert (! isempty (strfind (text, "varid = gridio(\"defVar\", ncid, name, xtype, dimids)")));
%! assert (text(end), "\n");

%!test
%! text = gridio_help ();
%! assert (! isempty (regexp (text, '\nDimensions\n  defDim inqDim inqDimID renameDim\n', "once")));

%!test
%! ## Explains every listed operation.
%! text = gridio_help ();
%! lines = strsplit (text, "\n");
%! names = strsplit (strtrim (strjoin (lines(strncmp (lines, "  ", 2)), " ")));
%! names(cellfun (@isempty, names)) = [];
%! assert (numel (names) > 200);
%! for name = names
%!   assert (! isempty (regexp (gridio_help (name{1}), ['^(gridio_any: )?' name{1} ' \('], "once")));
%! endfor

%!test
%! ## Explains both operations of a name that both functions have.
%! text = gridio_help ("inqDimIDs");
%! assert (strncmp (text, "inqDimIDs (", 11));
%! assert (! isempty (strfind (text, "\n\ngridio_any: inqDimIDs (")));

%!test
%! assert (evalc ("gridio_help (\"close\")"), gridio_help ("close"));
%! assert (evalc ("gridio_help ()"), gridio_help ());

%!function message = message_for (operation)
%!  message = "";
%!  try
%!    gridio_help (operation);
%!  catch err
%!    assert (err.identifier, "Ovard:gridio:help:unknownOperation");
%!    message = err.message;
%!  end_try_catch
%!endfunction

%!test
%! ## Knows a name in another case.
%! assert (message_for ("defvar"), "gridio_help: there is no operation \"defvar\"; did you mean defVar?");
%! assert (message_for ("putVar1Uint64"),
%!         "gridio_help: there is no operation \"putVar1Uint64\"; did you mean putVar1UInt64?");

%!test
%! ## Knows a misspelt name.
%! assert (message_for ("opne"), "gridio_help: there is no operation \"opne\"; did you mean open?");
%! assert (! isempty (strfind (message_for ("getVarDuoble"), "did you mean getVarDouble, ")));
%! assert (numel (strfind (message_for ("getVarD"), ", ")), 4);

%!test
%! ## Knows a part of a name, and a name with something after it.
%! assert (! isempty (strfind (message_for ("chunk"),
%!                             "did you mean defVarChunking, inqVarChunking, setChunkCache, getChunkCache, setVarChunkCache?")));
%! assert (! isempty (strfind (message_for ("defDimension"), "did you mean defDim?")));

%!test
%! ## Guesses nothing where nothing is near.
%! for operation = {"", "help!", "%d@@ \n"}
%!   assert (! isempty (strfind (message_for (operation{1}), "gridio_help () lists all")));
%! endfor

%!test
%! ## Control characters do not reach the terminal.
%! assert (! isempty (strfind (message_for ("op\x1b[2J\xc2\x9bx\n"), '"op\x1B[2J\x9Bx\x0A"')));
%! assert (! isempty (strfind (message_for ("caf\xc3\xa9\0"), "\"caf\xc3\xa9\\0\"")));

%!error <too many inputs> gridio_help ("open", "close")
%!error id=Ovard:gridio:help:nameWasNotChar gridio_help (1)
%!error id=Ovard:gridio:help:nameWasNotChar gridio_help (["ab"; "cd"])
%!error id=Ovard:gridio:help:nameWasNotChar gridio_help ({"open"})
