# SPDX-License-Identifier: BSD-3-Clause
"""Long reductions show their progress in an interactive session on a terminal, nowhere else, and leave no trace of it."""
import os
import pathlib
import pty
import re
import select
import signal
import subprocess
import tempfile
import time
import unittest

import interpreter

FOLDERS = (interpreter.INST, os.environ["GRIDIO_OCT_DIR"])
OPTIONS = ("--norc", "--quiet", "--no-line-editing")
# Of a file whose chunks were never written: small, and long to reduce.
MADE = """
ncid = gridio ("create", "long.nc", "netcdf4");
x = gridio ("defDim", ncid, "x", %d);
v = gridio ("defVar", ncid, "v", gridio ("parameter", "NC_BYTE"), x);
gridio ("defVarChunking", ncid, v, gridio ("parameter", "NC_CHUNKED"), 2^20);
gridio ("close", ncid);
ds = gridio_dataset ("long.nc");
"""
SECONDS = 4  # that a reduction takes
SHOWN = r"\r\d+ %, \d+ (s|min) left *"


class Terminal:
    """A session whose input and output are a terminal."""

    def __init__(self, folder, terminal="vt100", errors=None):
        self.own, other = pty.openpty()
        environment = interpreter.environment(folder) | {"TERM": terminal}
        self.process = subprocess.Popen(interpreter.command(None, folders=FOLDERS, options=OPTIONS), cwd=folder,
                                        env=environment, stdin=other, stdout=other, stderr=errors or other,
                                        start_new_session=True,
                                        preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL))
        os.close(other)

    def say(self, text):
        os.write(self.own, (text + "\n").encode())

    def hear(self, pattern, seconds=60):
        """What is shown up to the pattern."""
        shown, deadline = "", time.monotonic() + seconds
        while not re.search(pattern, shown):
            if not select.select([self.own], [], [], max(0, deadline - time.monotonic()))[0]:
                raise AssertionError(f"no {pattern} in {shown!r}")
            shown += os.read(self.own, 4096).decode("latin-1")
        return shown

    def ask(self, text):
        """The terminal echoes what is said, and not these marks."""
        self.say(text + '; puts (["<do" "ne>\\n"]);')
        return self.hear("<done>\r")

    def end(self):
        if self.process.poll() is not None:
            return
        self.process.kill()
        self.process.wait()
        os.close(self.own)


def length_of_work():
    """How many values this build reduces in that time."""
    count = 50_000_000
    with tempfile.TemporaryDirectory() as folder:
        done = interpreter.run_text(MADE % count + 'tic;  ds.v.sum ();  disp (toc);\n', folder, capture_output=True)
        return int(count * SECONDS / float(done.stdout))


class Progress(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.length = length_of_work()

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def terminal(self, **options):
        session = Terminal(self.folder, **options)
        self.addCleanup(session.end)
        session.say('PS1 (""); PS2 ("");')
        for line in (MADE % self.length).split("\n"):
            session.ask(line or "1;")
        return session

    def test_is_shown_and_erased(self):
        shown = self.terminal().ask("x = ds.v.sum ()")
        lines = [text for text in shown.split("\r") if "left" in text]
        self.assertGreater(len(lines), 1, shown)
        parts = [int(line.split(" %")[0]) for line in lines]
        self.assertEqual(parts, sorted(parts))
        # Blanks over the last of it, and what comes then begins the line.
        self.assertRegex(shown, SHOWN + r"\r {12,}\r<done>")

    def test_is_erased_by_an_interrupt_and_the_file_stays_usable(self):
        session = self.terminal()
        session.say("x = ds.v.sum ()")
        session.hear(SHOWN)
        start = time.monotonic()
        session.process.send_signal(signal.SIGINT)
        self.assertRegex(session.hear(r"\r +\r"), r"\r +\r")
        delay = time.monotonic() - start
        print(f"interrupted within {delay:.3f} s")
        self.assertLess(delay, 0.2)
        session.ask("1;")
        self.assertIn("-127", session.ask("disp (ds.v(3))"))

    def test_is_not_shown_of_short_work(self):
        session = self.terminal()
        self.assertNotIn("left", session.ask('ds.v.sum ("x", "index", "x", 1:1000000)'))

    def test_is_shown_on_terminals_only(self):
        for options in ({"terminal": "dumb"}, {"errors": subprocess.DEVNULL}):
            with self.subTest(**options):
                session = self.terminal(**options)
                self.assertNotIn("left", session.ask("ds.v.sum ()"))
                session.end()

    def test_is_not_shown_in_scripts(self):
        script = pathlib.Path(self.folder, "script.m")
        script.write_text(MADE % self.length + "x = ds.v.sum ();\nputs (\"done\\n\");\n")
        own, other = pty.openpty()
        done = subprocess.run(interpreter.command(script, folders=FOLDERS), cwd=self.folder, stdin=other, stdout=other,
                              stderr=other, env=interpreter.environment(self.folder) | {"TERM": "vt100"}, check=True)
        os.close(other)
        self.assertEqual(done.returncode, 0)
        self.assertEqual(os.read(own, 4096), b"done\r\n")
        os.close(own)


if __name__ == "__main__":
    unittest.main()
