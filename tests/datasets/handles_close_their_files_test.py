# SPDX-License-Identifier: BSD-3-Clause
"""A file is open as long as something holds a part of it, however the rest goes and the session ends."""
import tempfile
import unittest

import interpreter

MADE = """
ncid = gridio ("create", "f.nc", "netcdf4");
x = gridio ("defDim", ncid, "x", 3);
v = gridio ("defVar", ncid, "v", gridio ("parameter", "NC_DOUBLE"), x);
gridio ("defGrp", ncid, "g");
gridio ("endDef", ncid);
gridio ("putVarDouble", ncid, v, [1 2 3]);
gridio ("close", ncid);
function say_open ()
  printf ("%d ", numel (gridio_open_files ()));
end
"""
OPEN = 'ds = gridio_dataset ("f.nc");\n'

# What is done, and how many files are open wherever say_open was called.
HOLDERS = [
    ("the dataset itself", OPEN + "say_open (); clear ds; say_open ();", [1, 0]),
    ("overwriting", OPEN + "ds = 3; say_open ();", [0]),
    ("two names", OPEN + "other = ds; clear ds; say_open (); disp (other.v(2)); clear other; say_open ();", [1, 0]),
    ("a variable", OPEN + "v = ds.v; clear ds; say_open (); assert (v(2), 2); clear v; say_open ();", [1, 0]),
    ("a raw variable", OPEN + "v = ds.v.raw; clear ds; say_open (); assert (v(2), 2); clear v; say_open ();", [1, 0]),
    ("a group", OPEN + "g = ds.g; clear ds; say_open (); clear g; say_open ();", [1, 0]),
    ("a cell", OPEN + "c = {ds}; clear ds; say_open (); assert (c{1}.v(3), 3); c = {}; say_open ();", [1, 0]),
    ("a struct", OPEN + "s.d = ds; clear ds; say_open (); assert (s.d.v(3), 3); clear s; say_open ();", [1, 0]),
    ("a map", OPEN + 'm = containers.Map (); m("k") = ds; clear ds; say_open (); assert (m("k").v(1), 1); clear m; say_open ();',
     [1, 0]),
    ("a function handle", OPEN + "f = @(k) ds.v(k); clear ds; say_open (); assert (f (2), 2); clear f; say_open ();", [1, 0]),
    ("a function's variable", "function f () ds = gridio_dataset (\"f.nc\"); say_open (); end\nf (); say_open ();", [1, 0]),
    ("a caught error", "function f () ds = gridio_dataset (\"f.nc\"); error (\"own\"); end\ntry, f (); end\nsay_open ();", [0]),
    ("an expression", 'assert (gridio_dataset ("f.nc").v(2), 2); say_open ();', [0]),
    ("cellfun", OPEN + 'x = cellfun (@(name) sum (ds(name)(:)), {"v", "v"}); assert (x, [6 6]); clear ds; say_open ();', [0]),
    ("an error in an index", OPEN + 'try, ds.v(9), end\ntry, ds.w, end\nclear ds; say_open ();', [0]),
    ("close", OPEN + "v = ds.v; ds.close (); say_open (); try, v(1), catch e, printf (\"%s \", e.identifier); end\n"
     "try, ds.close (), catch e, printf (\"%s \", e.identifier); end\nclear ds v; say_open ();",
     [0, "Ovard:gridio:dataset:closed", "Ovard:gridio:dataset:closed", 0]),
    ("clear gridio", OPEN + 'clear gridio gridio_any gridio_native\nsay_open ();'
     'try, ds.v(1), catch e, printf ("%s ", e.identifier); end\n'
     'ncid = gridio ("open", "f.nc", "nowrite"); clear ds; say_open (); gridio ("close", ncid);',
     [0, "Ovard:gridio:dataset:closed", 1]),
    ("clear all", OPEN + "v = ds.v;\nclear all\nprintf (\"%d \", numel (gridio_open_files ()));", [0]),
    ("two datasets of one file", OPEN + 'two = gridio_dataset ("f.nc"); say_open (); clear ds; say_open (); assert (two.v(1), 1);'
     ' clear two; say_open ();', [2, 1, 0]),
    ("one-liners", 'gridio_read ("f.nc", "v"); evalc (\'gridio_show ("f.nc")\'); say_open ();', [0]),
    ("refusals", OPEN + 'try, [ds, ds], catch e, printf ("%s ", e.message); end\nclear ds; say_open ();', None),
]

