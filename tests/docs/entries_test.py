# SPDX-License-Identifier: BSD-3-Clause
"""Compares the entries of the operations' manual with the sources that they describe."""
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

import error_lists
import make_operations
import operation_entries

ENTRIES = operation_entries.read_all_entries()


def table_rows():
    """(name, number of arguments, first name with the same handler) of each row of the code's tables; a name is a pair of the
    function that calls it and its own."""
    listing = subprocess.run([os.environ["LIST_OPERATIONS"]], capture_output=True, text=True, check=True)
    rows = [line.split() for line in listing.stdout.splitlines()]
    return [((function, name), int(nargs), (function, first)) for function, name, nargs, first in rows]


def name_of(entry):
    return entry.function, entry.name


def error_classes():
    """{"netcdf:libraryFailure": number of arguments, ...} of gridio and gridio_any; datasets have no entries there."""
    return {identifier: count for identifier, count in error_lists.of_the_module().items()
            if not identifier.startswith("dataset:")}


class Table(unittest.TestCase):
    def test_has_an_entry_for_every_name_and_no_other(self):
        self.assertEqual(sorted({name for name, _, _ in table_rows()}),
                         sorted(map(name_of, ENTRIES)))

    def test_agrees_with_the_entries_on_the_number_of_arguments(self):
        first_rows = {name: nargs for name, nargs, _ in reversed(table_rows())}
        self.assertEqual(first_rows, {name_of(entry): len(entry.arguments) for entry in ENTRIES})

    def test_puts_operations_of_one_handler_into_one_family(self):
        families = {name_of(entry): entry.family for entry in ENTRIES}
        for name, _, first in table_rows():
            with self.subTest(name):
                self.assertEqual(families[name], families[first])


class Headers(unittest.TestCase):
    def setUp(self):
        header = "".join(pathlib.Path(os.environ["NETCDF_INCLUDE"], name).read_text()
                         for name in ("netcdf.h", "netcdf_filter.h"))
        self.functions = set(re.findall(r"\b(nc_\w+)\(", header))
        self.constants = set(re.findall(r"^#define\s+(NC_\w+)\s", header, re.M))

    def test_declare_every_library_function(self):
        for entry in ENTRIES:
            for function in entry.library:
                with self.subTest(entry.title(), function=function):
                    self.assertTrue(function in self.functions)

    def test_define_every_status(self):
        for status in {status for entry in ENTRIES for status, _ in entry.statuses}:
            if not status.lstrip("-").isdigit():
                with self.subTest(status):
                    self.assertTrue(status in self.constants)

    def test_declare_every_error_with_as_many_arguments(self):
        classes = error_classes()
        for entry in ENTRIES:
            for error in entry.errors:
                with self.subTest(entry.title(), error=error.call()):
                    self.assertEqual(classes.get(error.identifier), len(error.arguments))

    # The name of an operation comes before its entry; the code of a family cannot be wrong; and one is a warning.
    def test_declare_no_error_that_no_entry_names(self):
        named = {error.identifier for entry in ENTRIES for error in entry.errors}
        self.assertEqual(set(error_classes()) - named,
                         {"netcdf:unrecognizedOperation", "netcdf:unhandledAttributeOperation",
                          "netcdf:closingFileHandle"})


class Generated(unittest.TestCase):
    remedy = "run docs/make_operations.py"

    def test_markdown_is_up_to_date(self):
        self.assertTrue(make_operations.MARKDOWN.read_text("utf-8") == make_operations.markdown(ENTRIES),
                        self.remedy)

    def test_text_is_up_to_date_and_fits_a_terminal(self):
        text = make_operations.TEXT.read_text("utf-8")
        self.assertTrue(text == make_operations.text(ENTRIES), self.remedy)
        self.assertLessEqual(max(map(len, text.splitlines())), 80)

    def test_forms_of_the_messages_are_up_to_date(self):
        self.assertTrue(make_operations.FORMS.read_text("utf-8") == make_operations.forms(ENTRIES), self.remedy)

    def test_links_of_the_markdown_lead_to_headings(self):
        text = make_operations.markdown(ENTRIES)
        headings = [make_operations.anchor(title) for title in re.findall(r"^##+ (.+)$", text, re.M)]
        self.assertEqual(len(headings), len(set(headings)))
        links = re.findall(r"\]\(#([^)]*)\)", text)
        self.assertEqual(sorted(links), sorted(headings))

    def test_chapter_of_the_manual_is_sound_texinfo(self):
        chapter = make_operations.texinfo(ENTRIES)
        with tempfile.TemporaryDirectory() as folder:
            manual = pathlib.Path(folder, "manual.texi")
            manual.write_text("\\input texinfo\n@settitle gridio\n@node Top\n@top gridio\n@menu\n"
                              f"* Operations::\n@end menu\n{chapter}@bye\n")
            done = subprocess.run(["makeinfo", "--error-limit=5", "--info", manual.name], cwd=folder,
                                  capture_output=True, text=True)
            self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))


if __name__ == "__main__":
    unittest.main()
