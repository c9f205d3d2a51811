# SPDX-License-Identifier: BSD-3-Clause
"""Machines that gridio does not work on are refused when the build is configured: machine_test.py CMAKE."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
CMAKE = sys.argv.pop(1)


class Machine(unittest.TestCase):
    def configured(self, pointer_size, byte_order):
        """The exit status, and the lines of the message."""
        with tempfile.TemporaryDirectory() as folder:
            script = pathlib.Path(folder, "machine.cmake")
            script.write_text(f'include("{ROOT}/cmake/RequireSupportedMachine.cmake")\n'
                              f'require_supported_machine("{pointer_size}" "{byte_order}")\n')
            done = subprocess.run([CMAKE, "-P", script], capture_output=True, text=True)
        return done.returncode, [line.strip() for line in done.stderr.splitlines() if "gridio needs" in line]

    def test_is_refused_unless_it_has_64_bits_and_is_little_endian(self):
        self.assertEqual(self.configured(8, "LITTLE_ENDIAN"), (0, []))
        self.assertEqual(self.configured(4, "LITTLE_ENDIAN"),
                         (1, ["gridio needs a 64-bit system, and this one has 32 bits."]))
        self.assertEqual(self.configured(8, "BIG_ENDIAN"),
                         (1, ["gridio needs a little-endian system, and this one is big-endian."]))

    def test_is_asked_for_by_the_build(self):
        self.assertIn('require_supported_machine("${CMAKE_SIZEOF_VOID_P}" "${CMAKE_CXX_BYTE_ORDER}")',
                      (ROOT / "CMakeLists.txt").read_text())


if __name__ == "__main__":
    unittest.main()
