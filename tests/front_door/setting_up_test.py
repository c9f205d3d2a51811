# SPDX-License-Identifier: BSD-3-Clause
"""./gridio: installing packages, and trees that cannot be written or that another run is using."""
import fcntl
import os
import re
import unittest

from front_door_case import FrontDoorTest


class Packages(FrontDoorTest):
    def setUp(self):
        super().setUp()
        (self.sandbox.home / "script.m").touch()

    def run_empty(self):
        return self.gridio("run", "script.m")

    def test_nothing_is_asked_when_all_is_there(self):
        self.sandbox.install_everything()
        self.sandbox.remove("network")
        self.sandbox.remove("apt-get")
        self.sandbox.remove("sudo")
        self.assertEqual(self.run_empty().returncode, 0)
        self.assertEqual(self.sandbox.log("apt-get"), [])

    def test_says_what_is_missing_and_why_before_installing_it(self):
        self.sandbox.install_everything()
        installed = self.sandbox.machine / "installed"
        installed.write_text(installed.read_text().replace("cmake\n", "").replace("libboost-dev\n", ""))
        self.sandbox.write("lists")
        done = self.run_empty()
        self.assertEqual(done.stderr.splitlines()[:3], [
            "gridio: needs the package cmake: configures the build",
            "gridio: needs the package libboost-dev: range-checked number conversions (headers only)",
            "gridio: installing 2 packages from Debian, with what they need"])
        self.assertRegex(self.sandbox.log("apt-get")[-1],
                         "--no-install-recommends --no-remove install cmake libboost-dev$")
        self.assertEqual((done.returncode, done.stdout), (0, ""))

    def test_run_does_not_install_what_only_tests_need(self):
        self.assertEqual(self.run_empty().returncode, 0)
        self.assertNotIn("libgtest-dev", (self.sandbox.machine / "installed").read_text())
        self.assertEqual(self.gridio("test").returncode, 0)
        self.assertIn("libgtest-dev", (self.sandbox.machine / "installed").read_text())

    def test_the_package_needs_what_makes_the_manual(self):
        self.gridio("package")
        installed = (self.sandbox.machine / "installed").read_text()
        self.assertIn("texinfo", installed)
        self.assertNotIn("libgtest-dev", installed)

    def test_bench_installs_the_binding_to_compare_with_only_when_asked(self):
        installed = self.sandbox.machine / "installed"
        self.gridio("bench")
        self.assertIn("valgrind", installed.read_text())
        self.assertNotIn("python3-netcdf4", installed.read_text())
        self.gridio("bench", "--peers")
        self.assertIn("python3-netcdf4", installed.read_text())

    def test_lists_are_fetched_only_when_a_package_is_unknown(self):
        self.assertEqual(self.run_empty().returncode, 0)
        self.assertEqual(sum("update" in call for call in self.sandbox.log("apt-get")), 1)
        self.sandbox.write("log", "")
        self.sandbox.write("installed", "")
        self.assertEqual(self.run_empty().returncode, 0)
        self.assertEqual(sum("update" in call for call in self.sandbox.log("apt-get")), 0)

    def test_lists_are_renewed_when_the_packages_they_name_are_gone(self):
        self.sandbox.write("lists")
        self.sandbox.write("stale")
        self.assertEqual(self.run_empty().returncode, 0)
        self.assertEqual(sum("update" in call for call in self.sandbox.log("apt-get")), 1)

    def test_root_needs_no_sudo_and_others_use_it(self):
        self.sandbox.write("uid", "1000")
        self.assertEqual(self.run_empty().returncode, 0)
        check, *calls = self.sandbox.log("sudo")
        self.assertEqual(check, "sudo -n true")
        self.assertTrue(all("apt-get" in call for call in calls))
        self.assertEqual(len(calls), 2)
        self.sandbox.write("uid", "0")
        self.sandbox.write("installed", "")
        self.sandbox.remove("sudo")
        self.assertEqual(self.run_empty().returncode, 0)

    def test_one_clear_line_without_sudo(self):
        self.sandbox.write("uid", "1000")
        self.sandbox.remove("sudo")
        self.assert_last_line(self.run_empty(), "sudo is missing, so run this as root: apt-get install")
        self.assertEqual(self.sandbox.log(), [])

    def test_one_clear_line_without_apt(self):
        self.sandbox.remove("apt-get")
        self.assert_last_line(self.run_empty(), "apt-get is missing, so install by hand: g++ cmake")

    def test_a_package_that_apt_does_not_know_is_done_without_where_the_table_says_so(self):
        self.sandbox.install_everything()
        installed = self.sandbox.machine / "installed"
        installed.write_text(installed.read_text().replace("clang-format-14\n", ""))
        self.assertEqual(self.gridio("test").returncode, 0)  # without lists
        self.assertNotIn("clang-format-14", installed.read_text())
        self.sandbox.write("lists")
        self.assertEqual(self.gridio("test").returncode, 0)
        self.assertIn("clang-format-14", installed.read_text())

    def test_asks_for_a_password_once(self):
        self.sandbox.write("uid", "1000")
        self.sandbox.write("password")
        done = self.run_empty()
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("sudo may ask for your password", done.stderr)
        self.assertEqual(sum("-v" in call for call in self.sandbox.log("sudo")), 1)

    def test_fails_once_without_rights_and_says_why(self):
        self.sandbox.write("uid", "1000")
        self.sandbox.write("password")
        self.sandbox.write("no_rights")
        done = self.run_empty()
        self.assert_last_line(done, "sudo gives no rights to install packages, so have root run: apt-get install")
        self.assertIn("Sorry, user ada may not run sudo on sea.", done.stderr)
        self.assertEqual(self.sandbox.log("sudo"), ["sudo -n true", "sudo -v"])
        self.assertEqual(self.sandbox.log("apt-get"), [])

    def test_takes_what_draws_already_and_removes_nothing(self):
        self.sandbox.install_everything()
        installed = self.sandbox.machine / "installed"
        for other in ("gnuplot-qt", "gnuplot-x11"):
            installed.write_text(installed.read_text().replace("gnuplot-nox\n", other + "\n"))
            self.assertEqual(self.run_empty().returncode, 0)
            self.assertEqual(self.sandbox.log("apt-get"), [])
            installed.write_text(installed.read_text().replace(other + "\n", "gnuplot-nox\n"))
        installed.write_text(installed.read_text().replace("gnuplot-nox\n", "gnuplot-data\n"))
        self.assertEqual(self.run_empty().returncode, 0)
        self.assertRegex(self.sandbox.log("apt-get")[-1], "--no-remove install gnuplot-nox$")

    def test_says_how_much_is_fetched(self):
        self.sandbox.write("lists")
        self.sandbox.write("extent", "0 upgraded, 354 newly installed, 0 to remove and 14 not upgraded.\n"
                                     "Need to get 12 B/297 MB of archives.\n"
                                     "After this operation, 1,270 MB of additional disk space will be used.\n"
                                     "Do you want to continue? [Y/n] N\nAbort.\n")
        self.assertRegex(self.run_empty().stderr,
                         r"gridio: installing \d+ packages from Debian, 354 with what they need: "
                         r"12 B to fetch, 1,270 MB on disk\n")

    def test_output_of_apt_goes_to_a_log(self):
        self.sandbox.write("lists")
        done = self.run_empty()
        shown = [line for line in done.stderr.splitlines() if not line.startswith("gridio: needs")]
        self.assertRegex("\n".join(shown[:2]), r"\Agridio: installing \d+ packages from Debian, with what they need\n"
                                               r"gridio: building gridio \(the first time takes a minute or two\)\Z")
        log = (self.sandbox.tree / "build" / "install.log").read_text()
        self.assertRegex(log, r"^\n\d{4}-\d\d-\d\d \d\d:\d\d:\d\d apt-get install g\+\+ cmake [^\n]*\n"
                              r"Get:1 http://a\.mirror bookworm/main amd64 all\nUnpacking cmake \(3\.25\) \.\.\.\n$")

    def test_a_failure_shows_the_end_of_the_log_that_says_why(self):
        self.sandbox.write("lists")
        self.sandbox.write("unfit")
        done = self.run_empty()
        self.assert_last_line(done, f"apt's output is in {self.sandbox.tree}/build/install.log; by hand: apt-get install")
        self.assertEqual(done.stderr.splitlines()[-3:-1],
                         ["    dpkg: error processing package cmake (--configure):",
                          "    E: Sub-process /usr/bin/dpkg returned an error code (1)"])
        self.assertNotIn("Unpacking", done.stderr)

    def test_progress_is_one_line_on_a_terminal(self):
        self.sandbox.write("lists")
        status, shown = self.sandbox.on_a_terminal("run", "script.m")
        self.assertEqual(status, 0, shown)
        last = [re.split(r"\r(?!\n)", line) for line in shown.split("\n") if "%" in line]
        self.assertEqual(len(last), 1, shown)
        self.assertEqual([piece for piece in last[0] if piece.strip() and "%" in piece],
                         ["gridio: fetching, 12 %", "gridio: installing, 0 %", "gridio: installing, 50 %"])
        # The line is gone in the end, before another takes its place.
        self.assertRegex(shown, r"50 %\r +\rgridio: building gridio")
        self.sandbox.write("installed", "")
        self.assertNotIn("%", self.run_empty().stderr)

    def test_says_that_it_waits_for_another_program_that_installs(self):
        self.sandbox.write("lists")
        self.sandbox.write("locked")
        self.assertEqual(self.run_empty().stderr.count(
            "gridio: waiting for another program that installs packages: process 42 (aptitude)\n"), 1)

    def test_one_clear_line_without_network(self):
        self.sandbox.remove("network")
        done = self.run_empty()
        self.assert_last_line(done, "apt cannot install these packages (is the network up?)")
        self.assertIn("    Err:1 http://a.mirror Temporary failure\n", done.stderr)
        self.assertNotIn("Unable to locate", done.stderr)
        self.sandbox.write("lists")
        self.assert_last_line(self.run_empty(), "could not be installed (is the network up?)")


