# SPDX-License-Identifier: BSD-3-Clause
"""The guards against faults of the library are those that docs/limits.md lists, with the releases each was seen in."""
import os
import pathlib
import re
import subprocess
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
GUARDS = ROOT / "src/library/guards"
ROW = re.compile(r"^\| `(\w+)` \| ([\d., ]+) \|", re.MULTILINE)
# Seen in a release that no system of ours has.
NOT_REPRODUCED = {"unloaded_library"}


class Limits(unittest.TestCase):
    def setUp(self):
        text = (ROOT / "docs/limits.md").read_text()
        self.rows = ROW.findall(text[text.index("## Guarded"):text.index("## Not guarded")])

    def test_every_guard_has_a_row_and_every_row_a_guard(self):
        self.assertEqual(sorted(name for name, _ in self.rows), sorted(path.stem for path in GUARDS.glob("*.h")))

    def test_the_guard_names_the_first_release_of_its_row(self):
        for name, releases in self.rows:
            heading = (GUARDS / f"{name}.h").read_text().split("#pragma once")[0]
            self.assertIn(releases.split(", ")[0], heading, name)

    def test_the_releases_are_those_that_the_library_alone_is_checked_with(self):
        listed = subprocess.run([os.environ["LIBRARY_ALONE"], "--list"], capture_output=True, text=True, check=True).stdout
        checked = {}
        for line in listed.splitlines():
            guard, releases = line.split(": ")
            checked.setdefault(guard, set()).update(releases.split(", "))
        del checked["-"]
        written = {name: set(releases.split(", ")) for name, releases in self.rows if name not in NOT_REPRODUCED}
        self.assertEqual(checked, written)


if __name__ == "__main__":
    unittest.main()
