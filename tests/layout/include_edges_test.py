# SPDX-License-Identifier: BSD-3-Clause
"""Includes between folders never run upwards.

The folders are floors of a house. A file may include what lies on a lower floor, and what lies in its own room; rooms of one
floor do not see each other. Outside of the module, a host sees include/, the message catalogue and itself.
"""
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
SEARCHED = ("include", "src", ".")  # where a quoted name is looked up, besides the file's own folder
SOURCES = {".h", ".cpp"}

# From the ground up. None stands for the rooms of the operations: every other folder of src.
FLOORS = ("src/cf", "include/vx", "include", "src/library", "src/convert", "src/data/elements", "src/chunks", "src/types", None,
          "src/gateway", "hosts/memory", "hosts/messages", "hosts")


def room(path):
    """The innermost folder of the path that is a room."""
    folders = [parent.as_posix() for parent in pathlib.PurePosixPath(path).parents]
    for folder in folders:
        if folder in FLOORS and folder != "hosts":
            return folder
    return "/".join(path.split("/")[:2])  # of an operation room or a host


def floor(path):
    place = room(path)
    if place in FLOORS:
        return FLOORS.index(place)
    return FLOORS.index("hosts" if place.startswith("hosts/") else None)


def may_include(includer, included):
    """Whether the file includer may include the file included; both relative to the root."""
    if room(includer) == room(included):
        return True
    if includer.startswith("hosts/") and included.startswith("src/"):
        return False
    return floor(included) < floor(includer)


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
                self.assertTrue(may_include(includer, included), f"{room(included)} is not below {room(includer)}")
            seen += 1
        self.assertGreater(seen, 100)

    def test_a_source_file_is_included_nowhere(self):
        for path, name in includes():
            self.assertTrue(name.endswith(".h"), f"{path} includes {name}")

    def test_rooms_of_one_floor_and_floors_above_are_refused(self):
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

    def test_lower_floors_and_the_own_room_are_allowed(self):
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
            ("hosts/octave/x.cpp", "hosts/messages/x.h"),
            ("hosts/octave/x.cpp", "include/x.h"),
        ):
            self.assertTrue(may_include(includer, included), f"{includer} -> {included}")


if __name__ == "__main__":
    unittest.main()
