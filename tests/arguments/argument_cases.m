% SPDX-License-Identifier: BSD-3-Clause
% Runs the cases of argument_rules.py, read from its tables, in the interpreter, all in one session, and
% compares each outcome with the model's: argument_cases.m FOLDER. A message must contain its arguments in order.

1;

function renew ()
  global scratch
  try_close (scratch.ncid);
  [~, ~] = unlink (scratch.name); % there is none at first, or after "abort"
  gridio ("setDefaultFormat", 1);
  gridio ("setChunkCache", 4194304, 1009, single (0.75));
  % A new name each time: some definitions leave a file that the library cannot close.
  scratch.name = sprintf ("scratch%d", ++scratch.count);
  ncid = gridio ("create", scratch.name, "netcdf4");
  gridio ("defDim", ncid, "x", 3);
  gridio ("defDim", ncid, "y", 2);
  gridio ("defVar", ncid, "d", 6, [0 1]);
  gridio ("defVar", ncid, "c", 2, [0 1]);
  gridio ("defVarFill", ncid, 0, false, 7); % a value that every type can hold
  gridio ("putAttDouble", ncid, 0, "num", 6, [1 2]);
  gridio ("putAttText", ncid, 0, "txt", "abc");
  scratch.group = gridio ("defGrp", ncid, "g");
  scratch.ncid = ncid;
  scratch.has_types = false;
  build_values ();
end

% For the operations on values of any type; those that were added before stay.
function add_types ()
  global scratch
  if (scratch.has_types)
    return;
  end
  scratch.has_types = true;
  ncid = scratch.ncid;
  gridio_any ("defEnum", ncid, "byte", "sky");
  gridio_any ("insertEnum", ncid, "sky", "clear", 0);
  gridio_any ("insertEnum", ncid, "sky", "cloudy", 1);
  gridio_any ("defOpaque", ncid, 3, "blob");
  gridio_any ("defVlen", ncid, "words", "string");
  for name = {"pair", "loose"}
    gridio_any ("defCompound", ncid, 8, name{1});
    gridio_any ("insertCompound", ncid, name{1}, "a", 0, "int");
  end
  gridio_any ("insertArrayCompound", ncid, "pair", "b", 4, "short", 2);
end

function try_close (ncid)
  try
    gridio ("close", ncid);
  catch
  end
end

% The values of the table; those that name the scratch file are made anew when its identifiers change.
function build_values ()
  global scratch values tokens
  persistent dynamic = [] known = []
  if (isempty (values))
    dynamic = find (cellfun (@(token) any (token == "@"), tokens));
    values = cellfun (@built, tokens, "UniformOutput", false);
  elseif (! isequal (known, [scratch.ncid, scratch.group]))
    values(dynamic) = cellfun (@built, tokens(dynamic), "UniformOutput", false);
  end
  known = [scratch.ncid, scratch.group];
end

function value = built (token)
  global scratch
  parts = strsplit (token, " ");
  dims = sscanf (strrep (parts{2}, "x", " "), "%d")';
  elements = parts{3};
  switch (elements)
    case "@file"
      value = "plain";
      return;
    case "@new"
      value = "made";
      return;
    case {"@ncid", "@group"}
      elements = sprintf ("%d", scratch.(elements(2:end)));
  end
  switch (parts{1})
    case {"double", "single", "sparse", "range", "complex"}
      numbers = str2double (strsplit (strrep (elements, "*", ""), ","));
    case {"int64", "uint64"}
      numbers = exact_integers (elements, parts{1});
    otherwise
      numbers = sscanf (strrep (strrep (elements, "*", ""), ",", " "), "%f");
  end
  if (any (strcmp (parts{1}, {"struct", "function", "object", "cell", "pair"})))
    value = compound (parts{1}, dims);
    return;
  end
  if (numel (numbers) == 1)
    numbers = repmat (numbers, dims);
  elseif (prod (dims) == 0)
    numbers = zeros (dims);
  end
  value = cast_to (parts{1}, reshape (numbers, dims));
end

function value = exact_integers (elements, name)
  value = zeros (1, 0, name);
  for digits = strsplit (elements, ",")
    if (! isempty (digits{1}))
      value(end+1) = eval ([name "(" digits{1} ")"]);
    end
  end
end

function value = cast_to (name, numbers)
  switch (name)
    case "sparse"
      value = sparse (numbers);
    case "range"
      value = numbers(1):numbers(end);
    case "complex"
      value = complex (numbers, 7.5);
    case {"char", "logical"}
      value = feval (name, numbers);
    otherwise
      value = cast (numbers, name);
  end
end

function value = compound (name, dims)
  switch (name)
    case "struct"
      value = repmat (struct ("a", 1), dims);
    case "pair"
      value = struct ("a", 1, "b", [2; 3]);
    case "function"
      value = @sin;
    case "object"
      value = containers.Map ();
    case "cell"
      value = repmat ({1}, dims);
  end
end

% An outcome of the model, parsed once for all cases that share it.
function outcome = parsed_outcome (line)
  words = strsplit (line, " ");
  outcome = struct ("line", line, "kind", words{1}, "name", "", "identifiers", {{}}, "arguments", {{}});
  if (strcmp (outcome.kind, "raises"))
    outcome.name = words{2};
    outcome.identifiers = strcat ("Ovard:gridio:", {"netcdf:", "validate:", "any:"}, words{2});
    plain = cellfun (@(word) strrep (percent_decoded (word), "\0", "\\0"), words(3:end), "UniformOutput", false);
    outcome.arguments = plain;
  end
