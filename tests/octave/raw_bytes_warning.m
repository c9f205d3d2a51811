% SPDX-License-Identifier: BSD-3-Clause
% Every write warns of values of another class than its own, and of nothing else.
1;

global id
id = "Ovard:gridio:octave:rawBytes";

% The identifier and the text of the warning that the call raises; empty without one.
function [raised, text] = warning_of (varargin)
  [text, raised] = raised_warning (@() attempt (varargin{:}));
end

function attempt (varargin)
  try
    gridio (varargin{:});
  catch
  end
end

function yes = warns (varargin)
  global id
  yes = strcmp (warning_of (varargin{:}), id);
end

function x = of_class (name)
  switch name
    case "char"
      x = "ab";
    case "logical"
      x = [true false];
    otherwise
      x = cast ([1 2], name);
  end
end

check ("the function is there", exist ("gridio") == 3);

% The class that each operation writes, by its entry in the manual; no file is open.
here = fileparts (mfilename ("fullpath"));
entries = strsplit (fileread (fullfile (here, "..", "..", "hosts", "octave", "inst", "gridio_operations.txt")), "\n@@ ");
classes = {"double", "single", "int8", "uint8", "int16", "uint16", "int32", "uint32", "int64", "uint64", "char", "logical"};
writes = others = 0;
for entry = entries(2:end)
  name = strtok (entry{1}, "\n");
  if (! isempty (strfind (entry{1}, 'gridio_any("')))  % converts the values
    continue;
  end
  call = regexp (entry{1}, 'gridio\("[^\n]*', "match", "once");
  count = numel (strfind (call, ","));
  data = regexp (entry{1}, '\n  (?:values|value|text): (\w+) array\n', "tokens", "once");
  isWrite = strncmp (name, "put", 3);
  check ([name " is a write if it begins so"], isWrite != isempty (data));
  writes += isWrite;
  others += ! isWrite;
  ids = repmat ({77}, 1, count - 1);
  for kind = classes
    x = of_class (kind{1});
    if (! isWrite)
      check (sprintf ("%s says nothing of %s", name, kind{1}), ! warns (name, ids{1:count-1}, x));
      continue;
    end
    fits = strcmp (kind{1}, data{1});
    check (sprintf ("%s of %s", name, kind{1}), warns (name, ids{:}, x) == ! fits);
    check (sprintf ("%s of a %s scalar", name, kind{1}), warns (name, ids{:}, x(1)) == ! fits);
    check (sprintf ("%s of no %s", name, kind{1}), ! warns (name, ids{:}, x([])));
    check (sprintf ("%s with too many arguments", name), ! warns (name, ids{:}, 1, x));
    check (sprintf ("%s with too few arguments", name), ! warns (name, ids{2:end}, x));
  end
  if (isWrite)
    for x = {{}, {1}, struct(), @sin, containers.Map(), Impostor(), impostor()}
      check (sprintf ("%s of a %s", name, class (x{1})), ! warns (name, ids{:}, x{1}));
    end
    check (sprintf ("%s of complex values", name), warns (name, ids{:}, cast ([1i 2], "double")));
  end
end
check ("all writes", writes == 12 + 4 * 11);
check ("all other operations", others == 162 - 56);

% Values of the right class in every form of the interpreter.
for x = {1:3, 0:0.1:1, sparse([1 0 2]), eye(3), 5, ones(2, 2, 2), eye(3)([2 1 3], :)}
  check (["a double as " disp(x{1})], ! warns ("putVarDouble", 77, 77, x{1}));
  check (["not a single as " disp(x{1})], warns ("putVarFloat", 77, 77, x{1}));
end
check ("a sparse logical", warns ("putVarDouble", 77, 77, sparse ([true false])));
check ("a name that is no operation's", ! warns ("putVarFlaot", 77, 77, 1));
check ("a name that is a column", warns ("putVarFloat"', 77, 77, 1));
check ("a name with a NUL", warns ("putVarFloat\0x", 77, 77, 1));
check ("no name", ! warns (5, 77, 77, 1));

% The text of the warning.
[~, text] = warning_of ("putVarFloat", 77, 77, 280);
for words = {"\"putVarFloat\" takes values of class single", "of class double", "single (x)", ["warning (\"off\", \"" id "\")"]}
  check (["says " words{1}], ! isempty (strfind (text, words{1})));
end
[~, text] = warning_of ("putVarFloat", 77, 77, single (280 + 1i));
check ("says that the imaginary part is left out", ! isempty (strfind (text, "imaginary part is left out")));
check ("says nothing of a class that fits", isempty (strfind (text, "takes values of class")));
[~, text] = warning_of ("putVarInt", 77, 77, "abc");
check ("names the operations for text", ! isempty (strfind (text, "end in \"Text\"")));
[~, text] = warning_of ("putAttText", 77, 77, "a", 5);
check ("names the conversion to text", ! isempty (strfind (text, "num2str (x)")));

% The call is unchanged; the warning can be switched off and turned into an error.
[ncid, path] = new_file ();
v = gridio ("defVar", ncid, "v", gridio ("parameter", "NC_FLOAT"), gridio ("defDim", ncid, "x", 3));
gridio ("endDef", ncid);
x = [280 281.5 282];
evalc ("gridio (\"putVarFloat\", ncid, v, x)");
stored = gridio ("getVarFloat", ncid, v);
check ("the bytes are stored as they are", isequal (stored(:), typecast (x, "single")(1:3)(:)));
warning ("error", id);
failure = struct ("identifier", "");
try
  gridio ("putVarFloat", ncid, v, [1 2 3]);
catch failure
end
check ("an error when the script wants it", strcmp (failure.identifier, id));
check ("nothing is written then", isequal (gridio ("getVarFloat", ncid, v), stored));
warning ("off", id);
check ("silence when the script wants it", isempty (evalc ("gridio (\"putVarFloat\", ncid, v, x);")) && ! warns ("putVarFloat", ncid, v, x));
warning ("on", id);
shown = evalc ("gridio (\"putVarFloat\", ncid, v, x);");
check ("one warning a call", numel (strfind (shown, "warning: gridio: ")) == 1);
gridio ("close", ncid);
conclude ();
