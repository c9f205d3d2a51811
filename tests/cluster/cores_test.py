# SPDX-License-Identifier: BSD-3-Clause
"""gridio_reduce by several processes of this machine: bits, failures, and what is left behind."""
import os
import pathlib
import pty
import signal
import subprocess
import time
import unittest

from cluster_case import ClusterCase, run_in
from interpreter import environment


def workers():
    """The processes that gridio_reduce has started for this test's process, by what their command lines say."""
    found = []
    for path in pathlib.Path("/proc").glob("[0-9]*/cmdline"):
        try:
            if b"__gridio_reduce_worker__" in path.read_bytes() and int((path.parent / "stat").read_text().split()[3]):
                found.append(path.parent.name)
        except (OSError, IndexError):
            pass
    return set(found)


class Cores(ClusterCase):
    def test_give_the_same_bits_whatever_their_number(self):
        for count in ("1", "2", "3", "16"):
            done = run_in(self.folder, self.reduction("cores", "good", "workers", count))
            self.assertEqual((self.result(done)["hash"], done.stderr), (self.wanted, ""))
        self.assert_time_mean_agrees_with_cdo()

    def test_name_the_file_of_a_failure_and_go_on(self):
        for what, said in (("raises", "error: f08.nc: this file is bad"),
                           ("dies", r"error: worker \d \(process \d+\) ended by signal 9 at f08.nc")):
            done = run_in(self.folder, self.reduction("cores", what, "workers", "2", "folder", "kept" + what), BAD="f08.nc")
            self.assertEqual(done.returncode, 1)
            self.assertRegex(done.stderr, said)
            self.assertTrue(1 <= self.left_in("kept" + what) <= 10)
        (self.folder / "mended").touch()
        done = run_in(self.folder, self.reduction("here", "good", "folder", "keptdies"))
        self.assertEqual(self.result(done)["hash"], self.wanted)

    def test_name_a_damaged_file(self):
        (self.folder / "f05.nc").write_bytes((self.folder / "f05.nc").read_bytes()[:900])
        done = run_in(self.folder, self.reduction("cores", "good", "bin", "4"))
        self.assertRegex(done.stderr, r"error: f05.nc: ")

    @unittest.skipUnless(os.geteuid() == 0, "a full disk needs root")
    def test_keep_no_half_of_a_partial_on_a_full_disk(self):
        full = ["unshare", "--mount", "sh", "-c", 'mkdir kept && mount -t tmpfs -o size=32k none kept && "$@"; ls kept', "sh"]
        done = run_in(self.folder, [*full, *self.reduction("cores", "good", "workers", "1", "folder", "kept")])
        self.assertRegex(done.stderr, r"error: cannot write the \d+ bytes of '.*/kept/partial-\w+': is the disk full\?")
        self.assertRegex(done.stdout, r"^(partial-\w{32}\n)*$")

    def test_are_gone_after_interrupts_and_kills(self):
        for how in (signal.SIGINT, signal.SIGTERM, signal.SIGKILL):
            before = workers()
            (self.folder / "waiting").unlink(missing_ok=True)
            process = subprocess.Popen(self.reduction("cores", "waits", "workers", "2", "folder", f"kept{how}"), cwd=self.folder,
                                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                       env={**environment(), "BAD": "f03.nc"})
            self.wait_until((self.folder / "waiting").exists)
            self.assertEqual(len(workers() - before), 2)
            process.send_signal(how)
            self.assertNotEqual(process.wait(20), 0)
            self.wait_until(lambda: not workers() - before)
            self.assertFalse([name for name in os.listdir(self.folder / f"kept{how}") if not name.startswith("partial-")])

    def test_show_progress_on_a_terminal_alone(self):
        master, slave = pty.openpty()
        done = subprocess.run(self.reduction("here", "slow"), cwd=self.folder, stdin=subprocess.DEVNULL, stdout=slave,
                              stderr=slave, env=environment(), timeout=60)
        os.close(slave)
        shown = os.read(master, 65536).decode()
        os.close(master)
        self.assertEqual(done.returncode, 0)
        self.assertRegex(shown, r"\rgridio_reduce: [5-9] of 11 files, [\d.]+ a second, \d+ s left")
        self.assertRegex(shown, r"\r +\rrank 0 of 1: ")
        silent = run_in(self.folder, self.reduction("here", "slow"))
        self.assertEqual(silent.stderr, "")

    def wait_until(self, holds):
        end = time.monotonic() + 20
        while not holds():
            self.assertLess(time.monotonic(), end)
            time.sleep(0.05)


if __name__ == "__main__":
    unittest.main()
