# SPDX-License-Identifier: BSD-3-Clause
"""Every list of operations equals the table that the module has, so that a new row cannot be forgotten anywhere."""
import os
import pathlib
import re
import subprocess
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
for folder in ("docs", "fuzz", "tests/arguments"):
    sys.path.insert(0, str(ROOT / folder))
import argument_rules  # noqa: E402
import operation_entries  # noqa: E402
import print_signatures  # noqa: E402

FUNCTIONS = ("gridio", "gridio_any")
PROSE = ("README.md", "NEWS", "CONTRIBUTING.md", "docs/reliability.md", "docs/performance.md", "docs/operations/preface.txt",
         "docs/manual/*.texi", "hosts/octave/package/DESCRIPTION.in", "hosts/octave/*.cc", "hosts/octave/inst/*.m", "src/*/*.h",
         "src/*/*.cpp", "include/*.h", "include/vx/*.h")


def table_rows():
    """(function, name, number of arguments) of each row, in their order."""
    listing = subprocess.run([os.environ["LIST_OPERATIONS"]], capture_output=True, text=True, check=True).stdout
    rows = [line.split() for line in listing.splitlines()]
    return [(function, name, int(nargs)) for function, name, nargs, _ in rows]


ROWS = table_rows()
COUNTS = {function: sum(row[0] == function for row in ROWS) for function in FUNCTIONS}


def callable_rows():
    """{(function, name): number of arguments}: the first row of a name is the one that is found."""
    return {(function, name): nargs for function, name, nargs in reversed(ROWS)}


def read(path):
    return (ROOT / path).read_text(encoding="utf-8")


def selftest_names():
    """Names that the self-test calls. One that it puts together, such as ["putVar" type], stands for each type."""
    text = "".join(path.read_text(encoding="utf-8") for path in sorted((ROOT / "hosts/octave/selftest").glob("*.tst")))
    calls = rf'\b({"|".join(FUNCTIONS)}) \((\[?)"(\w+)"'
    found = {(function, name + ("*" if bracket else "")) for function, bracket, name in re.findall(calls, text)}
    anonymous = re.findall(r'\b(failure_of|status_of) \("(\w+)"', text)
    return found | {("gridio_any" if helper == "failure_of" else "gridio", name) for helper, name in anonymous}


def family(name):
    """"putVar*" for "putVarDouble"."""
    typed = re.fullmatch(r"((?:get|put)(?:Att|Var[1as]?))[A-Z]\w+", name)
    return f"{typed[1]}*" if typed else name


class OperationLists(unittest.TestCase):
    def setUp(self):
        self.rows = callable_rows()

    def test_documentation_has_an_entry_for_each(self):
        entries = {(e.function, e.name): len(e.arguments) for e in operation_entries.read_all_entries()}
        self.assertEqual(entries, self.rows)

    def test_argument_rules_have_readers_for_each(self):
        rules = {("gridio_any", name[4:]) if name.startswith("any.") else ("gridio", name): len(arguments)
                 for name, (arguments, _) in argument_rules.operations().items()}
        self.assertEqual(rules, self.rows)

    def test_fuzzers_have_a_signature_for_each_and_a_code_of_its_own(self):
        common = operation_entries.Common()
        rows = [print_signatures.row(entry, common) for entry in operation_entries.read_all_entries()]
        parts = [re.fullmatch(r'\{"(\w+)", "([^"]*)", \w+, Function::(\w+)\},\n', row) for row in rows]
        functions = {"gridio": "gridio", "gridioAny": "gridio_any"}
        self.assertEqual({(functions[part[3]], part[1]): len(part[2]) for part in parts}, self.rows)
        codes = [code_of(("any_" if part[3] == "gridioAny" else "") + part[1]) for part in parts]
        self.assertEqual(len(codes), len(set(codes)))

    def test_gridio_help_has_a_part_for_each(self):
        names = re.findall(r"^@@ (\w+)$", read("hosts/octave/inst/gridio_operations.txt"), re.M)
        self.assertEqual(sorted(names), sorted(name for _, name in self.rows))

    def test_messages_show_the_call_of_each(self):
        forms = re.findall(r'^    \{"(\w+)", "[^"]*", \{[^}]*\}, (\d+), \w+(, OperationTable::any)?\},$',
                           read("hosts/messages/operation_form_rows.cpp"), re.M)
        self.assertEqual({("gridio_any" if table else "gridio", name): int(nargs) for name, nargs, table in forms}, self.rows)

    def test_stand_ins_cover_the_library_functions_of_each(self):
        stand_ins = set(pathlib.Path(os.environ["STAND_INS"]).read_text().split())
        for entry in operation_entries.read_all_entries():
            for function in entry.library:
                if function not in ("nc_inq_libvers", "nc_strerror"):  # these cannot fail
                    with self.subTest(entry.title()):
                        self.assertIn(f"--wrap={function}", stand_ins)

    def test_selftest_calls_each_and_no_other(self):
        table = {(function, family(name) if function == "gridio" else name) for function, name in self.rows}
        called = selftest_names()
        self.assertEqual({row for row in table if not self.is_called(row, called)}, set())
        self.assertEqual({row for row in called if row not in table and row not in self.rows}, set())

    @staticmethod
    def is_called(row, called):
        function, name = row
        return row in called or (name.endswith("*") and any(
            f == function and family(other) == name for f, other in called))

    def test_numbers_in_prose_are_those_of_the_tables(self):
        found = []
        for pattern in PROSE:
            for path in sorted(ROOT.glob(pattern)):
                for number in re.findall(r"\b(\d+)\s+operations\b", path.read_text(encoding="utf-8")):
                    found.append(number)
                    with self.subTest(str(path.relative_to(ROOT))):
                        self.assertIn(int(number), [*COUNTS.values(), sum(COUNTS.values())])
        self.assertGreater(len(found), 3)


def code_of(title):
    """codeOf of fuzz/operation_signatures.cpp."""
    code = 2166136261
    for byte in title.encode():
        code = (code ^ byte) * 16777619 & 0xFFFFFFFF
    return (code ^ code >> 16) & 0xFFFF


if __name__ == "__main__":
    unittest.main()
