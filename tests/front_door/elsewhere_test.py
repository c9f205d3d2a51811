# SPDX-License-Identifier: BSD-3-Clause
"""./gridio on systems that are not Debian's: it installs nothing and names what is missing."""
import re
import unittest

from front_door_case import FrontDoorTest
from sandbox import ROOT

TABLE = [row.split() for row in (ROOT / "systems" / "packages_elsewhere.txt").read_text().splitlines()
         if not row.startswith("#")]
DEBIAN, FEDORA, ARCH, HOMEBREW, OPENSUSE = range(2, 7)


class OtherSystems(FrontDoorTest):
    def setUp(self):
        super().setUp()
        (self.sandbox.home / "script.m").touch()
        for tool in ("dpkg-query", "apt-get", "sudo", "cmake", "ninja", "octave-cli", "c++", "pkg-config", "python3"):
            self.sandbox.remove(tool)
        self.found = self.sandbox.machine / "found"
        self.system("ID=void\n")
        self.have([])

    def system(self, release):
        self.sandbox.write("os-release", release)
        self.sandbox.environment["GRIDIO_OS_RELEASE"] = str(self.sandbox.machine / "os-release")

    def have(self, searches):
        """The machine has what these words of the table's second column say; commands are found on the PATH."""
        self.found.mkdir(exist_ok=True)
        for word in searches:
            kind, names = word.split(":", 1)
            name = names.split("|")[-1]
            (self.found / name.replace("/", "_")).touch()
            if kind == "command" and not (self.sandbox.tools / name).exists():
                self.sandbox.restore(name)

    def all_for(self, *purposes):
        return [row[1] for row in TABLE if row[0] in purposes]

    def run_empty(self):
        return self.gridio("run", "script.m")

    def test_name_what_is_missing_in_the_system_s_own_terms(self):
        for release, column, command in (("ID=fedora\n", FEDORA, "sudo dnf install"),
                                         ('ID="rocky"\nID_LIKE="rhel centos fedora"\n', FEDORA, "sudo dnf install"),
                                         ("ID=arch\n", ARCH, "sudo pacman -S"),
                                         ("ID=manjaro\nID_LIKE=arch\n", ARCH, "sudo pacman -S"),
                                         ('ID="opensuse-leap"\nID_LIKE="suse opensuse"\n', OPENSUSE, "sudo zypper install"),
                                         ("ID=void\n", DEBIAN, "by the names of Debian:")):
            with self.subTest(release=release):
                self.system(release)
                wanted = dict.fromkeys(row[column] for row in TABLE if row[0] == "run")
                self.assert_one_line(self.run_empty(), 1, f"packages are missing: {command} {' '.join(wanted)}")

    def test_include_macos(self):
        self.sandbox.remove("uname")
        self.sandbox.stand_in("uname", "echo Darwin")
        wanted = dict.fromkeys(row[HOMEBREW] for row in TABLE if row[0] == "run")
        self.assert_one_line(self.run_empty(), 1, f"brew install {' '.join(wanted)}")

    def test_name_only_what_is_missing(self):
        self.system("ID=arch\n")
        self.have(word for word in self.all_for("run") if "boost" not in word and "mkoctfile" not in word)
        self.assert_one_line(self.run_empty(), 1, "sudo pacman -S boost octave")

    def test_say_what_no_package_of_theirs_has(self):
        self.system("ID=arch\n")
        self.have(word for word in self.all_for("run", "test", "package") if word != "header:rapidcheck.h")
        self.assert_one_line(self.gridio("test"), 1, "in no package that we know of: rapidcheck.h")

    def test_build_and_run_without_installing_when_all_is_there(self):
        self.have(self.all_for("run"))
        for _ in range(2):
            done = self.run_empty()
            self.assertEqual((done.returncode, done.stdout), (0, ""), done.stderr)
        self.assertEqual(len(self.sandbox.log("cmake --build")), 1)
        self.assertEqual(len(self.sandbox.log("octave-cli")), 2)
        self.assertEqual(self.sandbox.log("apt-get") + self.sandbox.log("sudo"), [])

    def test_build_without_a_lock_where_there_is_no_flock(self):
        self.have(self.all_for("run"))
        self.sandbox.remove("flock")
        self.assertEqual(self.run_empty().returncode, 0)

    def test_have_a_name_for_every_package_that_a_command_needs(self):
        packages = re.search(r"packages\(\).*?END'\n(.*?)\nEND", (ROOT / "gridio").read_text(), re.S)[1]
        required = {tuple(row.split()[:2]) for row in packages.splitlines()}
        named = {(row[0], row[DEBIAN]) for row in TABLE}
        # Codecs, plots, and what shows the manual are not necessary.
        optional = {("run", name) for name in ("libdeflate-dev", "libzstd-dev", "libblosc-dev", "liblz4-dev", "libbz2-dev",
                    "libaec-dev", "gnuplot-nox|gnuplot-qt|gnuplot-x11", "fonts-freefont-otf", "ghostscript")} | {
                    ("package", "info"), ("test", "clang-format-14?"), ("test", "clang-tidy-14?"), ("test", "ccache?"),
                    ("fuzz", "libclang-rt-dev")}
        self.assertEqual({row for row in required if row not in named}, optional)
        self.assertEqual({len(row) for row in TABLE}, {7})


if __name__ == "__main__":
    unittest.main()
