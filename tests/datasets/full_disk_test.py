# SPDX-License-Identifier: BSD-3-Clause
"""Writing where there is no space, by a limit on the size of files: the error says so, and what was to be replaced stays, also
when there is space again before the file is closed."""
import os
import pathlib
import re
import resource
import signal
import subprocess
import tempfile
import time
import unittest

import interpreter

FOLDERS = (interpreter.INST, interpreter.oct_folder())
LIMIT = 2 << 20
# netCDF 4.9.3 keeps 64 MiB of chunks in memory: what is appended here would not reach the disk.
BEGIN = """
gridio ("setChunkCache", 2^20, 1009, 0.75);
gridio_write ("old.nc", "v", [1 2 3], "x");
function refused (change)
  try, change (); disp ("no error"); catch failure, printf ("%%s\\n", strrep (failure.message, "\\n", " / ")); end
end
out = gridio_dataset ("old.nc", "replace", "_Format", "%s");
out.put ("t", 1:2, "t", "_Unlimited", true);
out.put ("v", zeros (100, 100, 2), {"x", "y", "t"}, "_FillValue", -1);
"""
# Then there is space again.
WAIT = """
fclose (fopen ("full", "w"));
while (! exist ("space", "file")), pause (0.02); end
"""
CHANGES = {
    "put": 'refused (@() out.put ("w", rand (600, 600), {"a", "b"}));',
    "append": 'refused (@() out.append ("t", 3:402, "v", rand (100, 100, 400)));',
}


class FullDisk(unittest.TestCase):
    def session(self, folder, script):
        """What a session prints, which ends after there is space again."""
        path = pathlib.Path(folder, "script.m")
        path.write_text("1;\n" + script)

        def limit():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (LIMIT, resource.RLIM_INFINITY))

        session = subprocess.Popen(interpreter.command(path, folders=FOLDERS), cwd=folder, text=True, preexec_fn=limit,
                                   env=interpreter.environment(folder), stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        deadline = time.monotonic() + 60
        while not pathlib.Path(folder, "full").exists() and session.poll() is None and time.monotonic() < deadline:
            time.sleep(0.02)
        if session.poll() is None:
            resource.prlimit(session.pid, resource.RLIMIT_FSIZE, (resource.RLIM_INFINITY, resource.RLIM_INFINITY))
            pathlib.Path(folder, "space").touch()
        said, errors = session.communicate(timeout=60)
        return said, errors

    def values_of(self, path):
        text = subprocess.run([os.environ["NCDUMP"], "-v", "v", path], capture_output=True, text=True, check=True).stdout
        return re.search(r"\n v =([^;]*);", text)[1].split()

    def test_is_said_and_keeps_the_file_that_was_to_be_replaced(self):
        for form in ("netCDF-4", "classic"):
            for name, change in CHANGES.items():
                with self.subTest(name, form=form), tempfile.TemporaryDirectory() as folder:
                    said, errors = self.session(folder, BEGIN % form + change + WAIT + "clear out\n")
                    self.assertRegex(said, "not whole.* the system allows this session")
                    self.assertIn('"old.nc" was not replaced', errors)
                    self.assertEqual(self.values_of(pathlib.Path(folder, "old.nc")), ["1,", "2,", "3"])
                    self.assertTrue(list(pathlib.Path(folder).glob(".old.nc.*.part")))

    def test_is_said_of_an_assignment(self):
        with tempfile.TemporaryDirectory() as folder:
            said, errors = self.session(folder, """
                ncid = gridio ("create", "made.nc", "netcdf4");
                dims = [gridio("defDim", ncid, "x", 600), gridio("defDim", ncid, "y", 600)];
                gridio ("defVar", ncid, "v", gridio ("parameter", "NC_DOUBLE"), dims);
                gridio ("close", ncid);
                out = gridio_dataset ("made.nc", "write");
                try, out.v(:,:) = rand (600, 600); catch failure, disp (strrep (failure.message, "\\n", " / ")); end
                """ + WAIT + "clear out\n")
            self.assertRegex(said, "'v' may be written in part.* the system allows this session", errors)


if __name__ == "__main__":
    unittest.main()
