# SPDX-License-Identifier: BSD-3-Clause
"""Common mistakes in real sessions: the message must tell a newcomer the cure."""
import os
import pathlib
import re
import subprocess
import tempfile
import time
import unittest

from sessions import command_for, own_environment, session

SETUP = """
n4 = gridio ("create", "n4.nc", "netcdf4");
dimid = gridio ("defDim", n4, "x", 4);
gridio ("close", n4);
c = gridio ("create", "c.nc", "clobber");
xy = [gridio("defDim", c, "x", 4), gridio("defDim", c, "y", 3)];
v = gridio ("defVar", c, "v", 6, xy);
s = gridio ("defVar", c, "s", 2, xy(1));
"""
DATA = 'gridio ("endDef", c);\n'

# The call, the preparation, and words of the message that name the cure; its first line is ignored.
CAUSES = [
    ("file is not netCDF", 'fputs (fopen ("t.nc", "w"), "text"); fclose ("all");', '"open", "t.nc", "nowrite"',
     "not a netCDF file"),
    ("file is a folder", 'mkdir ("d");', '"open", "d", "nowrite"', "folder"),
    ("new file is a folder", 'mkdir ("d");', '"create", "d", "clobber"', "folder"),
    ("new netCDF-4 file is a folder", 'mkdir ("d");', '"create", "d", "netcdf4"', "folder"),
    ("file is missing", "", '"open", "no.nc", "nowrite"', "check the path"),
    ("folder is missing", "", '"create", "no/x.nc", "netcdf4"', "make the folder first"),
    ("folder is a file", "", '"create", "c.nc/x.nc", "clobber"', "is a file, not a folder"),
    ("name is too long", "", '"create", repmat("a", 1, 300), "clobber"', "shorter"),
    ("file exists", "", '"create", "n4.nc", "noclobber"', '"clobber"'),
    ("file was cut short", 's = fileread ("n4.nc"); fwrite (fopen ("h.nc", "w"), s(1:end/2)); fclose ("all");',
     '"open", "h.nc", "nowrite"', "was cut short"),
    ("file is open here", 'gridio ("open", "n4.nc", "nowrite");', '"create", "n4.nc", "netcdf4"',
     "is open in this session"),
    ("file was closed", 'gridio ("close", c);', '"inq", c', "gridio_open_files()"),
    ("file is read-only", 'r = gridio ("open", "n4.nc", "nowrite");', '"defDim", r, "y", 2', 'mode "write"'),
    ("name of a dimension in use", "", '"defDim", c, "x", 4', '"inqDimID"'),
    ("name of a variable in use", "", '"defVar", c, "v", 6, xy', "choose another"),
    ("define mode", "", '"putVarDouble", c, v, zeros(4, 3)', 'gridio("endDef", ncid)'),
    ("data mode", DATA, '"defDim", c, "z", 4', 'gridio("redef", ncid)'),
    ("single for Double", DATA, '"putVarDouble", c, v, single(zeros(4, 3))', "double for \"Double\""),
    ("logical for Double", DATA, '"putVarDouble", c, v, true(4, 3)', "convert them"),
    ("too few values", DATA, '"putVarDouble", c, v, 1:11', "too few"),
    ("numbers for text", DATA, '"putVarDouble", c, s, 1:4', 'use "putVarText"'),
    ("counting from one, fastest", DATA, '"getVar1Double", c, v, [4 0]', "from 0 to the length less 1"),
    ("counting from one, slowest", DATA, '"getVar1Double", c, v, [0 3]', "from 0 to the length less 1"),
    ("counting from one, in blocks", DATA, '"getVaraDouble", c, v, [1 1], [4 3]', "the first element is 0"),
    ("start in the other order", DATA, '"getVar1Double", c, v, [2 3]', "the other way round"),
    ("count in the other order", DATA, '"getVaraDouble", c, v, [0 0], [3 4]', "the other way round"),
    ("stride too long", DATA, '"getVarsDouble", c, v, [0 0], [2 1], [4 1]', "STRIDE"),
    ("negative index", DATA, '"getVar1Double", c, v, [-1 0]', "never negative"),
    ("variable by name", DATA, '"getVarDouble", c, "v"', '"inqVarID"'),
    ("type by name", "", '"defVar", c, "w", "double", xy', 'gridio("parameter", "NC_DOUBLE")'),
    ("identifiers of another class", "", '"defVar", c, "w", 6, int32(xy)', "double(...)"),
    ("misspelt operation", "", '"getVarDuoble", c, v', 'did you mean "getVarDouble"'),
    ("wrong number of arguments", "", '"open", "n4.nc"', 'gridio_help("open")'),
]


class Advice(unittest.TestCase):
    def test_names_the_cure(self):
        for cause, before, call, cure in CAUSES:
            with self.subTest(cause):
                printed = session(self, SETUP + before + f"""
                    try
                      gridio ({call});
                    catch failure
                      puts (failure.message);
                    end
                    warning ("off", "Ovard:gridio:netcdf:closingFileHandle");
                """)
                first, *rest = printed.split("\n")
                is_status = re.match(r"\w+: \w+: ", first)
                self.assertIn(cure, "\n".join(rest) if is_status else printed)

    def test_knows_a_file_that_another_program_holds(self):
        with tempfile.TemporaryDirectory() as folder:
            holder = pathlib.Path(folder, "holder.m")
            holder.write_text('n = gridio ("create", "held.nc", "netcdf4"); fclose (fopen ("ready", "w")); '
                              'input (""); gridio ("close", n);')
            other = subprocess.Popen(command_for(holder), cwd=folder, stdin=subprocess.PIPE,
                                     stdout=subprocess.DEVNULL, env=own_environment(folder))
            deadline = time.monotonic() + 60
            while not os.path.exists(f"{folder}/ready") and time.monotonic() < deadline:
                time.sleep(0.02)
            for call in ("'open', argv (){1}, 'nowrite'", "'open', argv (){1}, 'write'",
                         "'create', argv (){1}, 'netcdf4'"):
                printed = session(self, f"try, gridio ({call}); catch failure, puts (failure.message); end",
                                  f"{folder}/held.nc")
                self.assertRegex(printed, r"^\w+: (NC_EHDFERR|13): [^\n]*\n(?s:.*)another program")
            other.communicate(b"0\n")
            self.assertEqual(other.returncode, 0)


if __name__ == "__main__":
    unittest.main()