# How a session ends with a dataset, a variable and a group alive.
ENDINGS = [
    ("the end of the script", "", 0),
    ("exit", "exit (3);", 3),
    ("quit in a function", "function leave () quit (4); end\nleave ();", 4),
    ("an uncaught error", 'error ("own:id", "own error");', 1),
    ("a global", "global h; h = {ds, ds.v};", 0),
    ("a persistent", "function keep (x) persistent held; held = x; end\nkeep (ds.v);", 0),
    ("an object that was kept by a handle", "global h; h = @() ds.v(1);", 0),
    ("after clear gridio", "clear gridio", 0),
]


def run_octave(script, folder):
    return interpreter.run_text(MADE + script + "\n", folder, capture_output=True)


# Forked processes read, and leave the files to the one that opened them.
FORKED = """
out = gridio_dataset ("f.nc", "replace");
out.put ("v", [4 5 6], "x");
%s
assert (values, [1 2 3]);
out.put ("w", 7);
clear out
assert (gridio_read ("f.nc", "v"), [4; 5; 6]);
assert (gridio_read ("f.nc", "w"), 7);
say_open ();
"""
IN_CHILDREN = """
values = zeros (1, 3);
for k = 1:3
  pid = fork ();
  if (pid == 0)
    exit (ds.v(k));
  end
  [~, status] = waitpid (pid);
  values(k) = WEXITSTATUS (status);
end
"""


class Handles(unittest.TestCase):
    def test_close_their_file_with_the_last(self):
        for name, script, wanted in HOLDERS:
            with self.subTest(name), tempfile.TemporaryDirectory() as folder:
                done = run_octave(script, folder)
                self.assertEqual(done.returncode, 0, done.stderr)
                if wanted is None:
                    self.assertIn("horzcat", done.stdout)
                    continue
                found = [int(word) if word.isdigit() else word for word in done.stdout.split()]
                if name == "two names":
                    found.remove(2)
                self.assertEqual(found, wanted, done.stdout + done.stderr)
                if "clear gridio" not in name and name != "clear all":
                    self.assertEqual(done.stderr, "")

    def test_are_left_alone_by_forked_processes(self):
        with tempfile.TemporaryDirectory() as folder:
            done = run_octave(OPEN + FORKED % IN_CHILDREN, folder)
            self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "1 ", ""))

    def test_serve_parcellfun(self):
        with tempfile.TemporaryDirectory() as folder:
            if run_octave("pkg load parallel", folder).returncode != 0:
                self.skipTest("the package parallel is not installed")
            # It saves the function for its processes, and objects cannot be saved.
            done = run_octave('pkg load parallel\n' + OPEN +
                              'x = parcellfun (2, @(k) gridio_dataset ("f.nc").v(k), {1, 2, 3}, "VerboseLevel", 0);\n'
                              'assert (x, [1 2 3]); assert (ds.v(2), 2); say_open ();', folder)
            self.assertEqual((done.returncode, done.stdout), (0, "1 "), done.stderr)

    def test_end_with_the_session(self):
        for name, script, status in ENDINGS:
            with self.subTest(name), tempfile.TemporaryDirectory() as folder:
                done = run_octave(OPEN + "v = ds.v; g = ds.g;\n" + script, folder)
                self.assertEqual(done.returncode, status, done.stderr)
                own = [line for line in done.stderr.splitlines() if line.strip() and "own error" not in line
                       and "called from" not in line and "script at" not in line]
                if name == "after clear gridio":
                    own = [line for line in own if "still open" not in line]
                self.assertEqual(own, [], done.stderr)


if __name__ == "__main__":
    unittest.main()
