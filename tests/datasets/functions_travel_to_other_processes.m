% SPDX-License-Identifier: BSD-3-Clause
% Which functions gridio_reduce hands to other interpreters, and which it refuses.
1;

function p = tricky (files) % end of "this
  %{
  function p = tricky (files)
  %}
  names = files(1:end); # for k in 'names
  p = struct ("n", [0 0]);
  for k = 1:numel (names)
    if (any (names{k} == 'it''s') || ! isempty (names'{end})) x = p.n'; p.n = x' + [1 hex2dec("1F")]; end
    do, k++; until true
  end, p.end = "end % \" #";
  p.n += deeper (p.n)';
endfunction

function x = deeper (x)
  x = 0 * x'; end

function p = with_hexadecimal (files)
  p = struct ("n", numel (files) * double (0x1F));
endfunction

function write (folder, name, text)
  file = fopen (fullfile (folder, name), "w");
  fputs (file, text);
  fclose (file);
end

files = {"a", "b", "c", "d", "e"};
add = @(a, b) struct ("n", a.n + b.n);
on_cores = @(partial) gridio_reduce (files, partial, add, "on", "cores", "workers", 2);
count = @(x) numel (x);

check ("a function of a script, with all that looks like another end", isequal (on_cores (@tricky).n, [5 155]));
check ("an anonymous function that calls it", isequal (on_cores (@(f) tricky (f)).n, [5 155]));
check ("hexadecimal numbers", on_cores (@with_hexadecimal).n == 155);
check ("a captured function", on_cores (@(f) struct ("n", count (f))).n == 5);
s = struct ("c", {{1, "two", single(3)}}, "m", int8 ([1 2; 3 4]), "z", 1i);
check ("captured structs and cells", on_cores (@(f) struct ("n", double (s.m(2, 1)) * numel (f) + s.z)).n == 15 + 5i);
check ("an empty cell", on_cores (@(f) struct ("n", numel ({}) + numel (f))).n == 5);
eval ("function p = at_the_prompt (f) \n p = struct ('n', 2 * numel (f)); end");
check ("a function that no file has", on_cores (@at_the_prompt).n == 10);

folder = tempname ();
mkdir (fullfile (folder, "private"));
write (folder, "own_functions.m", ["function r = own_functions (files, add, which)\n  c = 3;\n" ...
       "  partials = {@mine, @(f) mine(f), @hidden, @(f) struct(\"n\", c * hidden (f).n)};\n" ...
       "  r = gridio_reduce (files, partials{which}, add, \"on\", \"cores\", \"workers\", 2);\nend\n" ...
       "function p = mine (f)\n  p = struct (\"n\", below (f));\nend\nfunction n = below (f)\n  n = numel (f);\nend\n"]);
write (fullfile (folder, "private"), "hidden.m", "function p = hidden (f)\n  p = struct (\"n\", 7 * numel (f));\nend\n");
addpath (folder);
for which = 1:4
  check (sprintf ("a function that only a file's functions see (%d)", which), ...
         own_functions (files, add, which).n == [5 5 35 105](which));
end
rmpath (folder);

there = pwd ();
cd (folder);
write (folder, "beside.m", "function p = beside (f)\n  p = struct (\"n\", 4 * numel (f));\nend\n");
rehash ();
check ("a function of the working folder", on_cores (@beside).n == 20);
cd (there);

map = containers.Map ();
refused = {{@(f) map(f{1}), "the variable 'map' of PARTIAL is a containers.Map"}, ...
           {@(f) no_such_function (f), "uses 'no_such_function', which another process would not find"}, ...
           {@no_such_function, "which does not exist"}, ...
           {@(f) struct('n', 'it''s'), "does not print this function so that it can be read again"}, ...
           {@(f) struct ("n", 0x1F), "prints hexadecimal and binary numbers like decimal ones"}};
for k = 1:numel (refused)
  check_raises (sprintf ("refused function %d", k), "cannotTravel", @() on_cores (refused{k}{1}), refused{k}{2});
end

confirm_recursive_rmdir (false);
rmdir (folder, "s");
conclude ();
