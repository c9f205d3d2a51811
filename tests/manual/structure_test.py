# SPDX-License-Identifier: BSD-3-Clause
"""The manual: it can be built, its links work, and it has an entry for every error."""
import html.parser
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

import error_lists
import manual_source

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "docs"))
import make_manual

def declared_errors():
    """{identifier: number of arguments} of the module, and of the host and the package without the number."""
    found = {error_lists.PREFIX + identifier: count for identifier, count in error_lists.of_the_module().items()}
    for identifier in error_lists.of_the_host() | error_lists.of_the_package():
        assert error_lists.PREFIX + identifier not in found, f"{identifier} is listed twice"
        found[error_lists.PREFIX + identifier] = None
    return found


def entries():
    """{identifier: (number of arguments or None, text of the entry)}"""
    return {entry.identifier: (entry.count, entry.body) for entry in manual_source.error_entries()}


def catalogue():
    """{identifier: patterns of its messages}: the general one, and those that describe the call."""
    found = {}
    lines = subprocess.run([os.environ["LIST_MESSAGES"]], capture_output=True, text=True, check=True).stdout.splitlines()
    for identifier, text in zip(lines[::2], lines[1::2], strict=True):
        pattern = re.sub(r"\\\{\d\\\}", "(?s:.+)", re.escape(text))
        found.setdefault(identifier, []).append(re.sub(r"(\\ )+", r"\\s+", pattern))
    return found


class Errors(unittest.TestCase):
    def test_all_have_an_entry_with_their_arguments(self):
        expected = declared_errors()
        self.assertGreater(len(expected), 33)
        found = {name: count for name, (count, _) in entries().items() if name != "Octave:bad-alloc"}
        self.assertEqual(found, expected)
        self.assertIn("Octave:bad-alloc", entries())

    def test_are_raised_by_kinds_of_the_list(self):
        for path in (ROOT / "hosts" / "octave" / "inst").rglob("*.m"):
            if path.name != "error_identifier.m":
                with self.subTest(path.name):
                    self.assertNotRegex(path.read_text("utf-8"), r"\b(error|warning) \(\[?\"Ovard:", "use fail or error_identifier")

    def test_have_a_meaning_a_cause_and_a_cure(self):
        for name, (_, body) in entries().items():
            with self.subTest(name):
                self.assertRegex(body, r"@cindex @code\{.+\}\n?(?s:.+)@emph\{Usual cause\.\} (?s:.+)@emph\{Cure\.\} ")

    def test_are_shown_by_an_example_unless_nothing_brings_them_about(self):
        patterns = catalogue()
        for name, (_, body) in entries().items():
            with self.subTest(name):
                shown = re.findall(r"@c prints\n@smallexample\n(.*?)@end smallexample", body, re.S)
                self.assertEqual(not shown, name in manual_source.UNREACHABLE)
                if shown and name in patterns:
                    self.assertRegex(" ".join(shown), rf"(error|warning):\s+(?s:.*)({'|'.join(patterns[name])})")

    def test_have_the_advice_of_the_messages(self):
        rows = [row for _, rows in make_manual.status_advice() for row in rows]
        self.assertGreater(len(rows), 50)
        table = make_manual.statuses_texinfo()
        for status, advice in rows:
            with self.subTest(status):
                self.assertIn(f"@item {status}\n", table)
                self.assertTrue(advice.endswith("."))


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.anchors, self.links, self.pictures = set(), [], []
        self.feed(path.read_text("utf-8"))

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.anchors.update(attributes[key] for key in ("id", "name") if attributes.get(key))
        if tag == "a" and attributes.get("href"):
            self.links.append(attributes["href"])
        if tag == "img":
            self.pictures.append(attributes["src"])


class Built(unittest.TestCase):
    """make_manual stops at any warning of makeinfo."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name) / "manual"
        done = subprocess.run([sys.executable, "-B", ROOT / "docs" / "make_manual.py", cls.folder],
                              capture_output=True, text=True)
        assert done.returncode == 0, done
        cls.printed = done.stdout.splitlines()
        cls.pages = {path.name: Page(path) for path in (cls.folder / "html").glob("*.html")}

    def test_leaves_what_it_says(self):
        self.assertTrue({"index.html", "gridio.info"} <= {pathlib.Path(line).name for line in self.printed})
        for line in self.printed:
            self.assertGreater(pathlib.Path(line).stat().st_size, 1000)

    def test_has_every_chapter_and_every_operation(self):
        main = (manual_source.CHAPTERS / "gridio.texi").read_text()
        self.assertEqual(set(re.findall(r"^@include (\w+\.texi)$", main, re.M)) - {"version.texi", "operations.texi"},
                         {path.name for path in manual_source.chapters()})
        for name in ("First-steps", "Errors-and-their-cures", "Operations", "open", "putVar1UInt64"):
            self.assertIn(f"{name}.html", self.pages)
        info = (self.folder / "gridio.info").read_text("utf-8")
        self.assertIn("last dimension fastest", info)

    def test_index_leads_to_every_function_of_the_package(self):
        """Octave's "doc NAME" looks there."""
        index = (self.folder / "gridio.info").read_text("utf-8").partition("\nIndex\n")[2]
        functions = re.findall(r"^ (\w+)$", (ROOT / "hosts/octave/package/INDEX").read_text(), re.M)
        self.assertGreater(len(functions), 4)
        for name in functions:
            self.assertTrue(re.search(rf"(?m)^\* {name}: +The package\.", index), name)

    def test_leads_nowhere_wrong(self):
        count = 0
        for name, page in self.pages.items():
            for link in page.links:
                if not re.match(r"\w+:", link):
                    target, _, anchor = link.partition("#")
                    self.assertIn(target or name, self.pages, f"{name}: {link}")
                    if anchor:
                        self.assertIn(anchor, self.pages[target or name].anchors, f"{name}: {link}")
                    count += 1
            for picture in page.pictures:
                self.assertTrue((self.folder / "html" / picture).is_file(), f"{name}: {picture}")
        self.assertGreater(count, 500)
        self.assertIn("dimension_order.svg", self.pages["Dimension-order.html"].pictures)


