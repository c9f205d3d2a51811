# SPDX-License-Identifier: BSD-3-Clause
"""./gridio compilers, with stand-ins for the compilers and their builds."""
import unittest

from front_door_case import FrontDoorTest


class Compilers(FrontDoorTest):
    def setUp(self):
        super().setUp()
        self.sandbox.install_everything()
        for tool in ("cut", "head", "rm", "sort"):
            self.sandbox.add_tool(tool)
        self.sandbox.stand_in("dpkg-query", """
            case "$*" in
            *Package*) sed 's/^/installed /' $M/installed ;;
            *) [ ! -e $M/all ] || echo installed ;;
            esac""")
        # Five releases of each compiler; the pattern says how its name begins.
        self.sandbox.stand_in("apt-cache", """
            case $3 in *clang*) name=clang ;; *) name=g++ ;; esac
            for release in 13 19 11 14 12; do echo "$name-$release - a compiler"; done""")
        self.sandbox.stand_in("dpkg-buildflags", 'echo "export CXXFLAGS=-fhard CPPFLAGS=-Dbuffers LDFLAGS=-znow"')
        self.sandbox.stand_in("cmake", """
            log cmake $CXXFLAGS "$@"
            case "$*" in *"$(cat $M/broken)"*) echo "an error: unused variable"; exit 1; esac""")
        self.sandbox.stand_in("ctest", 'case "$*" in *-N*) cat $M/count ;; *) log ctest "$@" ;; esac')
        self.sandbox.write("broken", "no such compiler")
        self.sandbox.write("count", "Total Tests: 900\n")

    def compilers(self):
        done = self.gridio("compilers")
        return done.returncode, done.stdout.splitlines(), done.stderr

    def test_are_installed_at_once(self):
        self.compilers()
        call, = (line for line in self.sandbox.log("apt-get") if " install " in line and " -s " not in line)
        self.assertIn("clang-14 clang-19 clang libc++-dev libc++abi-dev googletest", call)
        self.assertNotIn("clang-13", call)
        self.sandbox.write("log")
        self.sandbox.write("all")
        self.sandbox.remove("network")
        self.assertEqual(self.compilers()[0], 0)
        self.assertEqual(self.sandbox.log("apt-get"), [])

    def test_are_each_tried(self):
        status, lines, _ = self.compilers()
        names = [line.split("/")[-1] for line in lines]
        self.assertEqual(status, 0)
        self.assertEqual(names[:2] + names[-2:], ["passed g++-12", "passed g++-13", "passed hardened", "passed libc++"])
        self.assertIn("passed clang++-19", names)
        self.assertNotIn("passed g++-11", names)
        self.assertEqual(len(self.sandbox.log("ctest")), len(names))

    def test_take_warnings_for_errors(self):
        self.compilers()
        configured = [line for line in self.sandbox.log("cmake") if "--preset" in line]
        self.assertTrue(all("-DGRIDIO_WERROR=ON" in line for line in configured), configured)
        self.assertEqual([line.split()[1:3] for line in configured if "-fhard" in line], [["-fhard", "-Dbuffers"]])

    def test_leave_the_interpreter_out_with_another_library(self):
        self.compilers()
        built = [line for line in self.sandbox.log("cmake") if "--build" in line]
        self.assertEqual(["gridio_octave" in line for line in built], ["libc++" not in line for line in built])

    def test_are_all_tried_when_one_fails(self):
        self.sandbox.write("broken", "clang++-14")
        status, lines, said = self.compilers()
        self.assertEqual(status, 1)
        self.assertEqual([line for line in lines if "failed" in line], ["failed clang++-14"])
        self.assertIn("    an error: unused variable\n", said)
        self.assertIn("gridio: failed: clang++-14 (see ", said)

    def test_fail_where_the_tests_are_not_found(self):
        self.sandbox.write("count", "Total Tests: 3\n")
        status, lines, _ = self.compilers()
        self.assertEqual((status, {line.split()[0] for line in lines}), (1, {"failed"}))

    def test_fail_in_one_line_where_they_cannot_be_installed(self):
        self.sandbox.remove("network")
        status, lines, said = self.compilers()
        self.assertEqual((status, lines), (1, []))
        self.assertIn("the compilers cannot be installed", said.splitlines()[-1])


if __name__ == "__main__":
    unittest.main()
