# SPDX-License-Identifier: BSD-3-Clause
"""./gridio: what it says, what it installs and builds, and how scripts run through it."""
import fcntl
import os
import re
import sys
import unittest

from sandbox import ROOT, Sandbox

sys.path.insert(0, str(ROOT / "tests" / "examples"))
import picture  # noqa: E402


class FrontDoorTest(unittest.TestCase):
    def setUp(self):
        self.sandbox = Sandbox()
        self.addCleanup(self.sandbox.close)

    def gridio(self, *args, **options):
        return self.sandbox.gridio(*args, **options)

    def assert_one_line(self, done, status, text):
        self.assertEqual((done.returncode, done.stdout), (status, ""), done.stderr)
        self.assertEqual(len(done.stderr.splitlines()), 1, done.stderr)
        self.assertIn(text, done.stderr)

    def assert_last_line(self, done, text):
        self.assertEqual((done.returncode, done.stdout), (1, ""), done.stderr)
        self.assertTrue(done.stderr.splitlines()[-1].startswith("gridio: "), done.stderr)
        self.assertIn(text, done.stderr.splitlines()[-1])


class Commands(FrontDoorTest):
    def test_help_names_every_command(self):
        done = self.gridio("help")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        commands = re.findall(r"^command_(\w+)\(\)", (self.sandbox.tree / "gridio").read_text(), re.M)
        self.assertIn("run", commands)
        for command in commands:
            self.assertRegex(done.stdout, rf"(?m)^    {command}\b")

    def test_no_command_and_help_options_show_help(self):
        for args in ([], ["-h"], ["--help"]):
            self.assertEqual(self.gridio(*args).stdout, self.gridio("help").stdout)

    def test_unknown_command_is_one_line_and_status_2(self):
        for name in ("walk", "", "run ", "-x", "help;ls"):
            self.assert_one_line(self.gridio(name), 2, f"there is no command {name}")

    def test_a_bad_call_changes_nothing(self):
        self.assert_one_line(self.gridio("run"), 2, "run needs a script")
        self.assert_one_line(self.gridio("--version", "x"), 2, "--version takes no arguments")
        self.assert_one_line(self.gridio("shell", "x"), 2, "shell takes no arguments")
        self.assert_one_line(self.gridio("bench", "--fast"), 2, "bench takes no --fast")
        self.assert_one_line(self.gridio("bench", "--json"), 2, "--json needs a file")
        self.assert_one_line(self.gridio("package", "x"), 2, "package takes nothing but --check")
        self.assert_one_line(self.gridio("manual", "x"), 2, "manual takes no arguments")
        self.assertEqual(self.sandbox.log(), [])

    def test_a_missing_script_is_told_apart_from_one_that_cannot_be_read(self):
        folder = self.sandbox.home / "folder"
        folder.mkdir()
        for name in ("no.m", "no/such.m", "", "folder/no.m"):
            self.assert_one_line(self.gridio("run", name), 2, f"no such script: {name} (")
        self.assert_one_line(self.gridio("run", "folder"), 2, "cannot read the script folder")
        (folder / "hidden.m").touch()
        (folder / "hidden.m").chmod(0)
        self.assert_one_line(self.sandbox.gridio_of_a_stranger("run", "folder/hidden.m"), 2,
                             "cannot read the script folder/hidden.m")
        folder.chmod(0)
        self.assert_one_line(self.sandbox.gridio_of_a_stranger("run", "folder/no.m"), 2,
                             "cannot read the script folder/no.m")
        folder.chmod(0o755)

    def test_version_is_that_of_the_tree(self):
        (self.sandbox.tree / "VERSION").write_text("12.3.4\n")
        done = self.gridio("--version")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "gridio 12.3.4\n", ""))
        self.assertEqual(self.sandbox.log(), [])

    def test_shell_loads_gridio_and_keeps_its_history_out_of_home(self):
        self.sandbox.build_everything()
        done = self.gridio("shell", stdin="disp (exist ('gridio'))\nexit (5)\n")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (5, "3\n", ""))
        self.assertFalse((self.sandbox.home / "nobody").exists())

    def test_format_formats_the_sources_in_place(self):
        self.sandbox.install_everything()
        for name in ("src/a b.cpp", "build/made.cpp", ".git/odd.cpp", "src/notes.txt"):
            (self.sandbox.tree / name).parent.mkdir(exist_ok=True)
            (self.sandbox.tree / name).touch()
        self.assertEqual(self.gridio("format").returncode, 0)
        self.assertEqual(self.sandbox.log("clang-format"),
                         [f"clang-format -i --style=file {self.sandbox.tree}/src/a b.cpp"])


