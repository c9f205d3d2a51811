# SPDX-License-Identifier: BSD-3-Clause
"""Keeps the edges between folders: who may include whom.

include/vx <- include/ <- src/convert <- the shared files of src/data <- the folders of handlers
<- src/gateway/operation_table.cpp. Nobody else includes from src/gateway, src/ never sees hosts/, and a host sees
include/vx, the messages and itself. The messages see include/vx and the list of open files.
"""
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
SEARCHED = ("include", "src", ".")  # where a quoted name is looked up, besides the file's own folder
SOURCES = {".h", ".cpp", ".cc"}

VX = r"include/vx/"
SHARED = VX + r"|include/[^/]+$"
CONVERT = SHARED + r"|src/convert/"
DATA_FILES = r"src/data/(element_types|element_storage|index_vectors|known_dimensions|rank_limit|shapes)\.(h|cpp)$"
ELEMENTS = CONVERT + "|" + DATA_FILES

# (including file, files that it may include): the first row that matches holds. {0} is the left side's group.
EDGES = (
    (VX, VX),
    (r"include/", SHARED),
    (r"src/convert/", CONVERT),
    (DATA_FILES, ELEMENTS),
    (r"src/gateway/operation_table\.cpp$", SHARED + r"|src/gateway/operation_table\.h$|src/[^/]+/[^/]+_operations\.h$"),
    (r"src/gateway/", CONVERT + r"|src/gateway/"),
    (r"src/([^/]+)/", ELEMENTS + r"|src/{0}/"),
    # Files that were given up are never inquired, also for a message.
    (r"hosts/messages/", VX + r"|include/open_file_registry\.h$|hosts/messages/"),
    # The one look of a host into the module: which of the library's files are the scripts' own.
    (r"hosts/octave/session\.cc$", VX + r"|include/open_file_registry\.h$|hosts/octave/"),
    (r"hosts/([^/]+)/", VX + r"|hosts/messages/|hosts/{0}/"),
)


def may_include(includer, included):
    """Whether the file includer may include the file included; both relative to the root."""
    for left, right in EDGES:
        match = re.match(left, includer)
        if match:
            return re.match(right.replace("{0}", match.group(1) if match.re.groups == 1 else ""), included) is not None
    return False


def resolve(includer, name):
    """The file that a quoted include means, relative to the root; None when there is none."""
    for folder in (includer.parent, *(ROOT / place for place in SEARCHED)):
        candidate = (folder / name).resolve()
        if candidate.is_file():
            return candidate.relative_to(ROOT).as_posix()
    return None


def includes():
    for folder in ("include", "src", "hosts"):
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix in SOURCES:
                for name in re.findall(r'^\s*#\s*include\s*"([^"]+)"', path.read_text(), re.MULTILINE):
                    yield path, name


class IncludeEdges(unittest.TestCase):
    def test_every_include_follows_an_edge(self):
        seen = 0
        for path, name in includes():
            includer = path.relative_to(ROOT).as_posix()
            included = resolve(path, name)
            with self.subTest(includer=includer, include=name):
                self.assertIsNotNone(included, "there is no such file")
                self.assertTrue(may_include(includer, included), "no edge leads there")
            seen += 1
        self.assertGreater(seen, 100)

    def test_a_source_file_of_the_module_is_included_by_nobody(self):
        for path, name in includes():
            self.assertTrue(name.endswith(".h"), f"{path} includes {name}")

    def test_edges_that_there_are_not_are_refused(self):
        for includer, included in (
            ("include/vx/array.h", "include/operation_entry.h"),
            ("include/check_status.h", "src/convert/argument_readers.h"),
            ("src/convert/argument_readers.cpp", "src/data/element_types.h"),
            ("src/convert/argument_readers.cpp", "src/gateway/error_code_names.h"),
            ("src/data/element_types.h", "src/data/data_operations.h"),
            ("src/data/shapes.cpp", "src/files/mode_words.h"),
            ("src/files/open_operations.cpp", "src/gateway/operation_table.h"),
            ("src/files/open_operations.cpp", "src/constants/constant_table.h"),
            ("src/definitions/fill_operations.cpp", "src/data/data_operations.h"),
            ("src/attributes/value_operations.cpp", "hosts/standalone/array.h"),
            ("src/gateway/plug_function.cpp", "src/files/file_operations.h"),
            ("src/gateway/operation_table.cpp", "src/files/mode_words.h"),
            ("hosts/standalone/host.cpp", "include/operation_entry.h"),
            ("hosts/standalone/host.cpp", "hosts/octave/array.h"),
            ("hosts/octave/gridio.cc", "include/open_file_registry.h"),
            ("hosts/octave/session.cc", "src/convert/host_memory.h"),
            ("hosts/messages/message_catalogue.cpp", "hosts/standalone/text.h"),
            ("hosts/messages/message_catalogue.cpp", "include/error_identifiers.h"),
            ("hosts/messages/constant_names.cpp", "src/constants/constant_table.h"),
        ):
            self.assertFalse(may_include(includer, included), f"{includer} -> {included}")


if __name__ == "__main__":
    unittest.main()
