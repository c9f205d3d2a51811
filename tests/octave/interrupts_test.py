# SPDX-License-Identifier: BSD-3-Clause
"""Ctrl-C during a long read or write ends it at once, as the interpreter's own interrupt, and leaks nothing."""
import os
import pathlib
import re
import signal
import subprocess
import tempfile
import time
import unittest

OCT_FOLDER = os.environ["GRIDIO_OCT_DIR"]
OCTAVE = os.environ.get("OCTAVE_CLI", "octave-cli")
CHUNKS = 60000
SUM = CHUNKS * 64 * (CHUNKS * 64 - 1) // 2

# Makes a variable of many chunks of 64 numbers 0 1 2 ..., which is as slow to read as a far larger one. Reports the
# system's view of the session (threads, open files, whether the functions are loaded). Reads in a child.
FUNCTIONS = """
function ncid = make (path, chunks)
  ncid = gridio ("create", path, "netcdf4");
  dimid = gridio ("defDim", ncid, "x", 64 * chunks);
  gridio ("defVar", ncid, "v", gridio ("parameter", "NC_INT"), dimid);
  gridio ("defVarChunking", ncid, 0, gridio ("parameter", "NC_CHUNKED"), 64);
  gridio ("defVarDeflate", ncid, 0, true, true, 1);
  gridio_any ("putVar", ncid, 0, int32 (0:64 * chunks - 1));
endfunction
function total = read_sum (ncid, threads)
  setenv ("GRIDIO_THREADS", num2str (threads));
  total = sum (gridio_any ("getVar", ncid, 0), "double");
endfunction
function report ()
  printf ("threads %d, files %d, loaded %d\\n", numel (glob ("/proc/self/task/*")),
          numel (glob ("/proc/self/fd/*")), any (strfind (fileread ("/proc/self/maps"), "gridio.oct")));
end
function status = forked (ncid, expected)
  pid = fork ();
  if (pid == 0)
    programs = {"false", "true"};
    exec (programs{1 + (read_sum (ncid, 2) == expected)});
  end
  [pid, status] = waitpid (pid);
end
"""


class Interrupts(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        own = {"HOME": folder.name, "TMPDIR": folder.name, "OCTAVE_HISTFILE": str(self.folder / "history")}
        self.session = subprocess.Popen(
            [OCTAVE, "--norc", "--quiet", "--interactive", "--no-line-editing", "--path", OCT_FOLDER], cwd=folder.name,
            env={**os.environ, **own}, text=True, bufsize=1, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL))
        self.addCleanup(self.end)
        self.say('PS1 (""); PS2 ("");\n' + FUNCTIONS)
        self.ask(f'gridio ("close", make ("tiny.nc", {CHUNKS})); ncid = gridio ("open", "tiny.nc", "nowrite");')

    def end(self):
        self.session.kill()
        self.session.communicate()

    def say(self, text):
        self.session.stdin.write(text + "\n")
        self.session.stdin.flush()

    def hear(self, mark):
        """The session's output up to the mark."""
        lines = []
        for line in self.session.stdout:
            if mark in line:
                return "".join(lines)
            lines.append(line)
        self.fail("the session has ended: " + "".join(lines))

    def ask(self, text):
        """The statement's output. The interpreter prints the marks, and echoes nothing."""
        self.say(text + '\nputs (["<do" "ne>\\n"]);')
        return self.hear("<done>")

    def read(self, threads):
        return self.ask(f'printf ("%d\\n", read_sum (ncid, {threads}))')

    def interrupt(self, statement, after):
        """Interrupts it after so many seconds, in its midst, and returns how long it then takes to end."""
        self.say(f'puts (["<be" "gun>\\n"]); {statement} puts (["<all " "done>\\n"]);')
        self.hear("<begun>")
        time.sleep(after)
        start = time.monotonic()
        self.session.send_signal(signal.SIGINT)
        said = self.ask("")
        self.assertNotIn("<all done>", said)
        self.assertNotIn("error:", said)
        return time.monotonic() - start

    def test_ends_a_read_at_once_and_leaves_nothing(self):
        self.read(2)
        before = self.ask("report ()")
        for threads in (2, 4):
            with self.subTest(threads=threads):
                start = time.monotonic()
                self.assertIn(str(SUM), self.read(threads))
                whole = time.monotonic() - start

                delay = self.interrupt(f"read_sum (ncid, {threads});", whole / 4)
                print(f"{threads} threads: a read of {whole:.2f} s is interrupted within {delay:.3f} s")
                # 0.01 s on an idle machine; the bound allows for load.
                self.assertLess(delay, max(0.2, whole / 2))

                self.assertEqual(self.ask("report ()"), before)
                self.assertIn(str(SUM), self.read(threads))
        self.ask('gridio ("close", ncid)')

    def test_ends_a_write_at_once(self):
        self.ask(f'other = make ("other.nc", {CHUNKS}); values = int32 (1:64 * {CHUNKS});')
        before = self.ask("report ()")
        start = time.monotonic()
        self.ask('gridio_any ("putVar", other, 0, values - 2);')
        whole = time.monotonic() - start
        delay = self.interrupt('gridio_any ("putVar", other, 0, values);', whole / 4)
        print(f"a write of {whole:.2f} s is interrupted within {delay:.3f} s")
        self.assertLess(delay, max(0.2, whole / 2))
        self.assertEqual(self.ask("report ()"), before)
        self.ask('gridio_any ("putVar", other, 0, values - 1); gridio ("close", other);')
        self.assertIn(str(SUM), self.ask("""
            gridio ("close", ncid);
            ncid = gridio ("open", "other.nc", "nowrite");
            printf ("%d\\n", read_sum (ncid, 1));"""))

    def test_leaves_no_thread_behind_when_it_is_unloaded_or_forked(self):
        self.read(4)
        self.assertRegex(self.ask("report ()"), "loaded 1")
        self.assertEqual(self.ask(f"disp (forked (ncid, {SUM}))"), "0\n")
        self.assertIn(str(SUM), self.read(4))
        self.ask('gridio ("close", ncid)')
        self.ask("clear gridio gridio_any")
        self.assertRegex(self.ask("report ()"), "loaded 0")

    def test_is_seen_at_the_end_of_a_script(self):
        """A script that is interrupted in a read ends there."""
        script = self.folder / "script.m"
        script.write_text(f"""
            ncid = gridio ("open", "tiny.nc", "nowrite");
            fclose (fopen ("ready", "w"));
            try
              s = gridio_any ("getVar", ncid, 0);
            catch failure
              fputs (stderr, "caught\\n");
            end
            fputs (stderr, "went on\\n");
        """)
        session = subprocess.Popen(
            [OCTAVE, "--norc", "--quiet", "--path", OCT_FOLDER, str(script)], cwd=self.folder, text=True,
            env={**os.environ, "HOME": str(self.folder), "OCTAVE_HISTFILE": str(self.folder / "history")},
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
