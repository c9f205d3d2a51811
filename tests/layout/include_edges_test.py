# SPDX-License-Identifier: BSD-3-Clause
"""Includes between folders never run upwards.

The folders form layers. A file may include files of lower layers and of its own folder; folders of one layer must not
include each other. Outside the module, a host may include include/, the message catalogue and itself.
"""
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
SEARCHED = ("include", "src", ".")  # where a quoted name is looked up, besides the file's own folder
SOURCES = {".h", ".cpp", ".cc"}

# From the lowest layer up. None is the layer of the operations: every other folder of src.
LAYERS = ("src/cf", "include/vx", "include", "src/library", "src/convert", "src/data/elements", "src/chunks", "src/types", None,
          "src/datasets", "src/gateway", "hosts/memory", "hosts/messages", "hosts")


def area(path):
    """The innermost folder of the path that is an area of its own."""
    folders = [parent.as_posix() for parent in pathlib.PurePosixPath(path).parents]
    for folder in folders:
        if folder in LAYERS and folder != "hosts":
            return folder
    return "/".join(path.split("/")[:2])  # of operations or of a host


def layer(path):
    place = area(path)
    if place in LAYERS:
        return LAYERS.index(place)
    return LAYERS.index("hosts" if place.startswith("hosts/") else None)


def may_include(includer, included):
    """Whether the file includer may include the file included; both relative to the root."""
    if area(includer) == area(included):
        return True
    if includer.startswith("hosts/") and included.startswith("src/"):
        return False
    return layer(included) < layer(includer)


def resolve(includer, name):
    """The file that a quoted include means, relative to the root; None when it does not exist."""
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
    def test_no_include_runs_upwards(self):
        seen = 0
        for path, name in includes():
            includer = path.relative_to(ROOT).as_posix()
            included = resolve(path, name)
            with self.subTest(includer=includer, include=name):
                self.assertIsNotNone(included, "the file does not exist")
                self.assertTrue(may_include(includer, included), f"{area(included)} is not below {area(includer)}")
            seen += 1
        self.assertGreater(seen, 100)

    def test_a_source_file_is_included_nowhere(self):
        for path, name in includes():
            self.assertTrue(name.endswith(".h"), f"{path} includes {name}")

    def test_refuses_folders_of_one_layer_and_layers_above(self):
        for includer, included in (
            ("src/cf/x.cpp", "include/vx/x.h"),
            ("include/vx/x.h", "include/x.h"),
            ("include/x.h", "src/convert/x.h"),
            ("src/library/guards/x.cpp", "src/convert/x.h"),
            ("src/convert/x.cpp", "src/data/elements/x.h"),
            ("src/data/elements/x.h", "src/data/x.h"),
            ("src/types/x.h", "src/any/x.h"),
            ("src/data/elements/x.h", "src/types/x.h"),
            ("src/data/elements/x.h", "src/chunks/x.h"),
            ("src/chunks/x.cpp", "src/data/x.h"),
            ("src/files/x.cpp", "src/gateway/x.h"),
            ("src/files/x.cpp", "src/constants/x.h"),
            ("src/attributes/x.cpp", "src/data/x.h"),
            ("src/attributes/x.cpp", "hosts/standalone/x.h"),
            ("hosts/standalone/x.cpp", "src/convert/x.h"),
            ("hosts/standalone/x.cpp", "hosts/octave/x.h"),
            ("hosts/messages/x.cpp", "hosts/standalone/x.h"),
        ):
            self.assertFalse(may_include(includer, included), f"{includer} -> {included}")

    def test_allows_lower_layers_and_the_own_folder(self):
        for includer, included in (
            ("src/library/guards/x.cpp", "src/library/x.h"),
            ("src/library/x.cpp", "src/library/guards/x.h"),
            ("src/data/x.cpp", "src/data/elements/x.h"),
            ("src/chunks/codecs/x.cpp", "src/data/elements/x.h"),
            ("src/data/x.cpp", "src/chunks/x.h"),
            ("src/attributes/x.cpp", "src/data/elements/x.h"),
            ("src/any/x.cpp", "src/types/x.h"),
            ("src/types/x.cpp", "src/data/elements/x.h"),
            ("src/gateway/x.cpp", "src/files/x.h"),
            ("hosts/octave/x.cc", "hosts/messages/x.h"),
            ("hosts/octave/x.cc", "include/x.h"),
        ):
            self.assertTrue(may_include(includer, included), f"{includer} -> {included}")


if __name__ == "__main__":
    unittest.main()
