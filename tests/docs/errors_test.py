# SPDX-License-Identifier: BSD-3-Clause
"""The errors that the entries name, raised in the interpreter."""
import pathlib
import re
import tempfile
import unittest

import interpreter
import operation_entries
from library_release import library_release

HERE = pathlib.Path(__file__).resolve().parent
COMMON = operation_entries.Common()
ENTRIES = operation_entries.read_all_entries()

# What reading accepts, for each kind of argument.
GOOD = {"int": "0", "size": "1", "text": '"x"', "flag": "true", "mode": '"nowrite"', "row": "0",
        "index": "0", "stride": "1", "rawsingle": "single(0.5)", "fillvalue": "0",
        "int64": "0", "unsigned": "1", "single": "0.5", "type": "4", "word": '"none"', "numbers": "1", "values": "1"}

# Words by the names of the arguments that take them.
WORDS = {"byte order": '"big"', "quantize mode": '"none"', "storage kind": '"compact"'}


def good(argument):
    if argument.kind == "data":
        class_name = argument.class_text.removesuffix(" array")
        return '"x"' if class_name == "char" else f"{class_name}(0)"
    return WORDS.get(argument.error_name) or GOOD[argument.kind]


def call(entry, values):
    return f"{entry.function}({', '.join([f'{chr(34)}{entry.name}{chr(34)}', *values])});"


def as_word(name):
    return rf"(?<!\w){re.escape(name)}(?!\w)" if name else "^"


def errors_of(calls, setup=()):
    """(identifier, message) of each call's error."""
    with tempfile.TemporaryDirectory() as folder:
        lines = pathlib.Path(folder, "calls.txt")
        lines.write_text("\n".join(calls) + "\n")
        printed = interpreter.text_of(HERE / "raise_errors.m", lines, *setup).splitlines()
    assert len(printed) == len(calls)
    return [line.split("\t") for line in printed]


class BadArguments(unittest.TestCase):
    def test_are_reported_by_the_name_in_the_entry_if_of_wrong_class(self):
        cases = []
        for entry in ENTRIES:
            values = [good(argument) for argument in entry.arguments]
            for i, argument in enumerate(entry.arguments):
                if argument.kind not in COMMON.later:
                    error = COMMON.kinds[argument.kind][1][0]
                    named = argument.error_name if "NAME" in error.arguments else ""
                    bad = values[:i] + ["{1}"] + values[i + 1:]
                    cases.append((call(entry, bad), error.identifier, named))
        self.assertGreater(len(cases), 400)
        for (code, identifier, named), (raised, message) in zip(cases, errors_of([c[0] for c in cases])):
            with self.subTest(code):
                self.assertEqual(raised, f"Ovard:gridio:{identifier}")
                self.assertRegex(message, as_word(named))

    def test_are_reported_from_left_to_right(self):
        several = [entry for entry in ENTRIES
                   if sum(a.kind not in COMMON.later for a in entry.arguments) > 1]
        calls = [call(e, ["{1}"] * len(e.arguments)) for e in several]
        for entry, (raised, message) in zip(several, errors_of(calls)):
            with self.subTest(entry.name):
                first = entry.arguments[0]
                self.assertEqual(raised, f"Ovard:gridio:{COMMON.kinds[first.kind][1][0].identifier}")
                self.assertRegex(message, as_word(first.error_name))

    def test_are_refused_in_another_number(self):
        calls = []
        for entry in ENTRIES:
            values = [good(argument) for argument in entry.arguments]
            calls += [call(entry, values + ["1"])] + [call(entry, values[1:])] * bool(values)
        for code, (raised, _) in zip(calls, errors_of(calls)):
            with self.subTest(code):
                self.assertEqual(raised, "Ovard:gridio:validate:wrongNumberOfInputs")


class Refusals(unittest.TestCase):
    setup = [HERE / "refusals_setup.m"]

    def check(self, cases, setup):
        for (name, status, code), (raised, message) in zip(cases, errors_of([c[2] for c in cases], setup)):
            with self.subTest(code):
                self.assertEqual(raised, "Ovard:gridio:netcdf:libraryFailure", message)
                self.assertTrue(message.startswith(f"{name}: {status}: "), message)

    def test_have_the_entries_status_for_identifiers_that_are_not_open(self):
        cases = [(e.name, "NC_EBADID", call(e, ["12345678"] + [good(a) for a in e.arguments[1:]]))
                 for e in ENTRIES if "NC_EBADID" in dict(e.statuses)]
        self.assertEqual(len(cases), sum(any(a.name == "ncid" for a in e.arguments) for e in ENTRIES))
        self.check(cases, [])

    def test_have_the_entries_status_for_missing_variables(self):
        known = {"ncid": "nc4", "varid": "99", "ncid_out": "nc4", "varid_out": "-1"}
        cases = [(e.name, "NC_ENOTVAR",
                  call(e, [known.get(a.name) or good(a) for a in e.arguments]))
                 for e in ENTRIES if "NC_ENOTVAR" in dict(e.statuses) and self.is_shown(e)
                 and any(a.name == "varid" for a in e.arguments)]
        self.check(cases, self.setup)

    # One type stands for all that share a template.
    @staticmethod
    def is_shown(entry):
        return entry.function == operation_entries.ANY or not re.fullmatch(
            r"(get|put)(Att|Var[1as]?)(?!Short|Text)[A-Z]\w*", entry.name)

    @staticmethod
    def holds_here(line):
        release = re.search(r" % ([\d.]+)$", line)
        return not release or release[1] == library_release()

    def test_bear_the_statuses_that_the_entries_name(self):
        generic = {"NC_EBADID", "NC_ENOTVAR"}
        for function, file in ((operation_entries.FIRST, "refusals.txt"), (operation_entries.ANY, "refusals_any.txt")):
            lines = (HERE / file).read_text().splitlines()
            cases = [line.split(" ", 2) for line in lines if not line.startswith("#") and self.holds_here(line)]
            named = {(e.name, status) for e in ENTRIES if e.function == function and self.is_shown(e)
                     for status, _ in e.statuses if status not in generic}
            self.assertEqual({(name, status) for name, status, _ in cases if status not in generic}, named)
            self.check(cases, self.setup)


if __name__ == "__main__":
    unittest.main()
