# SPDX-License-Identifier: BSD-3-Clause
"""gridio_reduce by jobs of a Slurm that the test starts itself. Status 77, with the reason, where that cannot run."""
import os
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest

from cluster_case import HERE, ClusterCase, run_in

LATER = """
job = gridio_reduce ("f*.nc", @(files) struct ("n", numel (files)), @(a, b) struct ("n", a.n + b.n), "on", "slurm", ...
                     "tasks", 2, "folder", "later", "wait", false);
again = gridio_reduce ("f*.nc", @(files) struct ("n", numel (files)), @(a, b) struct ("n", a.n + b.n), "on", "slurm", ...
                       "tasks", 2, "folder", "later", "wait", false);
printf ("%d jobs, the same %d, %s, %d files, %s\\n", numel (job.jobs), isequal (job.jobs, again.jobs), ...
        merge (any (strcmp (job.state (), {"waiting", "running"})), "at work", "too early"), job.fetch ().n, job.state ());
job = gridio_reduce ("f*.nc", @(files) pause (20), @(a, b) a, "on", "slurm", "folder", "long", "wait", false);
job.cancel ();
printf ("%s\\n", job.state ());
"""


class Slurm(ClusterCase):
    def test_gives_the_same_bits_and_leaves_nothing(self):
        before = sorted(path.name for path in self.folder.iterdir())
        done = run_in(self.folder, self.reduction("slurm", "good", "tasks", "3"))
        self.assertEqual(self.result(done)["hash"], self.wanted)
        self.assertEqual(sorted(path.name for path in self.folder.iterdir() if path.name != "mean.nc"), before)

    def test_names_task_and_file_and_goes_on_after_a_failure(self):
        done = run_in(self.folder, self.reduction("slurm", "raises", "tasks", "3", "folder", "kept"), BAD="f08.nc")
        self.assertEqual(done.returncode, 1)
        self.assertIn("error: task 2: f08.nc: this file is bad", done.stderr)
        self.go_on(10)

    def test_names_task_and_file_of_a_task_that_is_killed(self):
        done = run_in(self.folder, self.reduction("slurm", "dies", "tasks", "3", "folder", "kept"), BAD="f10.nc")
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr, r"error: task 2 of job \d+ ended without a result at f10.nc; its log is ")
        self.go_on(10)

    def go_on(self, most):
        """Only the partials that are missing are made."""
        old = {path.name: path.stat().st_mtime_ns for path in (self.folder / "kept").glob("partial-*")}
        self.assertTrue(3 <= len(old) <= most, old)
        (self.folder / "mended").touch()
        done = run_in(self.folder, self.reduction("slurm", "good", "folder", "kept"))
        self.assertEqual(self.result(done)["hash"], self.wanted)
        self.assertEqual(self.left_in("kept"), 11)
        for name, when in old.items():
            self.assertEqual((self.folder / "kept" / name).stat().st_mtime_ns, when)

    def test_gives_every_rank_that_srun_starts_the_same_bits(self):
        for interface, library in (("pmi2", "mpich"), ("pmix", "openmpi")):
            if (pathlib.Path(os.environ["GRIDIO_OCT_DIR"]) / f"__gridio_{library}__.oct").exists():
                rows = self.results(run_in(self.folder, ["srun", f"--mpi={interface}", "-n", "3",
                                                         *self.reduction("mpi", "good")]))
                self.assertEqual(sorted(row["rank"] for row in rows), ["0", "1", "2"], library)
                self.assertEqual({(row["hash"], row["ranks"]) for row in rows}, {(self.wanted, "3")}, library)

    def test_returns_functions_to_ask_later(self):
        (self.folder / "later.m").write_text(LATER)
        done = run_in(self.folder, self.octave("later.m"))
        self.assertEqual((done.stdout, done.stderr), ("2 jobs, the same 1, at work, 11 files, done\nfailed\n", ""))


if __name__ == "__main__":
    if sys.argv[-1] != "--inside":
        with tempfile.TemporaryDirectory() as folder:
            sys.exit(subprocess.run([HERE / "slurm_on_this_machine.sh", folder, sys.executable, "-B", __file__,
                                     "--inside"]).returncode)
    sys.argv.pop()
    unittest.main()
