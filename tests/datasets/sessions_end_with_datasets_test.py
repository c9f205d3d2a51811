# SPDX-License-Identifier: BSD-3-Clause
"""However a session ends with datasets alive that are read, written or to replace a file: its status and what it says are those
of a session without them, and the files are whole. An error before the end leaves a file that was to be replaced."""
import os
import pathlib
import re
import signal
import subprocess
import tempfile
import unittest

import interpreter
from session_ends import EVAL, FILE, STDIN, end_session

NCDUMP = os.environ.get("NCDUMP", "ncdump")
FOLDERS = (interpreter.INST, interpreter.oct_folder())
OLD = 'gridio_write ("old.nc", "v", [1 2 3], "x");\n'
ALIVE = """
gridio_write ("f.nc", "v", [1 2 3], "x");
ds = gridio_dataset ("f.nc");   v = ds.v;   handle = @(k) ds.v(k);   v(2);
made = gridio_dataset ("new.nc", "new");
made.put ("v", 1:5000, "x", "units", "m");   y = made.v;
out = gridio_dataset ("old.nc", "replace");
out.put ("v", [4 5 6], "x");
"""
REPLACED, KEPT = True, False

# What the session does at last, how it is run, and whether the old file is replaced.
WAYS = [
    ("normal end", "", FILE, REPLACED),
    ("end of --eval", "", EVAL, REPLACED),
    ("end of input", "", STDIN, REPLACED),
    ("exit 3", "exit (3);", FILE, REPLACED),
    ("quit in a function", "function leave () quit (4); end\nleave ();", FILE, REPLACED),
    ("quit force", 'quit (5, "force");', FILE, REPLACED),
    ("clear", "clear ds v handle made y out", FILE, REPLACED),
    ("clear all", "clear all", FILE, REPLACED),
    ("clear -x", "clear -x unrelated", FILE, REPLACED),
    ("clear functions", "clear functions", FILE, KEPT),
    ("a global", "global h;   h = {ds, v, out, made};   clear ds v out made", FILE, REPLACED),
    ("a persistent", "function keep (x) persistent held;   held = x; end\nkeep ({ds, out, made});   clear ds v out made",
     FILE, REPLACED),
    ("a map", 'm = containers.Map ();   m("k") = {ds, out, made};   clear ds v out made', FILE, REPLACED),
    ("a caught error, then writing", 'try, ds.w; catch, end\nif (! isempty (out)) out.put ("w", 1); end',
     FILE, REPLACED),
    ("a caught error at last", 'try, ds.w; catch, end', FILE, KEPT),
    ("uncaught error", 'error ("own:id", "own error");', FILE, KEPT),
    ("uncaught error in a function", 'function f (x) error ("own:id", "own error"); end\nf (out);', FILE, KEPT),
    ("uncaught error in --eval", 'error ("own error");', EVAL, KEPT),
    ("uncaught error on stdin", 'error ("own error");', STDIN, KEPT),
    ("uncaught error of a change", 'out.put ("v", 1);', FILE, KEPT),
    ("SIGINT", signal.SIGINT, FILE, REPLACED),  # the interpreter does not say that it was interrupted
    ("SIGTERM", signal.SIGTERM, FILE, KEPT),
    ("SIGHUP", signal.SIGHUP, FILE, KEPT),
    ("SIGKILL", signal.SIGKILL, FILE, KEPT),
]
# What the session says besides: gridio was cleared with its files, and the interpreter cannot save objects in its rescue.
RESCUE = "error: octave_base_value::save_binary|warning: Saving classdef objects is not supported"
EXPECTED = {'out.put ("v", 1);': "error: there is a variable 'v' already",
            "clear functions": "warning: Files were still open",
            signal.SIGTERM: RESCUE,
            signal.SIGHUP: RESCUE}


def values_of(path):
    done = subprocess.run([NCDUMP, "-v", "v", path], capture_output=True, text=True, check=False)
    values = re.search(r"\n v =([^;]*);", done.stdout)
    return [int(v) for v in values[1].split(",")] if values else None


class Sessions(unittest.TestCase):
    def check(self, tail, how, is_replaced):
        with tempfile.TemporaryDirectory() as with_datasets, tempfile.TemporaryDirectory() as control:
            folder = pathlib.Path(with_datasets)
            status, errors = end_session(folder, OLD + ALIVE, tail, how, FOLDERS)
            usual_status, usual_errors = end_session(pathlib.Path(control), OLD + "ds = v = out = made = [];\n", tail, how, FOLDERS)
            self.assertEqual(status, usual_status, errors)
            self.assertEqual(values_of(folder / "old.nc"), [4, 5, 6] if is_replaced else [1, 2, 3], errors)
            self.assertEqual(values_of(folder / "f.nc"), [1, 2, 3])
            if tail == signal.SIGKILL:
                return
            self.assertEqual(values_of(folder / "new.nc"), list(range(1, 5001)))
            own = [line for line in errors.splitlines() if line not in usual_errors.splitlines()]
            if is_replaced:
                self.assertEqual(list(folder.glob(".*.part")), [])
            else:
                said = [line for line in own if "was not replaced" in line]
                self.assertEqual(len(said), 1, errors)
                part = re.search('is in "([^"]*)"', said[0])[1]
                self.assertEqual(values_of(folder / part), [4, 5, 6])
                own.remove(said[0])
            known = r"(warning|error): called from|    \S+ at line|$"
            if tail in EXPECTED:
                known += "|" + EXPECTED[tail]
            self.assertEqual([line for line in own if not re.match(known, line)], [])

    def test_leave_whole_files(self):
        for name, tail, how, is_replaced in WAYS:
            with self.subTest(name):
                self.check(tail, how, is_replaced)


if __name__ == "__main__":
    unittest.main()
