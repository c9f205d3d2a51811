# SPDX-License-Identifier: BSD-3-Clause
"""Every example of the operations' manual, run in the interpreter."""
import pathlib
import tempfile
import unittest

import interpreter
import operation_entries

HERE = pathlib.Path(__file__).resolve().parent
ENTRIES = operation_entries.read_all_entries()


class EveryExample(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as folder:
            examples, outputs = pathlib.Path(folder, "examples"), pathlib.Path(folder, "outputs")
            examples.mkdir()
            outputs.mkdir()
            for entry in ENTRIES:
                (examples / f"{entry.title()}.txt").write_text("\n".join(entry.example) + "\n")
            interpreter.text_of(HERE / "run_examples.m", examples, outputs)
            cls.printed = {path.stem: path.read_text().splitlines() for path in outputs.iterdir()}

    def test_prints_what_its_entry_says_and_leaves_no_file_open(self):
        for entry in ENTRIES:
            with self.subTest(entry.title()):
                self.assertEqual(self.printed[entry.title()], entry.prints)

    def test_is_short_and_calls_its_operation(self):
        for entry in ENTRIES:
            with self.subTest(entry.title()):
                self.assertIn(f'{entry.function}("{entry.name}"', "\n".join(entry.example))
                self.assertTrue(2 <= len(entry.example) <= 8)
                self.assertTrue(entry.prints)


if __name__ == "__main__":
    unittest.main()