class Scripts(FrontDoorTest):
    """With everything installed and built, in the real interpreter."""

    def setUp(self):
        super().setUp()
        self.sandbox.build_everything()
        self.folder = self.sandbox.home / "it's a \"folder\""
        self.folder.mkdir()

    def script(self, text, name="script.m"):
        (self.folder / name).write_text(text)
        return name

    def run_script(self, text, *args, name="script.m", **options):
        done = self.gridio("run", self.script(text, name), *args, cwd=self.folder, **options)
        self.assertEqual(done.stderr, "")
        return done

    def test_arguments_arrive_exactly_as_argv(self):
        args = ["plain", "two words", "", "--help", "-x", "--", "it's", 'say "x"', "$HOME", "*", "\\n"]
        done = self.run_script('printf ("%d\\n", numel (argv ())); printf ("[%s]\\n", argv (){:});', *args)
        self.assertEqual(done.stdout, "".join([f"{len(args)}\n"] + [f"[{a}]\n" for a in args]))

    def test_exit_status_is_the_scripts(self):
        for status in (0, 1, 7, 255):
            self.assertEqual(self.run_script(f"exit ({status})").returncode, status)

    def test_an_uncaught_error_is_status_1(self):
        done = self.gridio("run", self.script("error ('this went wrong')"), cwd=self.folder)
        self.assertEqual(done.returncode, 1)
        self.assertIn("error: this went wrong", done.stderr)

    def test_gridio_is_loaded(self):
        done = self.run_script('puts (gridio ("inqLibVers"));')
        self.assertRegex(done.stdout, r"^4\.\d+\.\d+")

    def test_what_belongs_to_gridio_is_found(self):
        folder = self.sandbox.tree / "hosts" / "octave"
        folder.mkdir(parents=True)
        (folder / "inst").symlink_to(ROOT / "hosts" / "octave" / "inst")
        done = self.run_script('gridio_help ("close"); gridio_open_files ();')
        self.assertIn("nc_close", done.stdout)
        self.assertIn("No netCDF file is open.", done.stdout)

    def test_nothing_stands_between_a_user_and_the_output(self):
        done = self.run_script('puts ("only this");')
        self.assertEqual((done.stdout, done.stderr), ("only this", ""))
        self.assertEqual(self.sandbox.log(), [])

    def test_nothing_is_written_to_home(self):
        self.run_script("1;")
        self.assertFalse((self.sandbox.home / "nobody").exists())

    def test_startup_files_are_not_read(self):
        (self.folder / ".octaverc").write_text("disp ('a startup file')")
        self.assertEqual(self.run_script("1;").stdout, "")

    def test_input_reaches_the_script(self):
        self.assertEqual(self.run_script('disp (2 * input (""))', stdin="21\n").stdout, "42\n")

    def test_paths_are_relative_to_the_callers_folder(self):
        (self.folder / "data").write_text("some data")
        text = 'puts (fileread (argv (){1}));'
        self.assertEqual(self.run_script(text, "data").stdout, "some data")
        for name in ('it\'s "quoted".m', "-dash.m", "ünïcode.m"):
            self.assertEqual(self.run_script(text, "data", name=name).stdout, "some data")

    def test_works_through_symbolic_links(self):
        (self.sandbox.home / "bin").mkdir()
        link = self.sandbox.home / "bin" / "sea data"
        link.symlink_to("../tree/gridio")
        (self.sandbox.home / "link to link").symlink_to(link)
        for command in (link, "../link to link"):
            done = self.gridio("run", self.script("disp (exist ('gridio'))"), command=command,
                               cwd=self.folder)
            self.assertEqual((done.stdout, done.stderr), ("3\n", ""))

    def test_draws_plots_without_a_display(self):
        # What Debian's packages bring beside the interpreter: a shell, gnuplot and ghostscript.
        for tool in ("gnuplot", "gs", "uname", "rm"):
            self.sandbox.add_tool(tool)
        done = self.gridio("run", self.script("""
            figure ("visible", "off");
            plot (1:10, (1:10) .^ 2);
            title ("squares");
            print ("squares.png", "-dpng");
        """), cwd=self.folder)
        self.assertEqual(done.returncode, 0, done)
        self.assertNotIn("font", done.stderr)
        pixels = picture.read_png(self.folder / "squares.png")
        self.assertGreater(len(pixels), 300)
        drawn = sum(pixel != (255, 255, 255) for row in pixels for pixel in row)
        self.assertGreater(drawn, 1000)

    def test_run_from_a_tree_that_cannot_be_written(self):
        release = self.sandbox.tree / "build"
        for folder in (self.sandbox.tree, release, release / "release"):
            folder.chmod(0o555)
        (self.sandbox.home / "script.m").write_text('disp (exist ("gridio"))')
        done = self.sandbox.gridio_of_a_stranger("run", "script.m")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "3\n", ""))

    def test_works_in_a_tree_with_blanks_in_its_name(self):
        self.sandbox = Sandbox("the  ünïcode (tree) #1")
        self.addCleanup(self.sandbox.close)
        self.sandbox.build_everything()
        self.assertEqual(self.run_script("disp (exist ('gridio'));").stdout, "3\n")


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
        self.sandbox.remove("dpkg-query")
        self.assert_one_line(self.run_empty(), 1, "dpkg-query is missing")

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
        self.assertEqual([line for line in done.stderr.splitlines() if not line.startswith("gridio: needs")][:2],
                         ["gridio: installing 11 packages from Debian, with what they need",
                          "gridio: building gridio (the first time takes a minute or two)"])
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
        self.assert_last_line(done, "apt finds no way to install these packages (is the network there?)")
        self.assertIn("    Err:1 http://a.mirror Temporary failure\n", done.stderr)
        self.assertNotIn("Unable to locate", done.stderr)
        self.sandbox.write("lists")
        self.assert_last_line(self.run_empty(), "could not be installed (is the network there?)")


