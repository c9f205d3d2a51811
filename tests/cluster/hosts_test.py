# SPDX-License-Identifier: BSD-3-Clause
"""gridio_reduce under mpirun on two hosts: hosts_test.py LIBRARY, with the launcher in MPIEXEC. Status 77, with the reason,
where network namespaces cannot be made."""
import os
import subprocess
import sys
import unittest

from cluster_case import HERE, ClusterCase, is_masked, run_in

HOSTS = ("10.77.7.1:2", "10.77.7.2:2")


class Hosts(ClusterCase):
    def ranks(self, *words, **variables):
        agent = os.environ["LAUNCH_AGENT"]
        launch = {"openmpi": ["--mca", "plm_rsh_agent", agent, "--host"],
                  "mpich": ["-launcher", "ssh", "-launcher-exec", agent, "-iface", "veth0", "-hosts"]}[LIBRARY]
        return run_in(self.folder, [os.environ["MPIEXEC"], *launch, ",".join(HOSTS), "-n", "4", *self.reduction("mpi", *words)],
                      OMPI_ALLOW_RUN_AS_ROOT="1", OMPI_ALLOW_RUN_AS_ROOT_CONFIRM="1", **variables)

    def test_give_the_same_bits(self):
        rows = self.results(self.ranks("good"))
        self.assertEqual([(row["hash"], row["ranks"]) for row in rows], 4 * [(self.wanted, "4")])

    def test_names_the_host_when_a_partial_fails(self):
        done = self.ranks("raises", BAD="f11.nc")
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("error: rank 3 of 4 on hosttwo: f11.nc: this file is bad", done.stderr)


if __name__ == "__main__":
    LIBRARY = sys.argv.pop()
    if is_masked(LIBRARY):
        print("the interpreter has loaded another MPI library")
        sys.exit(77)
    if "LAUNCH_AGENT" not in os.environ:
        sys.exit(subprocess.run([HERE / "two_hosts_on_this_machine.sh", sys.executable, "-B", __file__, LIBRARY]).returncode)
    unittest.main()
