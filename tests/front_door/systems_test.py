# SPDX-License-Identifier: BSD-3-Clause
"""./gridio systems, with stand-ins for what makes a system."""
import shutil
import signal
import time
import unittest

from front_door_case import FrontDoorTest
from sandbox import ROOT

BEGIN, END = "<!-- systems: begin -->", "<!-- systems: end -->"
HEAD = ("| system | Octave | netCDF | HDF5 | compiler | tests passed | time | Debian package | also compiled and tested with |\n"
        "|---|---|---|---|---|---|---|---|---|\n")
SUMMARY = 'echo "100% tests passed, 0 tests failed out of 30"; echo "97% tests passed, 1 tests failed out of 40"'
# In the place of inside.sh: what it leaves, for the system that it is called with.
INSIDE = """#!/bin/sh
mkdir $2/system
{body}
echo "9.4.0 | 4.9.3 | 1.14.5 | g++ 14.2.0" >$3/versions
for part in $4; do
    case $part in
    tests) echo "21 min" >$3/time ;;
    *) echo "$part seen" >$3/$part ;;
    esac
done
{end}
"""


class Systems(FrontDoorTest):
    def setUp(self):
        super().setUp()
        self.sandbox.install_everything()
        for tool in ("awk", "chmod", "kill", "mktemp", "rm", "sleep", "sort"):
            self.sandbox.add_tool(tool)
        self.sandbox.stand_in("git", 'log git "$@"')
        self.sandbox.stand_in("setpriv", 'shift 2; exec "$@"')
        self.sandbox.stand_in("unshare", 'while [ "${1#--}" != "$1" ]; do shift; done; log "$@"; exec "$@"')
        self.scratch = self.sandbox.home / "scratch"
        self.scratch.mkdir()
        self.sandbox.environment["TMPDIR"] = str(self.scratch)
        self.readme = self.sandbox.tree / "README.md"
        self.readme.write_text(f"before\n{BEGIN}\nold\n{END}\nafter & \\1\n")
        self.inside(SUMMARY)

    def inside(self, body, end="exit 0"):
        script = self.sandbox.tree / "systems" / "inside.sh"
        script.write_text(INSIDE.format(body=body, end=end))
        script.chmod(0o755)

    def kept(self, suite):
        return self.sandbox.tree / "build" / "systems" / suite

    def row(self, suite, tests="69 of 70", time="21 min", package="package seen", compilers="compilers seen"):
        return f"| {suite} | 9.4.0 | 4.9.3 | 1.14.5 | g++ 14.2.0 | {tests} | {time} | {package} | {compilers} |\n"

    def test_need_root_in_one_line(self):
        self.sandbox.write("uid", "1000")
        self.assert_one_line(self.gridio("systems"), 1, "needs root")
        self.assertEqual(self.sandbox.log("git"), [])

    def test_are_known_by_two_names(self):
        self.assert_one_line(self.gridio("systems", "trixie", "windows"), 2, "there is no system windows")
        self.gridio("systems", "debian12", "debian13", "sid")
        made = [line.split()[1] for line in self.sandbox.log(str(self.sandbox.tree))]
        self.assertEqual(made, ["bookworm", "trixie", "sid"])

    def test_do_one_part_and_keep_what_is_known_of_the_others(self):
        done = self.gridio("systems", "--only", "package", "sid")
        not_run = self.row("sid", "not run", "not run", compilers="not run")
        self.assertEqual((done.returncode, done.stdout), (0, HEAD + not_run), done.stderr)
        self.assertEqual(self.gridio("systems", "--only", "tests", "sid").stdout, HEAD + self.row("sid", compilers="not run"))
        self.assert_one_line(self.gridio("systems", "--only", "sid"), 2, "--only needs one of")

    def test_print_a_table_and_leave_nothing_but_their_logs(self):
        done = self.gridio("systems", "trixie")
        self.assertEqual((done.returncode, done.stdout), (0, HEAD + self.row("trixie")), done.stderr)
        self.assertEqual(list(self.scratch.iterdir()), [])
        self.assertIn("30", (self.kept("trixie") / "log").read_text())
        self.assertIn("old", self.readme.read_text())

    def test_are_all_tested_when_one_fails(self):
        self.inside(SUMMARY + '; echo "one test failed"; [ $1 = sid ] || exit 8')
        done = self.gridio("systems")
        self.assertEqual(done.returncode, 1)
        self.assertIn("    one test failed\n", done.stderr)
        self.assertTrue(done.stderr.endswith("gridio: failed on bookworm trixie\n"), done.stderr)
        self.assertEqual(done.stdout, HEAD + self.row("sid"))

    def test_do_not_count_skipped_tests_as_passed(self):
        self.inside(SUMMARY + r'; printf "The following tests did not run:\n\t  7 - a.b (Skipped)\n\t 12 - c (Skipped)\n"')
        self.assertEqual(self.gridio("systems", "sid").stdout, HEAD + self.row("sid", "67 of 70, 2 skipped"))

    def test_have_no_count_of_tests_when_a_build_fails(self):
        self.inside("echo 'a compiler error'", "exit 1")
        done = self.gridio("systems", "trixie")
        self.assertEqual(done.stdout, HEAD + self.row("trixie", "not run to the end"))

    def test_are_written_into_the_readme_between_the_markers(self):
        self.gridio("systems", "sid")
        self.gridio("systems", "trixie")
        done = self.gridio("systems", "--table")
        table = HEAD + self.row("trixie") + self.row("sid")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, table, ""))
        self.assertEqual(self.readme.read_text(), f"before\n{BEGIN}\n{table}{END}\nafter & \\1\n")
        self.readme.write_text("nothing\n")
        self.assert_last_line_is("has no line", self.gridio("systems", "--table"))
        self.assertEqual(self.readme.read_text(), "nothing\n")

    def assert_last_line_is(self, text, done):
        self.assertEqual(done.returncode, 1)
        self.assertIn(text, done.stderr.splitlines()[-1])

    def test_leave_nothing_when_they_are_stopped(self):
        for name in (signal.SIGINT, signal.SIGTERM):
            with self.subTest(signal=name):
                self.inside('touch "$3/started"; exec sleep 60')
                process = self.sandbox.start("systems", "trixie")
                deadline = time.monotonic() + 20
                while not (self.kept("trixie") / "started").exists() and time.monotonic() < deadline:
                    time.sleep(0.02)
                process.send_signal(name)
                self.assertNotEqual(process.wait(20), 0)
                process.communicate()
                self.assertEqual(list(self.scratch.iterdir()), [])
                shutil.rmtree(self.kept("trixie"))

    def test_have_rows_in_the_readme_by_their_names(self):
        text = (ROOT / "README.md").read_text()
        table = text.split(BEGIN)[1].split(END)[0].strip()
        rows = [row.split(" | ")[0] for row in table.splitlines()[2:]]
        self.assertEqual(rows, [f"| {suite}" for suite in ("bookworm", "trixie", "sid") if f"| {suite} " in table])
        self.assertTrue(table.startswith((HEAD.strip(), "No whole run is recorded yet.")), table)


if __name__ == "__main__":
    unittest.main()
