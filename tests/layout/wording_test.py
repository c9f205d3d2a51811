#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Refuses phrases that readers have to translate back into plain English, and riddles as test names.

The list is short on purpose: each phrase was common once, has a plain counterpart, and has no other use in this tree.
"""
import pathlib
import re
import subprocess
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
SOURCES = {".cc", ".cpp", ".h", ".in", ".m", ".md", ".py", ".sh", ".texi", ".tst", ".txt"}
PHRASES = {
    r"\btold\b": "reported, given, distinguished",
    r"\bto be had\b": "available",
    r"\bcomes? to pass\b": "succeed, happen",
    r"\bmade[- ]up\b(?! of)": "generated, invented",
    r"\bgiven[- ]up\b": "abandoned",
    r"\btaken apart\b": "torn down, modified",
    r"\bcan not\b": "cannot",
    r"(?<![Tt]here )\bis none\b": "is not one",
    r"\bthat there (is|are)[.,;:)]": "that exist, or nothing",
    r"\bof (its|their) mind\b": "meaningless",
    r"\b(is|are|was) held against\b": "is compared with",
    r"\bhas not one\b": "does not have one",
    r"\bso (many|much) room\b": "so much space, so large a buffer",
}
# A suite is the thing under test and a test's name begins with a verb.
RIDDLE = re.compile(r"^TEST(?:_F|_P)?\(\w+,\s*(?:A|An|At|For|From|In|Of|That|The|Under|With|Without)[A-Z]\w*", re.M)


def tracked_files():
    try:
        names = subprocess.run(["git", "ls-files"], cwd=ROOT, capture_output=True, text=True, check=True).stdout.split("\n")
    except (OSError, subprocess.CalledProcessError):  # a tree without its history
        names = [path.relative_to(ROOT).as_posix() for path in ROOT.rglob("*")]
    own = pathlib.Path(__file__).resolve()
    for name in filter(None, names):
        path = ROOT / name
        if name.split("/")[0] in ("build", "dist", ".git") or path == own or not path.is_file():
            continue
        if path.suffix in SOURCES or not path.suffix:
            yield name, path.read_text("utf-8", errors="replace")


class Text(unittest.TestCase):
    def test_has_none_of_the_refused_phrases(self):
        any_phrase = re.compile("|".join(PHRASES))
        found = [f"{name}:{text.count(chr(10), 0, match.start()) + 1}: \"{match.group()}\""
                 for name, text in tracked_files() if "/corpus/" not in name for match in any_phrase.finditer(text)]
        plain = "\n".join(f"{phrase}: {better}" for phrase, better in PHRASES.items())
        self.assertEqual(found, [], f"\n\nBetter words:\n{plain}")


class TestNames(unittest.TestCase):
    def test_begin_with_a_verb(self):
        found = [f"{name}: {match.group()}" for name, text in tracked_files() if name.startswith("tests/")
                 for match in RIDDLE.finditer(text)]
        self.assertEqual(found, [])


if __name__ == "__main__":
    unittest.main()