class Trees(FrontDoorTest):
    """That cannot be written, or in which another run is at work."""

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

    def test_that_cannot_be_written_are_one_clear_line(self):
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

    def test_that_root_once_built_in_are_one_clear_line(self):
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
    def test_of_another_say_whose_they_are(self):
        self.sandbox.install_everything()
        (self.sandbox.tree / "build").mkdir()
        self.assert_one_line(self.sandbox.gridio_of_a_stranger("run", "script.m"), 1,
                             f"cannot write to {self.sandbox.tree}/build, which belongs to root")

    def test_that_are_built_but_stale_are_one_clear_line(self):
        self.sandbox.build_everything()
        self.sandbox.remove("built")
        (self.sandbox.tree / "build").chmod(0o555)
        self.assert_one_line(self.sandbox.gridio_of_a_stranger("run", "script.m"), 1, "cannot write to")

    def test_that_are_built_but_lack_a_package_say_which(self):
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
                             "gridio: waiting for another ./gridio that is at work in this tree\n")
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


class Building(FrontDoorTest):
    def setUp(self):
        super().setUp()
        self.sandbox.install_everything()
        (self.sandbox.home / "script.m").touch()

    def builds(self):
        self.sandbox.write("log", "")
        done = self.gridio("run", "script.m")
        self.assertEqual((done.returncode, done.stdout), (0, ""), done.stderr)
        return self.sandbox.log("cmake")

    def test_builds_gridio_alone_and_once(self):
        build = f"cmake --build {self.sandbox.tree}/build/release --target gridio_octave"
        self.assertEqual(self.builds(), ["cmake --preset release -DGRIDIO_TESTS=OFF", build])
        self.assertEqual(self.builds(), [])
        self.sandbox.remove("built")
        self.assertEqual(self.builds(), [build])

    def test_a_tree_with_tests_keeps_them(self):
        self.assertEqual(self.gridio("test").returncode, 0)
        self.sandbox.remove("built")
        self.assertNotIn("GRIDIO_TESTS", " ".join(self.builds()))

    def test_a_moved_tree_is_configured_afresh(self):
        self.builds()
        self.sandbox.tree = self.sandbox.tree.rename(self.sandbox.home / "moved")
        self.assertIn("cmake --preset release --fresh -DGRIDIO_TESTS=OFF", self.builds())

    def test_a_tree_that_cannot_be_built_in_is_refused_in_one_clear_line(self):
        for name in ("it's", '"quoted"', "a:b", "a;b", "a\\b", "$HOME"):
            self.sandbox = Sandbox(name)
            self.addCleanup(self.sandbox.close)
            self.sandbox.install_everything()
            (self.sandbox.home / "script.m").touch()
            self.assert_last_line(self.gridio("run", "script.m"), "its path must not hold any of")
            self.assertEqual(self.sandbox.log(), [])

    def test_a_build_that_fails_ends_in_one_clear_line(self):
        self.sandbox.write("broken")
        for command in (["run", "script.m"], ["test"]):
            self.assert_last_line(self.gridio(*command), "configuring")
        self.sandbox.remove("broken")
        self.builds()
        self.sandbox.remove("built")
        self.sandbox.write("broken")
        self.assert_last_line(self.gridio("run", "script.m"), "building")
        self.assertEqual(self.sandbox.log("octave-cli"), ["octave-cli --quiet --path "
                         f"{self.sandbox.tree}/hosts/octave/inst --path "
                         f"{self.sandbox.tree}/build/release/octave --norc --no-history script.m"])


class Testing(FrontDoorTest):
    def setUp(self):
        super().setUp()
        self.sandbox.install_everything()

    def test_every_test_runs_and_then_the_sanitized_ones(self):
        done = self.gridio("test", "-R", "Two Words")
        tree = self.sandbox.tree
        self.assertEqual(self.sandbox.log("cmake"), [
            "cmake --preset release -DGRIDIO_TESTS=ON",
            f"cmake --build {tree}/build/release --target all",
            "cmake --preset sanitize",
            f"cmake --build {tree}/build/sanitize --target all"])
        self.assertEqual(self.sandbox.log("ctest"), [
            f"ctest --test-dir {tree}/build/{preset} -j2 --output-on-failure -R Two Words"
            for preset in ("release", "sanitize")])
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertRegex(done.stdout, r"100% tests passed of \S+/sanitize\n$")

    def test_a_failure_of_either_build_is_a_failure(self):
        for preset in ("release", "sanitize"):
            self.sandbox.write("failing", preset)
            done = self.gridio("test")
            self.assertEqual(done.returncode, 1)
            self.assertEqual(done.stderr.splitlines()[-1], f"gridio: tests failed: {preset}")
            self.assertEqual(len(done.stdout.splitlines()), 2)


if __name__ == "__main__":
    unittest.main()
