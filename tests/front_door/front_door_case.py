# SPDX-License-Identifier: BSD-3-Clause
"""The common test case of ./gridio."""
import unittest

from sandbox import Sandbox


class FrontDoorTest(unittest.TestCase):
    def setUp(self):
        self.sandbox = Sandbox()
        self.addCleanup(self.sandbox.close)

    def gridio(self, *args, **options):
        return self.sandbox.gridio(*args, **options)

    def assert_one_line(self, done, status, text):
        self.assertEqual((done.returncode, done.stdout), (status, ""), done.stderr)
        self.assertEqual(len(done.stderr.splitlines()), 1, done.stderr)
        self.assertIn(text, done.stderr)

    def assert_last_line(self, done, text):
        self.assertEqual((done.returncode, done.stdout), (1, ""), done.stderr)
        self.assertTrue(done.stderr.splitlines()[-1].startswith("gridio: "), done.stderr)
        self.assertIn(text, done.stderr.splitlines()[-1])
