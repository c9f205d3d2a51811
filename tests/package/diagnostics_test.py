# SPDX-License-Identifier: BSD-3-Clause
"""gridio_open_files, gridio_version and gridio_manual in real sessions."""
import os
import pathlib
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
import urllib.parse

import interpreter
from interpreter import INST, ROOT, session

sys.path.insert(0, str(ROOT / "tests" / "remote"))
import dap2_server  # noqa: E402

IS_MAPPED = 'is_mapped = @() ! isempty (strfind (fileread ("/proc/self/maps"), "gridio.oct"));\n'


class OpenFiles(unittest.TestCase):
    def test_its_own_tests_pass(self):
        printed = session(self, 'printf ("%d of %d\\n", nthargout (1:2, @test, "gridio_open_files", "quiet"){:});')
        passed, total = map(int, re.search(r"(\d+) of (\d+)", printed).groups())
        self.assertEqual(passed, total)
        self.assertGreater(total, 3)

    def test_does_not_keep_gridio_loaded(self):
        printed = session(self, IS_MAPPED + """
            disp (is_mapped ());
            gridio_open_files ();
            disp (is_mapped ());
            ncid = gridio ("create", "kept.nc", "clobber");
            gridio ("putAttText", ncid, -1, "title", "kept");
            gridio_open_files ();
            clear gridio
            disp (is_mapped ());
            gridio_open_files ();
            disp (is_mapped ());
            disp (gridio ("getAttText", gridio ("open", "kept.nc", "nowrite"), -1, "title"));
            clear all
        """)
        table = r" +ncid  mode   format +unload +path\n +65536  write  classic +closed +kept\.nc\n"
        warning = r"warning: Files were still open [^\n]*\n(?:warning: called from\n(?:    [^\n]*\n)+)?\s*"
        self.assertRegex(printed, rf"^0\nNo netCDF file is open\.\n0\n{table}{warning}0\n"
                                  rf"No netCDF file is open\.\n0\nkept\n{warning}$")

    def test_works_whatever_was_cleared_before(self):
        printed = session(self, """
            ncid = gridio ("create", "a.nc", "netcdf4");
            for k = 1:200, files = gridio_open_files (); end
            clear functions
            disp (numel (gridio_open_files ()));
            gridio ("create", "b.nc", 0);
            handle = @gridio;
            clear -f
            disp (numel (gridio_open_files ()));
            warning ("off", "Ovard:gridio:netcdf:closingFileHandle");
        """)
        self.assertEqual([line for line in printed.splitlines() if line.isdigit()], ["0", "1"])

    def test_lists_only_what_can_be_closed_and_tells_the_truth_about_writing(self):
        printed = session(self, """
            for mode = {"clobber", "netcdf4"}
              for intent = {"nowrite", "write"}
                name = [mode{1} intent{1}];
                gridio ("close", gridio ("create", name, mode{1}));
                gridio ("open", name, intent{1});
              end
            end
            zarr = ["file://" pwd "/z#mode=nczarr,file"];
            gridio ("close", gridio ("create", zarr, "netcdf4"));
            gridio ("open", zarr, "nowrite");
            gridio ("create", "in memory", 8);   % kept in memory
            for file = gridio_open_files ()'
              status = "write";
              try
                gridio ("redef", file.ncid);
                gridio ("putAttText", file.ncid, -1, "a", "t");
              catch failure
                status = "failed";
                if (! isempty (strfind (failure.message, "NC_EPERM")))
                  status = "read";
                elseif (! isempty (strfind (failure.message, "NC_EINDEFINE")))
                  status = "write";
                end
              end
              printf ("%s %s %s\\n", file.mode, status, file.format);
              gridio ("close", file.ncid);
            end
            gridio_open_files ();
        """)
        self.assertEqual(printed, "read read classic\nwrite write classic\nread read netCDF-4\nwrite write netCDF-4\n"
                                  "read read Zarr\nwrite write classic\nNo netCDF file is open.\n")

    def test_shows_remote_data_once(self):
        server = dap2_server.start()
        printed = session(self, """
            address = argv (){1};
            ncid = gridio ("open", address, "nowrite");
            files = gridio_open_files ();
            printf ("%d\\n", isequal (struct2cell (files), {ncid; address; "read"; "DAP2"; "closed"}));
            gridio ("close", ncid);
            gridio_open_files ();
        """, f"http://127.0.0.1:{server.server_port}/good")
        self.assertEqual(printed, "1\nNo netCDF file is open.\n")

    def test_survives_a_classic_file_that_fails_to_close(self):
        def no_space():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096))
        printed = session(self, """
            ncid = gridio ("create", "big.nc", "clobber");
            gridio ("defVar", ncid, "v", gridio ("parameter", "NC_DOUBLE"), gridio ("defDim", ncid, "x", 1e5));
            try
              gridio ("close", ncid);
            catch failure
              disp (strtok (failure.message, "\\n"));
            end
            gridio_open_files ();
            gridio ("abort", ncid);
            gridio_open_files ();
        """, preexec_fn=no_space)
        self.assertRegex(printed, r"^close: 27: File too large\n +ncid .*\n +65536  write  classic +closed +big\.nc\n"
                                  r"No netCDF file is open\.\n$")

    def test_leaves_out_a_file_that_the_library_took_apart(self):
        # A written variable that is renamed to a dimension that is not its own keeps the library
        # from closing the file; many inquiries about it crash the library from then on.
        printed = session(self, """
            ncid = gridio ("create", "broken.nc", "netcdf4");
            x = gridio ("defDim", ncid, "x", 2);
            y = gridio ("defDim", ncid, "y", 3);
            v = gridio ("defVar", ncid, "v", 6, [x y]);
            gridio ("endDef", ncid);
            try gridio ("renameVar", ncid, v, "x"); end
            for k = 1:3
              try
                gridio ("close", ncid);
              catch failure
                disp (strsplit (failure.message, ": "){2});
              end
            end
            gridio_open_files ();
        """)
        self.assertRegex(printed, r"^(NC_EHDFERR\n)+(NC_EBADID\n)+No netCDF file is open\.\n$")

    def test_changes_nothing(self):
        printed = session(self, """
            ncid = gridio ("create", "a.nc", "clobber");
            gridio ("defDim", ncid, "x", 3);
            gridio_open_files ();
            gridio ("defDim", ncid, "y", 3);   % still in define mode
            gridio ("endDef", ncid);
            gridio ("setFill", ncid, gridio ("parameter", "NC_NOFILL"));
            before = dir ("a.nc");
            gridio_open_files ();
            disp (isequal (dir ("a.nc"), before));
            disp (gridio ("setFill", ncid, gridio ("parameter", "NC_NOFILL")) == gridio ("parameter", "NC_NOFILL"));
            disp (gridio ("inq", ncid));
            gridio ("close", ncid);
        """)
        self.assertEqual([line for line in printed.splitlines() if line.isdigit()], ["1", "1", "2"])

    def test_says_when_there_is_no_gridio(self):
        printed = session(self, "try, gridio_open_files (), catch failure, disp (failure.identifier), end",
                          folders=[INST])
        self.assertEqual(printed, "Ovard:gridio:host:notOnPath\n")


