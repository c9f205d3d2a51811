#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Each recipe of the manual beside the same job in Python's xarray, tests/manual/recipes/NAME.py: the same numbers, in no more
lines. The manual's outputs are those that examples_test.py has seen printed."""
import contextlib
import io
import os
import pathlib
import re
import tempfile
import unittest
import warnings

import xarray

import interpreter
import manual_source

COUNTERPARTS = pathlib.Path(__file__).resolve().parent / "recipes"


def recipes():
    """{name: (code, output)}"""
    found = {}
    for chain in manual_source.chains(manual_source.CHAPTERS / "recipes.texi"):
        code, output = chain
        assert (code.kind, output.kind) == ("sample", "prints") and code.name not in found, code.where()
        found[code.name] = code.text, output.text
    return found


def lines_of(code, comment):
    return [line for line in code.splitlines() if line.strip() and not line.startswith(comment)]


def numbers_of(text):
    """(value, error of rounding) of each number, dates and words left out."""
    words = re.findall(r"(?<![\w.-])-?\d+\.?\d*(?:e[-+]?\d+)?(?![\w-])", text)
    return [(float(word), 10.0 ** -len(word.partition("e")[0].partition(".")[2])) for word in words]


def printed_by(code):
    """What a counterpart prints; it draws nothing, as the numbers do not need it."""
    code = "".join(line for line in code.splitlines(True) if not re.search(r"\bplt\b|\.plot\(", line))
    printed = io.StringIO()
    with contextlib.redirect_stdout(printed), xarray.set_options(keep_attrs=True), warnings.catch_warnings():
        warnings.simplefilter("ignore")
        exec(compile(code, "recipe", "exec"), {})
    return printed.getvalue()


class Recipes(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.addClassCleanup(os.chdir, os.getcwd())
        os.environ["GRIDIO_OCT_DIR"] = os.path.abspath(os.environ["GRIDIO_OCT_DIR"])
        os.chdir(folder.name)
        interpreter.text_of(interpreter.ROOT / "examples" / "sample.m")

    def test_each_have_a_counterpart(self):
        found = recipes()
        self.assertGreaterEqual(len(found), 12)
        self.assertEqual(set(found), {path.stem for path in COUNTERPARTS.glob("*.py")})

    def test_take_no_more_lines(self):
        for name, (code, _) in recipes().items():
            with self.subTest(name):
                other = (COUNTERPARTS / f"{name}.py").read_text("utf-8")
                own = ["pkg load gridio", *lines_of(code, "%")]
                self.assertLessEqual(len(own), len(lines_of(other, "#")))

    def test_print_the_same_numbers(self):
        for name, (_, output) in recipes().items():
            with self.subTest(name):
                expected = numbers_of(printed_by((COUNTERPARTS / f"{name}.py").read_text("utf-8")))
                self.assertTrue(expected)
                own = numbers_of(output)[:len(expected) if name == "look" else None]
                self.assertEqual(len(own), len(expected), (own, expected))
                for (value, error), (other, other_error) in zip(own, expected):
                    self.assertAlmostEqual(value, other, delta=1.01 * max(error, other_error), msg=f"{own} {expected}")


if __name__ == "__main__":
    unittest.main()
