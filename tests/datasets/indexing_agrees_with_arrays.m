% SPDX-License-Identifier: BSD-3-Clause
% Every form of index of a variable gives what it gives of the array of all its values.
1;

function list = a_list (len)
  switch (randi (7))
    case 1
      list = ":";
    case 2
      list = randi (len);
    case 3
      list = randi (len, 1, randi (4));
    case 4
      list = sort (randi (len, randi (4), 1));
    case 5
      list = len:-1:1;
    case 6
      list = rand (1, len) > 0.4;
    case 7
      list = 1:2:len;
  end
end

path = made_file (["netcdf made {\ndimensions: t = UNLIMITED; z = 5; y = 4; x = 3; one = 1;\n" ...
                   "variables: double a(t, z, y, x); float b(y, x); short c(x); int d; double e(one, x); double f(one);\n" ...
                   "data: b = " strjoin(arrayfun (@num2str, 1:12, "UniformOutput", false), ", ") ";\n" ...
                   "a = " strjoin(arrayfun (@num2str, 1:360, "UniformOutput", false), ", ") ";\n" ...
                   "c = 7, 8, 9; d = 42; e = 1, 2, 3; f = 5;\n}\n"]);
ds = gridio_dataset (path);
arrays = struct ("a", reshape (1:360, [3, 4, 5, 6]), "b", single (reshape (1:12, 3, 4)), "c", int16 ([7; 8; 9]), ...
                 "d", int32 (42), "e", [1; 2; 3], "f", 5);
for name = fieldnames (arrays)'
  whole = arrays.(name{1});
  v = ds(name{1});
  check ([name{1} " has the size of its array"], isequal (size (v), size (whole)));
  check ([name{1} " without index is the array"], isequal (v (), whole) && strcmp (class (v ()), class (whole)));
  check ([name{1} " as a column"], isequal (v(:), whole(:)));
  check ([name{1} " ends where its array does"], isequal (v(end), whole(end)));
end

rand ("twister", 42);
lengths = [3 4 5 6];
for round = 1:400
  count = randi (5);
  extents = [lengths(1:min (count, 4)), ones(1, count - 4)];
  if (count < 4)
    extents(count) = prod (lengths(count:end));
  end
  lists = arrayfun (@a_list, extents, "UniformOutput", false);
  expected = arrays.a(lists{:});
  found = ds.a(lists{:});
  check (["index " strjoin(cellfun (@(list) sprintf ("%d ", list), lists, "UniformOutput", false), ", ")], isequal (found, expected) && isequal (size (found), size (expected)));
end

check ("a matrix of positions of a vector", isequal (ds.c([1 2; 3 1]), int16 ([7 8; 9 7])));
check ("a row of positions of a vector is a column", isequal (ds.c([3 1]), int16 ([9; 7])));
check ("no positions", isequal (size (ds.a([], :, 1, 1)), [0 4]));
check ("end in every place", isequal (ds.a(end, end, end, end), 360) && isequal (ds.a(end, end), 360)
       && isequal (ds("a")(1:end, 1, end - 1), arrays.a(1:end, 1, end - 1)));
check ("size of one dimension", isequal (size (ds.a, 3), 5) && isequal (size (ds.a, [1 4]), [3 6]) && isequal (ndims (ds.a), 4));
[m, n] = size (ds.a);
check ("size in two", isequal ([m, n], [3, 120]));
check ("stored values", isequal (ds.b.raw(2, end), single (11)) && isequal (size (ds.b.raw), [3 4]));
check ("chained indexes of values", isequal (ds.b(:, 1)(2), single (2)));

check_raises ("beyond the end", "badIndex", @() ds.a(4, 1, 1, 1), 'index 1 \(x\) of variable ''a'' must be 3 at most');
check_raises ("beyond the end of several", "badIndex", @() ds.b(13), "12 at most");
check_raises ("beyond the dimensions", "badIndex", @() ds.b(1, 1, 2), "1 at most");
check_raises ("zero", "badIndex", @() ds.b(0, 1), "whole numbers from 1");
check_raises ("a fraction", "badIndex", @() ds.b(1.5, 1), "whole numbers from 1");
check_raises ("a text", "badIndex", @() ds.b("x", 1), "made by at");
check_raises ("a cell", "badIndex", @() ds.b({1}, 1));
check_raises ("a mask that is too long", "badIndex", @() ds.c(true (1, 4)), "3 at most");
check_raises ("braces", "badIndex", @() ds.b{1});
conclude ();
