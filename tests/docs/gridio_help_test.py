# SPDX-License-Identifier: BSD-3-Clause
"""gridio_help in the interpreter."""
import os
import pathlib
import tempfile
import unittest

import interpreter
import make_operations
import operation_entries

HERE = pathlib.Path(__file__).resolve().parent
ENTRIES = operation_entries.read_all_entries()


def run_code(code):
    with tempfile.TemporaryDirectory() as folder:
        script = pathlib.Path(folder, "script.m")
        script.write_text(code)
        return interpreter.text_of(script)


class Selftest(unittest.TestCase):
    def test_passes_its_own_tests(self):
        source = interpreter.INST / "gridio_help.m"
        printed = run_code(f'[passed, all] = test("{source}", "quiet"); printf("%d %d\\n", passed, all);')
        passed, tests = map(int, printed.split()[-2:])
        self.assertEqual(passed, tests, printed)
        self.assertGreaterEqual(tests, 10)

    def test_demos_run(self):
        printed = run_code('for i = 1:2, [code, at] = test("gridio_help", "grabdemo"); '
                           'eval(code(at(i):at(i + 1) - 1)); end')
        self.assertIn("Files: life cycle", printed)
        self.assertIn('gridio("defVar"', printed)

    def test_help_text_is_sound(self):
        printed = run_code('help("gridio_help")')
        self.assertIn("gridio_help (OPERATION)", printed)
        self.assertNotRegex(printed, "@[a-z]+[{]|@end")


class Behaviour(unittest.TestCase):
    def test_explains_every_operation_as_the_manual_does(self):
        with tempfile.TemporaryDirectory() as folder:
            names = pathlib.Path(folder, "names.txt")
            every_name = list(dict.fromkeys(entry.name for entry in ENTRIES))
            names.write_text("\n".join(every_name) + "\n")
            printed = interpreter.text_of(HERE / "help_entries.m", names)
        expected = ""
        for name in every_name:
            those = ["\n".join(make_operations.text_entry(entry)) + "\n" for entry in ENTRIES if entry.name == name]
            expected += f"@@ {name}\n" + "\n".join(those)
        self.assertEqual(printed.splitlines(), expected.splitlines())

    def test_lists_every_operation_under_its_family(self):
        printed = run_code("gridio_help()")
        for entry in ENTRIES:
            with self.subTest(entry.name):
                self.assertIn(entry.name, printed[printed.index(f"\n{entry.family}\n"):].split())

    def test_does_not_need_the_module(self):
        os.environ["GRIDIO_OCT_DIR"], kept = os.devnull, os.environ["GRIDIO_OCT_DIR"]
        try:
            self.assertIn("nc_close", run_code('gridio_help("close")'))
        finally:
            os.environ["GRIDIO_OCT_DIR"] = kept


if __name__ == "__main__":
    unittest.main()