class Trees(FrontDoorTest):
    """Trees that cannot be written, or that another run is using."""

    COMMANDS = (["run", "script.m"], ["shell"], ["test"], ["manual"], ["package"], ["soak"], ["coverage"], ["bench"],
                ["fuzz"], ["format"])

    def setUp(self):
        super().setUp()
        (self.sandbox.home / "script.m").touch()

    def assert_refused(self, path):
        for command in self.COMMANDS:
            with self.subTest(command=command[0], path=path):
                done = self.sandbox.gridio_of_a_stranger(*command)
                self.assert_one_line(done, 1, f"cannot write to {path}")
        self.assertEqual(self.sandbox.log(), [])

    def test_are_reported_in_one_line_if_unwritable(self):
        self.sandbox.tree.chmod(0o555)
        self.assert_refused(self.sandbox.tree)
        self.sandbox.install_everything()
        self.assert_refused(self.sandbox.tree)

    def test_whose_build_folder_cannot_be_written_are_one_clear_line(self):
        self.sandbox.install_everything()
        self.sandbox.tree.chmod(0o777)
        for folder in ("build", "dist"):
            (self.sandbox.tree / folder).mkdir(mode=0o555)
        self.COMMANDS = [command for command in self.COMMANDS if command[0] not in ("manual", "package", "format")]
        self.assert_refused(self.sandbox.tree / "build")
        self.COMMANDS = (["manual"], ["package"])
        self.assert_refused(self.sandbox.tree / "dist")

    def test_are_reported_in_one_line_if_root_built_in_them(self):
        self.sandbox.tree.chmod(0o777)
        (self.sandbox.tree / "build").mkdir()
        (self.sandbox.tree / "build").chmod(0o777)
        for name in ("lock", "install.log"):
            (self.sandbox.tree / "build" / name).touch(mode=0o444)
            self.assert_one_line(self.sandbox.gridio_of_a_stranger("run", "script.m"), 1,
                                 f"cannot write to {self.sandbox.tree}/build/{name}")
            (self.sandbox.tree / "build" / name).unlink()
        (self.sandbox.tree / "build" / "release").mkdir(mode=0o555)
        self.assert_one_line(self.sandbox.gridio_of_a_stranger("run", "script.m"), 1,
                             f"cannot write to {self.sandbox.tree}/build/release")

    @unittest.skipUnless(os.getuid() == 0, "only root can make files that belong to others")
    def test_report_their_owner(self):
        self.sandbox.install_everything()
        (self.sandbox.tree / "build").mkdir()
        self.assert_one_line(self.sandbox.gridio_of_a_stranger("run", "script.m"), 1,
                             f"cannot write to {self.sandbox.tree}/build, which belongs to root")

    def test_are_reported_in_one_line_if_built_but_stale(self):
        self.sandbox.build_everything()
        self.sandbox.remove("built")
        (self.sandbox.tree / "build").chmod(0o555)
        self.assert_one_line(self.sandbox.gridio_of_a_stranger("run", "script.m"), 1, "cannot write to")

    def test_report_the_missing_package_if_built(self):
        self.sandbox.build_everything()
        installed = self.sandbox.machine / "installed"
        installed.write_text(installed.read_text().replace("ghostscript\n", ""))
        (self.sandbox.tree / "build").chmod(0o555)
        self.assert_one_line(self.sandbox.gridio_of_a_stranger("run", "script.m"), 1,
                             "where the package ghostscript is missing")

    def held(self):
        (self.sandbox.tree / "build").mkdir(exist_ok=True)
        lock = open(self.sandbox.tree / "build" / "lock", "w")
        self.addCleanup(lock.close)
        fcntl.flock(lock, fcntl.LOCK_EX)
        return lock

    def assert_waits(self, lock, meanwhile):
        with self.sandbox.start("run", "script.m") as process:
            self.assertEqual(process.stderr.readline(),
                             "gridio: waiting for another ./gridio that is running in this tree\n")
            meanwhile()
            lock.close()
            rest = process.communicate(timeout=60)
        self.assertEqual((process.returncode, *rest), (0, "", ""))

    def test_where_another_run_builds_are_waited_for(self):
        self.sandbox.install_everything()
        release = self.sandbox.tree / "build" / "release"

        def build():
            release.mkdir()
            (release / "build.ninja").touch()
            (release / "CMakeCache.txt").write_text(f"CMAKE_HOME_DIRECTORY:INTERNAL={self.sandbox.tree}\n")
            self.sandbox.write("built")
        self.assert_waits(self.held(), build)
        self.assertEqual(self.sandbox.log("cmake"), [])

    def test_where_another_run_installs_are_waited_for(self):
        self.sandbox.build_everything()
        self.sandbox.write("installed")
        self.assert_waits(self.held(), self.sandbox.install_everything)
        self.assertEqual(self.sandbox.log("apt-get"), [])


if __name__ == "__main__":
    unittest.main()