class Version(unittest.TestCase):
    def test_its_own_tests_pass(self):
        printed = session(self, 'printf ("%d of %d\\n", nthargout (1:2, @test, "gridio_version", "quiet"){:});')
        passed, total = map(int, re.search(r"(\d+) of (\d+)", printed).groups())
        self.assertEqual(passed, total)
        self.assertGreater(total, 3)

    def test_reports_what_the_tools_of_the_library_say(self):
        config = {option: subprocess.run(["nc-config", f"--{option}"], capture_output=True, text=True).stdout.strip()
                  for option in ("version", "has-dap2", "has-dap4", "has-nczarr", "has-cdf5", "has-parallel")}
        with tempfile.TemporaryDirectory() as folder:
            made = f"{folder}/made.nc"
            subprocess.run(["ncgen", "-k", "nc4", "-o", made], input="netcdf made {}", text=True, check=True)
            header = subprocess.run(["ncdump", "-s", "-h", made], capture_output=True, text=True).stdout
        printed = session(self, """
            found = gridio_version ();
            printf ("%s|%s|%s|%s|", found.gridio, found.netcdf, found.netcdf_built_with, found.hdf5);
            f = found.features;
            printf ("%d", f.dap2, f.dap4, f.zarr, f.cdf5, f.parallel);
        """)
        version = config["version"].split()[1]
        features = "".join(str(int(config[f"has-{name}"] == "yes"))
                           for name in ("dap2", "dap4", "nczarr", "cdf5", "parallel"))
        hdf5 = re.search(r"hdf5=([\d.]+)", header)[1]
        own = (ROOT / "VERSION").read_text().strip()
        self.assertEqual(printed, "|".join((own, version, version, hdf5, features)))

    def test_prints_a_report_and_keeps_nothing_loaded(self):
        printed = session(self, IS_MAPPED + "gridio_version ();\ndisp (is_mapped ());\n")
        self.assertRegex(printed, r"^gridio   \d+\.\d+\.\d+\nnetCDF   \d\S+\nHDF5     \d\S+\n"
                                  r"( +from \S+; also loaded: .+\n)?Octave   \d\S+\n"
                                  r"system   \S+\nfeatures (\w+ ?)+(; not:( \w+)+)?\n"
                                  rf"filters  (\w+ ?)+(; not:( \w+)+)?\nexamples {ROOT}/examples\n0\n$")

    def test_names_the_folder_of_the_examples(self):
        printed = session(self, """
            addpath (fullfile (gridio_version ().examples, "shared"));
            puts (which ("selection"));
        """)
        self.assertEqual(printed, str(ROOT / "examples" / "shared" / "selection.m"))


