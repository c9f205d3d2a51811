# SPDX-License-Identifier: BSD-3-Clause
"""Ctrl-C during a long read ends it within a moment, as the interpreter's own interrupt, and leaves nothing behind.

Of the engine in src/chunks, called by a function of the tests."""
import os
import pathlib
import re
import signal
import subprocess
import tempfile
import time
import unittest

import interpreter

SUPPORT = os.environ["GRIDIO_SUPPORT_DIR"]
INTERACTIVE = ("--norc", "--quiet", "--interactive", "--no-line-editing")
CHUNKS = 100000
SUM = CHUNKS * 64 * (CHUNKS * 64 - 1) // 2

# What the system knows of the session (threads, open files, whether the function is loaded), and a read in a child.
REPORT = """
function report ()
  printf ("threads %d, files %d, loaded %d\\n", numel (glob ("/proc/self/task/*")),
          numel (glob ("/proc/self/fd/*")), any (strfind (fileread ("/proc/self/maps"), "read_in_chunks.oct")));
end
function status = forked (ncid, expected)
  pid = fork ();
  if (pid == 0)
    programs = {"false", "true"};
    exec (programs{1 + (read_in_chunks ("read", ncid, 2) == expected)});
  end
  [pid, status] = waitpid (pid);
end
"""


class Interrupts(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.session = subprocess.Popen(
            interpreter.command(None, folders=[SUPPORT], options=INTERACTIVE), cwd=folder.name,
            env=interpreter.environment(folder.name), text=True, bufsize=1, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL))
        self.addCleanup(self.end)
        self.say('PS1 (""); PS2 ("");\n' + REPORT)
        self.ask(f'read_in_chunks ("make", "tiny.nc", {CHUNKS})')
        self.ask('ncid = read_in_chunks ("open", "tiny.nc");')

    def end(self):
        self.session.kill()
        self.session.communicate()

    def say(self, text):
        self.session.stdin.write(text + "\n")
        self.session.stdin.flush()

    def hear(self, mark):
        """What the session prints up to the mark."""
        lines = []
        for line in self.session.stdout:
            if mark in line:
                return "".join(lines)
            lines.append(line)
        self.fail("the session has ended: " + "".join(lines))

    def ask(self, text):
        """What the statement prints. The marks are printed by the interpreter, which echoes nothing."""
        self.say(text + '\nputs (["<do" "ne>\\n"]);')
        return self.hear("<done>")

    def read(self, threads):
        return self.ask(f'printf ("%d\\n", read_in_chunks ("read", ncid, {threads}))')

    def test_ends_a_read_at_once_and_leaves_nothing(self):
        self.read(2)
        before = self.ask("report ()")
        for threads in (1, 2, 4):
            with self.subTest(threads=threads):
                start = time.monotonic()
                self.assertIn(str(SUM), self.read(threads))
                whole = time.monotonic() - start

                self.say(f'puts (["<rea" "ding>\\n"]); s = read_in_chunks ("read", ncid, {threads}); puts (["<all " "read>\\n"]);')
                self.hear("<reading>")
                time.sleep(whole / 4)
                start = time.monotonic()
                self.session.send_signal(signal.SIGINT)
                said = self.ask("")
                delay = time.monotonic() - start
                print(f"{threads} threads: a read of {whole:.2f} s is interrupted within {delay:.3f} s")
                self.assertNotIn("<all read>", said)
                self.assertNotIn("error:", said)
                # On a machine that does nothing else 0.01 s; the bound leaves time for others.
                self.assertLess(delay, max(0.2, whole / 2))

                self.assertEqual(self.ask("report ()"), before)
                self.assertIn(str(SUM), self.read(threads))
        self.ask('read_in_chunks ("close", ncid)')

    def test_leaves_no_thread_behind_when_it_is_unloaded_or_forked(self):
        self.read(4)
        self.assertRegex(self.ask("report ()"), "loaded 1")
        self.assertEqual(self.ask(f"disp (forked (ncid, {SUM}))"), "0\n")
        self.assertIn(str(SUM), self.read(4))
        self.ask('read_in_chunks ("close", ncid)')
        self.ask("clear read_in_chunks")
        self.assertRegex(self.ask("report ()"), "loaded 0")

    def test_is_seen_at_the_end_of_a_script(self):
        """A script that is interrupted in a read ends there."""
        script = self.folder / "script.m"
        script.write_text(f"""
            ncid = read_in_chunks ("open", "tiny.nc");
            fclose (fopen ("ready", "w"));
            try
              s = read_in_chunks ("read", ncid, 2);
            catch failure
              fputs (stderr, "caught\\n");
            end
            fputs (stderr, "went on\\n");
        """)
        session = subprocess.Popen(
            interpreter.command(script, folders=[SUPPORT]), cwd=self.folder, text=True,
            env=interpreter.environment(self.folder),
            stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL))
        while not (self.folder / "ready").exists() and session.poll() is None:
            time.sleep(0.005)
        time.sleep(0.05)
        session.send_signal(signal.SIGINT)
        _, errors = session.communicate(timeout=60)
        self.assertNotIn("went on", errors)
        self.assertNotIn("caught", errors)
        self.assertEqual(re.findall("(?i)panic|abort|segmentation|terminate", errors), [])


if __name__ == "__main__":
    unittest.main()
