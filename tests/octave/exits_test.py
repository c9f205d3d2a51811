# SPDX-License-Identifier: BSD-3-Clause
"""However a session ends, files left open are closed with one warning, and the session's exit status is unchanged.

Every way is tried twice: with gridio, and as a control without the calls of gridio."""
import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile

import interpreter
from session_ends import EVAL, FILE, STDIN, end_session

GRIDIO = interpreter.oct_folder()
NCDUMP = os.environ.get("NCDUMP", "ncdump")
FORMATS = {"classic": '"clobber"', "offset64": '"64bit_offset"', "netcdf4": '"netcdf4"',
           "model": 'bitor (gridio ("parameter", "NC_NETCDF4"), gridio ("parameter", "NC_CLASSIC_MODEL"))',
           "cdf5": "32"}

LEAVE_OPEN = "".join(f"""
ncid = gridio ("create", "{name}.nc", {mode});
x = gridio ("defDim", ncid, "x", gridio ("parameter", "NC_UNLIMITED"));
v = gridio ("defVar", ncid, "v", gridio ("parameter", "NC_DOUBLE"), x);
gridio ("endDef", ncid);
gridio ("putVaraDouble", ncid, v, 0, 1000, 1:1000);
""" for name, mode in FORMATS.items())

# Name, what the script does with the files open, and how it is run.
SAY = 'fputs (stderr, "after\\n");\n'
# After a way that clears the function for good.
MAPPED = 'if (strfind (fileread ("/proc/self/maps"), "gridio.oct")), fputs (stderr, "still mapped\\n"); end\n'
GONE = SAY + MAPPED
WAYS = [
    ("clear gridio", "clear gridio\n" + GONE, FILE),
    ("clear all", "clear all\n" + GONE, FILE),
    ("clear functions", "clear functions\n" + GONE, FILE),
    ("clear -x", "clear -x unrelated\n" + SAY, FILE),
    ("clear with a handle kept", "h = @gridio;\nclear gridio\nclear h\n" + GONE, FILE),
    ("normal end", "", FILE),
    ("normal end of --eval", "", EVAL),
    ("end of input", "", STDIN),
    ("exit 3", "exit (3);\n", FILE),
    ("quit in a function", "function leave () quit (4); end\nleave ();\n", FILE),
    ("quit force", 'quit (5, "force");\n', FILE),
    ("uncaught error", 'error ("own:id", "own error");\n', FILE),
    ("uncaught error in --eval", 'error ("own error");\n', EVAL),
    ("uncaught error on stdin", 'error ("own error");\n', STDIN),
    ("handle in a global", "global h\nh = @gridio;\n", FILE),
    ("handle in a cell in a map", 'global h\nh = containers.Map ("k", {{@gridio}});\n', FILE),
    ("handle kept by a function", "function keep (h) persistent held; held = h; end\nkeep (@gridio);\n", FILE),
    ("rmpath", f'rmpath ("{GRIDIO}");\n', FILE),
    ("exit with the warning as an error",
     'warning ("error", "Ovard:gridio:netcdf:closingFileHandle");\nexit (6);\n', FILE),
    ("SIGINT", signal.SIGINT, FILE),
    ("SIGTERM", signal.SIGTERM, FILE),
    ("SIGHUP", signal.SIGHUP, FILE),
]


def warnings_in(errors):
    return len(re.findall(r"^warning: (?!called from)", errors, re.M))


def dumped(path):
    text = subprocess.run([NCDUMP, "-v", "v", path], capture_output=True, text=True).stdout
    values = re.search(r"\n v =([^;]*);", text)
    return [int(v) for v in values[1].split(",")] if values else None


def failures_of(tail, how):
    with tempfile.TemporaryDirectory() as with_gridio, tempfile.TemporaryDirectory() as control:
        folder = pathlib.Path(with_gridio)
        status, errors = end_session(folder, LEAVE_OPEN, tail, how)
        usual_status, usual_errors = end_session(pathlib.Path(control), "", tail, how)
        if status != usual_status:
            yield f"status {status} instead of {usual_status}"
        if "warning (" not in str(tail):
            count = warnings_in(errors) - warnings_in(usual_errors)
            if count != 1:
                yield f"{count} warnings: {errors}"
        if SAY in str(tail) and not 0 <= errors.find("warning: ") < errors.find("after"):
            yield f"the warning does not come at once: {errors}"
        for name in FORMATS:
            if dumped(folder / f"{name}.nc") != list(range(1, 1001)):
                yield f"the {name} file lacks data"


def main():
    failed = 0
    for name, tail, how in WAYS:
        found = list(failures_of(tail, how))
        failed += bool(found)
        print(name, "FAILED: " + "; ".join(found) if found else "ok", flush=True)
    print(f"{len(WAYS) - failed} passed, {failed} failed")
    return failed > 0


sys.exit(main())