class Manual(unittest.TestCase):
    """In a copy of the source tree that has a manual or not; the installed package's is checked by check.m."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tree = pathlib.Path(folder.name, "a tree, (ünïcode) & 'more'")
        self.inst = self.tree / "hosts" / "octave" / "inst"
        shutil.copytree(INST, self.inst)
        self.page = self.tree / "dist" / "manual" / "html" / "index.html"
        self.tools = pathlib.Path(folder.name, "tools")
        self.tools.mkdir()
        self.opened = pathlib.Path(folder.name, "opened")

    def make_page(self):
        self.page.parent.mkdir(parents=True)
        self.page.write_text("<!DOCTYPE html>")

    def add_browser(self):
        browser = self.tools / "xdg-open"
        browser.write_text(f'#!/bin/sh\nprintf "%s" "$*" >"{self.opened}.part" && mv "{self.opened}.part" "{self.opened}"\n')
        browser.chmod(0o755)

    def shown(self, code="gridio_manual ();", **environment):
        kept = {key: value for key, value in os.environ.items() if "DISPLAY" not in key}
        path = f"{self.tools}:/usr/bin:/bin" if (self.tools / "xdg-open").exists() else str(self.tools)
        command = interpreter.command("--eval", code, folders=[self.inst])
        done = subprocess.run(command, capture_output=True, text=True, stdin=subprocess.DEVNULL,
                              env={**kept, "OCTAVE_HISTFILE": os.devnull, "PATH": path, **environment})
        self.assertEqual((done.returncode, done.stderr), (0, ""), done)
        return done.stdout

    def test_its_own_tests_pass(self):
        self.make_page()
        printed = self.shown('printf ("%d of %d\\n", nthargout (1:2, @test, "gridio_manual", "quiet"){:});')
        self.assertEqual(printed, "3 of 3\n")

    def test_says_how_to_make_it_when_there_is_none(self):
        self.assertIn('"./gridio manual", in the source tree of gridio, makes it', self.shown())
        self.assertEqual(self.shown("disp (isempty (gridio_manual ()));"), "1\n")

    def test_prints_its_place_without_a_display_or_a_browser(self):
        self.make_page()
        expected = f"The manual: {self.page}\n"
        self.assertEqual(self.shown(DISPLAY=":99"), expected)
        self.add_browser()
        self.assertEqual(self.shown(), expected)
        self.assertFalse(self.opened.exists())
        self.assertEqual(self.shown("puts (gridio_manual ());", DISPLAY=":99"), str(self.page))
        self.assertFalse(self.opened.exists())

    def test_opens_in_the_browser_of_a_display(self):
        self.make_page()
        self.add_browser()
        for display in ("DISPLAY", "WAYLAND_DISPLAY"):
            self.shown(**{display: "0"})
            deadline = time.monotonic() + 30
            while not self.opened.exists() and time.monotonic() < deadline:
                time.sleep(0.02)
            self.assertEqual(self.opened.read_text(), "file://" + urllib.parse.quote(str(self.page)))
            self.opened.unlink()


if __name__ == "__main__":
    unittest.main()
