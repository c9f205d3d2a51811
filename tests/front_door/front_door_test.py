# SPDX-License-Identifier: BSD-3-Clause
"""./gridio: its messages, its builds, and running scripts."""
import re
import sys
import unittest

from front_door_case import FrontDoorTest
from sandbox import ROOT, Sandbox

sys.path.insert(0, str(ROOT / "tests" / "examples"))
import picture  # noqa: E402


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

    def test_changes_nothing_on_a_bad_call(self):
        self.assert_one_line(self.gridio("run"), 2, "run needs a script")
        self.assert_one_line(self.gridio("--version", "x"), 2, "--version takes no arguments")
        self.assert_one_line(self.gridio("shell", "x"), 2, "shell takes no arguments")
        self.assert_one_line(self.gridio("bench", "--fast"), 2, "bench takes no --fast")
        self.assert_one_line(self.gridio("bench", "--json"), 2, "--json needs a file")
        self.assert_one_line(self.gridio("package", "x"), 2, "package takes nothing but --check")
        self.assert_one_line(self.gridio("manual", "x"), 2, "manual takes no arguments")
        self.assertEqual(self.sandbox.log(), [])

    def test_distinguishes_a_missing_script_from_an_unreadable_one(self):
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
        self.assertEqual(self.sandbox.log("clang-format-14"),
                         [f"clang-format-14 -i --style=file {self.sandbox.tree}/src/a b.cpp"])


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

    def test_finds_the_parts_of_gridio(self):
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
        # Programs that Debian installs along with the interpreter: a shell, gnuplot and ghostscript.
        for tool in ("gnuplot", "gs", "rm"):
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
            "cmake --preset release -DGRIDIO_TESTS=ON -DGRIDIO_WERROR=OFF",
            f"cmake --build {tree}/build/release --target all",
            "cmake --preset sanitize -DGRIDIO_WERROR=OFF",
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