class Pointers(unittest.TestCase):
    """Everything that README.md, CONTRIBUTING.md and the manual refer to exists."""
    texts = {path.name: path.read_text("utf-8")
             for path in [ROOT / "README.md", ROOT / "CONTRIBUTING.md", *manual_source.CHAPTERS.glob("*.texi")]}

    def test_commands_of_the_front_door(self):
        commands = set(re.findall(r"^command_(\w+)\(\)", (ROOT / "gridio").read_text(), re.M))
        for name, text in self.texts.items():
            for command in re.findall(r"\./gridio (\w+)", text):
                with self.subTest(name, command=command):
                    self.assertIn(command, commands)

    def test_files_of_the_tree(self):
        places = r"(?:examples|docs|tests|hosts|include|src|fuzz|bench)/"
        for name, text in self.texts.items():
            found = re.findall(rf"@file\{{({places}[^}}]*)\}}|`({places}[^` ]*)`", text)
            links = re.findall(r"\]\(((?!http)[^)#]+)\)", text) if name.endswith(".md") else []
            for path in ["".join(groups) for groups in found] + links:
                with self.subTest(name, path=path):
                    self.assertTrue((ROOT / path).exists())

    def test_packages_that_the_front_door_installs_too(self):
        rows = re.findall(r"^(?:run|package) +(\S+)", (ROOT / "gridio").read_text(), re.M)
        listed = {name for row in rows for name in row.split("|")}
        wanted = " ".join(re.findall(r"apt-get install (.+)", self.texts["first_steps.texi"])).split()
        self.assertGreater(len(wanted), 8)
        self.assertEqual(set(wanted) - listed, set())

    def test_presets(self):
        presets = (ROOT / "CMakePresets.json").read_text()
        for preset in re.findall(r"--preset (\w+)", self.texts["CONTRIBUTING.md"]):
            self.assertIn(f'"name": "{preset}"', presets)


class Claims(unittest.TestCase):
    def test_do_not_go_beyond_what_the_limits_admit(self):
        self.assertIn("@code{NC_STRING}", (manual_source.CHAPTERS / "limits.texi").read_text())
        for path in [ROOT / "README.md", ROOT / "gridio", ROOT / "hosts/octave/package/DESCRIPTION.in",
                     *manual_source.CHAPTERS.glob("*.texi")]:
            with self.subTest(path.name):
                self.assertNotRegex(" ".join(path.read_text("utf-8").split()),
                                    r"whole \[?netCDF (C )?library|each function of the|next to nothing")

    def test_name_what_stays_behind_and_where_to_report(self):
        for text in ((ROOT / "README.md").read_text(), (manual_source.CHAPTERS / "package.texi").read_text()):
            for word in ("Uninstall", "pkg uninstall gridio", "/var/log/apt/history.log", "issue tracker", "gridio_version ()"):
                self.assertIn(word, text)

    def test_agree_on_the_size_of_the_download(self):
        for text in ((ROOT / "README.md").read_text(), (manual_source.CHAPTERS / "first_steps.texi").read_text()):
            self.assertRegex(text, r"300 MB")


class Programs(unittest.TestCase):
    def test_print_what_the_manual_says(self):
        programs = [b for path in manual_source.chapters() for b in manual_source.blocks(path) if b.kind == "program"]
        self.assertTrue(programs)
        for block in programs:
            with tempfile.TemporaryDirectory() as folder, self.subTest(block.name):
                done = subprocess.run([os.path.join(os.environ["PROGRAMS"], block.name)], cwd=folder,
                                      capture_output=True, text=True)
                self.assertEqual((done.returncode, done.stderr), (0, ""))
                self.assertEqual(done.stdout, block.text)


if __name__ == "__main__":
    unittest.main()
