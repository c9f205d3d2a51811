# SPDX-License-Identifier: BSD-3-Clause
"""What the tests of gridio_reduce share: a folder of packed and compressed files, and runs of reduce_files.m in it."""
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

from interpreter import INST, command, environment, oct_folder

HERE = pathlib.Path(__file__).resolve().parent
MADE = """
for k = 1:11
  [x, y] = ndgrid (1:30, 1:20);
  v = round (1000 * sin (x .* y + k)) / 100;
  v(x == k) = NaN;
  ds = gridio_dataset (sprintf ("f%02d.nc", k), "new");
  ds.put ("time", datenum (2001, 1, k), "time", "units", "days since 2000-01-01", "_Unlimited", true);
  ds.put ("v", v, {"x", "y", "time"}, "scale_factor", 0.01, "_Type", "short", "_DeflateLevel", 1);
  clear ds
end
"""


def run_in(folder, words, timeout=60, **variables):
    with tempfile.TemporaryDirectory() as home:
        return subprocess.run(words, cwd=folder, stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=timeout,
                              env={**environment(home), **variables})


def is_masked(library):
    """Whether the interpreter has loaded another MPI library, as one does that has an HDF5 for MPI."""
    done = subprocess.run(command(None, "--eval", f'disp (__gridio_{library}__ ("isOwn"))'), capture_output=True, text=True, check=True)
    return done.stdout != "1\n"


class ClusterCase(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.base = tempfile.TemporaryDirectory()
        cls.files = pathlib.Path(cls.base.name, "files")
        cls.files.mkdir()
        pathlib.Path(cls.base.name, "make.m").write_text(MADE)
        done = run_in(cls.files, cls.octave("../make.m"))
        assert done.returncode == 0, done
        here = cls.result(run_in(cls.files, cls.octave(HERE / "reduce_files.m", "here", "good")))
        cls.wanted, cls.libraries = here["hash"], here["libraries"]

    @classmethod
    def tearDownClass(cls):
        cls.base.cleanup()

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(dir=self.base.name))
        for path in self.files.glob("f*.nc"):
            shutil.copy2(path, self.folder)

    @staticmethod
    def octave(*words):
        return command(*words, folders=(oct_folder(), INST))

    @staticmethod
    def reduction(*words):
        return ClusterCase.octave(HERE / "reduce_files.m", *words)

    @staticmethod
    def results(done):
        assert done.returncode == 0, done
        rows = re.findall(r"rank (\d+) of (\d+): (\w+), 11 files, (\d+) bins, libraries (\d+)\n", done.stdout)
        return [dict(zip(("rank", "ranks", "hash", "bins", "libraries"), row)) for row in rows]

    @staticmethod
    def result(done):
        rows = ClusterCase.results(done)
        assert len(rows) == 1, done
        return rows[0]

    def assert_time_mean_agrees_with_cdo(self):
        """CDO's own mean of the joined files, as text. CDO 2.5 unpacks in single precision."""
        run = lambda *words: subprocess.run(words, cwd=self.folder, capture_output=True, text=True, check=True).stdout
        run("cdo", "-s", "mergetime", *sorted(path.name for path in self.folder.glob("f*.nc")), "all.nc")
        found = run("cdo", "-s", "outputf,%.10g,1", "mean.nc").split()
        wanted = run("cdo", "-s", "-b", "F64", "outputf,%.10g,1", "-timmean", "all.nc").split()
        self.assertEqual(len(found), 600)
        for one, other in zip(found, wanted):
            self.assertAlmostEqual(float(one), float(other), delta=1e-6 * max(1, abs(float(other))))

    def left_in(self, folder):
        """Whole partials; one that was being written by a process that was killed has a longer name."""
        return len([path for path in pathlib.Path(self.folder, folder).glob("partial-*") if "." not in path.name])