end

function good = as_expected (operation, expected, err)
  returned = isempty (err);
  switch (expected.kind)
    case "success"
      good = returned;
    case "passes"
      good = returned || is_refused (operation, err);
    case "memory"
      good = returned || is_refused (operation, err) || ! isempty (strfind (err.message, "out of memory"));
    otherwise
      good = ! returned && any (strcmp (err.identifier, expected.identifiers)) ...
             && has_arguments (expected.name, expected.arguments, err.message);
  end
end

function refused = is_refused (operation, err)
  refused = any (strcmp (err.identifier, {"Ovard:gridio:netcdf:libraryFailure", "Ovard:gridio:netcdf:librarydapFailure"})) ...
            && strncmp (err.message, [operation ": "], numel (operation) + 2);
end

% The message names the word of the script's, not in capitals as the error's argument is; and the lengths that it names
% are the one that is needed, unless it is 0, and the one that the script gave.
function good = has_arguments (name, words, message)
  switch (name)
    case {"unrecognizedCharParameter", "unrecognizedFileMode"}
      small = message >= "a" & message <= "z"; % "toupper" warns about bytes that are not UTF-8
      message(small) -= "a" - "A";
      good = has_in_order (words, message);
    case "badIndexArgumentLength"
      good = has_each (words(1:2), message) && (strcmp (words{3}, "0") || has_in_order (words(3), message));
    case {"unknownLabel", "valueDoesNotFit", "unrecognizedWord"}
      good = has_each (words, message);
    otherwise
      good = has_in_order (words, message);
  end
end

function good = has_each (words, message)
  good = all (cellfun (@(word) isempty (word) || ! isempty (strfind (message, word)), words));
end

function good = has_in_order (words, message)
  good = true;
  for k = 1:numel (words)
    if (isempty (words{k}))
      continue;
    end
    at = strfind (message, words{k});
    if (isempty (at))
      good = false;
      return;
    end
    message = message(at(1)+numel (words{k}):end);
  end
end

function plain = percent_decoded (text)
  [codes, rest] = regexp (text, "%([0-9A-F]{2})", "tokens", "split");
  plain = rest{1};
  for k = 1:numel (codes)
    plain = [plain, char(hex2dec (codes{k}{1})), rest{k+1}];
  end
end

function run_cases (cases, operations, outcomes)
  global values
  passed = failed = 0;
  opening = {"open", "create", "pOpen", "pCreate"};
  are_any = strncmp (operations, "any.", 4);
  operations = regexprep (operations, '^any\.', "");
  only_look = strncmp (operations, "inq", 3) | strncmp (operations, "get", 3) | strncmp (operations, "par", 3);
  only_write = strncmp (operations, "putVar", 6) & ! are_any;
  written = 0; % the operation that wrote values into the file since it was created
  for k = 1:rows (cases)
    if (written && written != cases(k,1))
      renew ();
      written = 0;
    end
    operation = operations{cases(k,1)};
    is_any = are_any(cases(k,1));
    if (is_any)
      add_types ();
    end
    expected = outcomes{cases(k,2)};
    numbers = cases(k,3:end);
    arguments = values(numbers(numbers > 0));
    err = result = [];
    try
      if (is_any)
        gridio_any (operation, arguments{:});
      elseif (operation(1) == "p" && any (strcmp (operation, {"pOpen", "pCreate"})))
        [~, result] = gridio (operation, arguments{:});
      elseif (any (strcmp (operation, {"open", "create"})))
        result = gridio (operation, arguments{:});
      else
        gridio (operation, arguments{:});
      end
    catch err
    end
    good = as_expected (operation, expected, err);
    if (good)
      passed++;
    elseif (++failed <= 30)
      printf ("FAILED: %s %s => %s\n", operation, disp (arguments), expected.line);
      disp (err);
    end
    % A call that is refused changes nothing, and values that an operation writes change nothing for its other cases.
    if (good && isempty (err) && only_write(cases(k,1)))
      written = cases(k,1);
    elseif (! good || (isempty (err) && ! only_look(cases(k,1))))
      if (isempty (err) && any (strcmp (operation, opening)))
        try_close (result);
      end
      renew ();
    end
  end
  printf ("%d passed, %d failed\n", passed, failed);
  exit (failed > 0 || passed == 0);
end

function words = lines_of (file)
  words = strsplit (fileread (file), "\n");
end

% Values of every class are written on purpose.
warning ("off", "Ovard:gridio:octave:rawBytes");
global scratch values tokens
folder = argv (){1};
tokens = lines_of (fullfile (folder, "values"));
values = {};
scratch = struct ("ncid", -1, "group", -1, "name", "none", "count", 0);
gridio ("close", gridio ("create", "plain", "clobber"));
renew ();
run_cases (dlmread (fullfile (folder, "cases"), " "), lines_of (fullfile (folder, "operations")), ...
           cellfun (@parsed_outcome, lines_of (fullfile (folder, "outcomes")), "UniformOutput", false));
