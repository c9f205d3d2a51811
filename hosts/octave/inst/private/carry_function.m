## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{carried} =} carry_function (@var{f}, @var{name}, @var{scope})
## Undocumented internal function: a function as plain values, of which @code{carried_function} makes the same function in
## another process.  @var{name} is what the function is called in errors.  @var{scope} has the @code{files} in which it may
## have been written, and the functions of them (@code{own}) that nobody else sees.
## @end deftypefn

function carried = carry_function (f, name, scope = struct ("files", {{}}, "own", struct ()))

  about = functions (f);
  carried = struct ("kind", about.type, "text", "", "variables", struct (), "names", {{}}, "sources", {{}}, "saved", []);
  switch (about.type)
    case "anonymous"
      carried.text = strrep (func2str (f), "{}(0x0)\n", "{}"); # what it prints of {} is no program
      check_text (carried.text, name, scope);
      if (isfield (about, "workspace") && ! isempty (about.workspace))
        carried.variables = about.workspace{1};
      endif
      carried = add_functions (carried, name, scope);
    case "simple"
      carried.text = about.function;
      if (isfield (scope.own, about.function))
        carried = carry_function (scope.own.(about.function), name, scope);
      elseif (exist (about.function) == 103)
        [carried.names, carried.sources] = sources_of ({about.function}, scope.files);
      elseif (! exist (about.function))
        fail ("cannotTravel", "%s is the function '%s', which does not exist", name, about.function);
      endif
    case {"scopedfunction", "subfunction"}
      carried.text = about.file;
      carried.saved = saved_function (f);
    otherwise
      fail ("cannotTravel", "%s is a %s function ('%s'), which no other process can take; %s", name, about.type, ...
            func2str (f), "make it a function of a file, or an anonymous one");
  endswitch

endfunction

## The interpreter's text of a function lacks some of what was written.
function check_text (text, name, scope)

  for k = 1:numel (scope.files)
    for literal = regexp (fileread (scope.files{k}), '(?<![\w.])0[xXbB]([0-9a-fA-F]+)', "tokens")
      if (! isempty (regexp (text, ['(?<![\w.])' literal{1}{1} '(?![\w.])'], "once")))
        fail ("cannotTravel", ["%s: the interpreter prints hexadecimal and binary numbers like decimal ones, and %s has one " ...
                               "with the digits %s; write it as a decimal number: %s"], name, scope.files{k}, ...
              literal{1}{1}, visible_text (text));
      endif
    endfor
  endfor
  try
    isSame = strcmp (func2str (str2func (text)), strrep (text, "{}", "{}(0x0)\n")) || strcmp (func2str (str2func (text)), text);
  catch
    isSame = false;
  end_try_catch
  if (! isSame)
    fail ("cannotTravel", ["%s: the interpreter does not print this function so that it can be read again; write texts with " ...
                           "\" rather than ', or make it a function of a file: %s"], name, visible_text (text));
  endif

endfunction

## Functions of the caller's own file become variables of the anonymous function, those of scripts are defined anew.
function carried = add_functions (carried, name, scope)

  used = setdiff (function_words (carried.text), fieldnames (carried.variables));
  isOwn = isfield (scope.own, used);
  for word = used(isOwn)(:)'
    carried.variables.(word{1}) = scope.own.(word{1});
  endfor
  used = used(! isOwn);
  kinds = cellfun (@exist, used);
  if (any (kinds == 0))
    fail ("cannotTravel", "%s uses '%s', which another process would not find: %s", name, used{find (kinds == 0, 1)}, ...
          visible_text (carried.text));
  endif
  [carried.names, carried.sources] = sources_of (used(kinds == 103), scope.files);
  for variable = fieldnames (carried.variables)'
    words = sprintf ("the variable '%s' of %s", variable{1}, name);
    carried.variables.(variable{1}) = pack_value (carried.variables.(variable{1}), words);
  endfor

endfunction

## With the functions of scripts that those use in their turn.
function [names, sources] = sources_of (names, files)

  sources = {};
  while (numel (sources) < numel (names))
    sources{end+1} = function_source (names{numel (sources) + 1}, files);
    more = setdiff (function_words (sources{end}), names);
    names = [names(:)', more(cellfun (@exist, more) == 103)(:)'];
  endwhile

endfunction

function bytes = saved_function (f)

  path = tempname ();
  unwind_protect
    save ("-binary", path, "f");
    file = fopen (path, "r");
    bytes = fread (file, Inf, "uint8=>uint8")';
    fclose (file);
  unwind_protect_cleanup
    unlink (path);
  end_unwind_protect

endfunction
