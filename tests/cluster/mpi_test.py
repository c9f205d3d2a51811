# SPDX-License-Identifier: BSD-3-Clause
"""gridio_reduce under mpirun: mpi_test.py LIBRARY, with the launcher in MPIEXEC."""
import os
import sys
import unittest

from cluster_case import ClusterCase, is_masked, run_in


class Mpi(ClusterCase):
    def ranks(self, count, *words, **variables):
        launch = [os.environ["MPIEXEC"], *(["--oversubscribe"] if LIBRARY == "openmpi" else []), "-n", str(count)]
        # On a busy machine a rank needs more than the usual second between the signal that ends it and the one that kills it.
        patience = {f"{name}_MCA_odls_base_sigkill_timeout": "3" for name in ("OMPI", "PRTE")}
        return run_in(self.folder, [*launch, *self.reduction("mpi", *words)], OMPI_ALLOW_RUN_AS_ROOT="1",
                      OMPI_ALLOW_RUN_AS_ROOT_CONFIRM="1", **patience, **variables)

    def test_gives_every_rank_the_same_bits_whatever_their_number(self):
        for count in (1, 2, 3, 7):
            rows = self.results(self.ranks(count, "good"))
            self.assertEqual(sorted(row["rank"] for row in rows), [str(rank) for rank in range(count)])
            for row in rows:
                self.assertEqual((row["hash"], row["ranks"]), (self.wanted, str(count)))
                self.assertEqual(row["libraries"], self.libraries, "no further HDF5 in the process")
        self.assert_time_mean_agrees_with_cdo()

    def test_names_rank_and_file_when_a_partial_fails(self):
        done = self.ranks(3, "raises", BAD="f08.nc")
        self.assertNotEqual(done.returncode, 0)
        self.assertRegex(done.stderr, r"error: rank 2 of 3 on \S+: f08.nc: this file is bad")

    def test_names_what_each_rank_was_at_when_one_is_killed_and_goes_on(self):
        # On a busy machine MPICH's launcher once waited without end for the other ranks: it gives up after this many seconds.
        done = self.ranks(3, "dies", "folder", "kept", BAD="f10.nc", MPIEXEC_TIMEOUT="30")
        self.assertNotEqual(done.returncode, 0)
        if LIBRARY == "openmpi":  # the other launcher kills at once
            self.assertIn("gridio_reduce: rank 2 of 3 was at f10.nc", done.stderr)
        before = self.left_in("kept")
        self.assertGreaterEqual(before, 2)
        (self.folder / "mended").touch()
        rows = self.results(self.ranks(3, "good", "folder", "kept"))
        self.assertEqual({row["hash"] for row in rows}, {self.wanted})
        self.assertEqual(self.left_in("kept"), 11)

    def test_ends_when_a_rank_ends_before_the_others(self):
        if LIBRARY == "openmpi":
            for rank in "02":
                done = self.ranks(3, "leaves", BAD=rank)
                self.assertNotEqual(done.returncode, 0)
                self.assertIn(f"error: rank {rank} of 3 ended before the others", done.stderr)

    def test_says_so_without_a_launcher(self):
        done = run_in(self.folder, self.reduction("mpi", "good"))
        self.assertEqual(done.returncode, 1)
        self.assertIn('error: place "mpi" needs a launcher', done.stderr)


class MaskedMpi(Mpi):
    def test_is_named_in_an_error(self):
        done = self.ranks(2, "good")
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("error: this interpreter has loaded another MPI library", done.stderr)


if __name__ == "__main__":
    LIBRARY = sys.argv.pop()
    unittest.main(defaultTest="MaskedMpi.test_is_named_in_an_error" if is_masked(LIBRARY) else "Mpi")
