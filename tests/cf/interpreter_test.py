# SPDX-License-Identifier: BSD-3-Clause
"""Compares datenum with the interpreter's own: interpreter_test.py CONVERT_TIMES."""
import math
import pathlib
import random
import subprocess
import sys
import tempfile
import unittest

import interpreter

CONVERT_TIMES, = sys.argv[1:]
UNITS = "milliseconds since 0001-01-01"
MILLISECONDS_PER_DAY = 86_400_000
SCRIPT = r"""
x = load ("parts.txt");
d = datenum (x);
printf ("%.17g\n", d);
texts = datestr (d(1:200), "yyyy-mm-dd HH:MM:SS.FFF");
disp (texts);
"""


def converted(command, values):
    asked = "".join(f"{command}|{UNITS}|{value!r}\n" for value in values)
    return subprocess.run([CONVERT_TIMES], input=asked, capture_output=True, text=True, check=True).stdout.splitlines()


class Datenum(unittest.TestCase):
    def test_is_that_of_the_interpreter_there_and_back(self):
        draw = random.Random(719529)
        values = [day * MILLISECONDS_PER_DAY + draw.choice((0, draw.randrange(24) * 3_600_000, draw.randrange(86_400) * 1000,
                                                            draw.randrange(MILLISECONDS_PER_DAY)))
                  for day in [0, 577_736, 577_735, 719_162] + [draw.randrange(-500_000, 3_000_000) for _ in range(3000)]]
        answers = [answer.split() for answer in converted("value|proleptic_gregorian", values)]
        self.assertEqual(len(answers), len(values))

        with tempfile.TemporaryDirectory() as folder:
            rows = [" ".join(answer[:5]) + f" {int(answer[5]) + int(answer[6]) / 1e6!r}\n" for answer in answers]
            pathlib.Path(folder, "parts.txt").write_text("".join(rows))
            pathlib.Path(folder, "script.m").write_text(SCRIPT)
            printed = interpreter.output_of("script.m", cwd=folder)
        theirs, texts = [float(line) for line in printed[:len(values)]], printed[len(values):]

        for answer, their in zip(answers, theirs, strict=True):
            self.assertLessEqual(abs(float(answer[8]) - their), math.ulp(their), answer)
        self.assertEqual(len(texts), 200)
        for answer, text in zip(answers, texts):
            if int(answer[0]) > 0:
                year, month, day, hour, minute, second, microsecond = map(int, answer[:7])
                self.assertEqual(text.rstrip(), f"{year:04}-{month:02}-{day:02} {hour:02}:{minute:02}:{second:02}.{microsecond // 1000:03}")

        back = converted("datenum|proleptic_gregorian", theirs)
        self.assertEqual([float(answer) for answer in back], [float(value) for value in values])

    def test_begins_with_the_gregorian_dates_in_calendar_standard(self):
        first = 577_735 * MILLISECONDS_PER_DAY  # two days less than in proleptic_gregorian until 1582-10-15
        for value, expected in ((first + 2 * MILLISECONDS_PER_DAY, "578102"), (first + 2 * MILLISECONDS_PER_DAY - 1, "none")):
            answer, = converted("value|standard", [value])
            self.assertEqual(answer.split()[8], expected, answer)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
