# SPDX-License-Identifier: BSD-3-Clause
"""The guards against faults of the library are those that docs/limits.md lists, with the release each was seen in."""
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
GUARDS = ROOT / "src/library/guards"
ROW = re.compile(r"^\| `(\w+)` \| (\d+\.\d+\.\d+) \|", re.MULTILINE)


class Limits(unittest.TestCase):
    def setUp(self):
        text = (ROOT / "docs/limits.md").read_text()
        self.rows = ROW.findall(text[text.index("## Guarded"):text.index("## Not guarded")])

    def test_every_guard_has_a_row_and_every_row_a_guard(self):
        self.assertEqual(sorted(name for name, _ in self.rows), sorted(path.stem for path in GUARDS.glob("*.h")))

    def test_the_guard_names_the_release_of_its_row(self):
        for name, release in self.rows:
            heading = (GUARDS / f"{name}.h").read_text().split("#pragma once")[0]
            self.assertIn(release, heading, name)


if __name__ == "__main__":
    unittest.main()
