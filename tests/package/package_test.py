# SPDX-License-Identifier: BSD-3-Clause
"""The package: its bytes, the messages of its configure script, and installing it."""
import os
import pathlib
import shutil
import subprocess
import tarfile
import tempfile
import unittest

import compile_once

ROOT = pathlib.Path(__file__).resolve().parents[2]
PACKAGE = ROOT / "hosts" / "octave" / "package"
VERSION = (ROOT / "VERSION").read_text().strip()


def assemble(folder, root=ROOT, **environment):
    done = subprocess.run([root / "hosts/octave/package/assemble.sh", folder], capture_output=True, text=True,
                          env={**os.environ, **environment})
    assert done.returncode == 0, done
    return pathlib.Path(done.stdout.strip())


def own_folder(test):
    """A folder that everyone may read, removed after the test."""
    folder = pathlib.Path(tempfile.mkdtemp())
    test.addCleanup(shutil.rmtree, folder)
    folder.chmod(0o755)
    return folder


class Archive(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.archive = assemble(folder.name)

    def test_has_the_same_bytes_from_a_copy_of_the_tree_made_by_someone_else(self):
        folder = own_folder(self)
        copy = folder / "elsewhere"
        shutil.copytree(ROOT, copy, ignore=shutil.ignore_patterns("build", "dist", ".git", "*.pyc"))
        for path in copy.rglob("*"):
            os.utime(path, (10 ** 9, 10 ** 9))
        (copy / "src" / "notes.txt~").write_text("an editor's leftover")
        other = assemble(folder, copy, TZ="Asia/Tokyo", LC_ALL="C.UTF-8", HOME=str(folder))
        self.assertEqual(self.archive.name, f"gridio-{VERSION}.tar.gz")
        self.assertEqual(self.archive.read_bytes(), other.read_bytes())

    def test_holds_every_source_that_the_build_compiles(self):
        with tarfile.open(self.archive) as archive:
            names = {pathlib.PurePath(member.name).name for member in archive}
        for folder in ("src", "hosts/octave", "hosts/memory", "hosts/messages", "include"):
            sources = {path.name for path in (ROOT / folder).rglob("*") if path.suffix in (".cpp", ".h")}
            self.assertTrue(sources)
            self.assertLessEqual(sources, names)

    def test_holds_the_examples_where_they_are_installed_with_the_functions(self):
        with tarfile.open(self.archive) as archive:
            names = archive.getnames()
        examples = [path for path in (ROOT / "examples").rglob("*") if path.is_file()]
        self.assertGreater(len(examples), 10)
        for path in examples:
            self.assertIn(f"gridio-{VERSION}/inst/{path.relative_to(ROOT)}", names)


class Configure(unittest.TestCase):
    def setUp(self):
        self.folder = own_folder(self)
        self.headers = self.folder / "headers"
        self.headers.mkdir()
        shutil.copy(PACKAGE / "configure", self.folder)

    def configure(self, *arguments, **environment):
        return subprocess.run([self.folder / "configure", *arguments], capture_output=True, text=True,
                              env={**os.environ, **environment})

    def hide(self, header, text="#error hidden"):
        path = self.headers / header
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text + "\n")

    def assert_misses(self, done, *words):
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout, "")
        self.assertEqual(done.stderr.count("\n"), 1, done.stderr)
        for word in ("gridio: ", "Debian: apt-get install ", *words):
            self.assertIn(word, done.stderr)
        self.assertFalse((self.folder / "config.mk").exists())

    def test_is_silent_when_nothing_is_missing(self):
        done = self.configure("CXX=g++", "CC=gcc")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
        settings = (self.folder / "config.mk").read_text()
        self.assertIn("CXX = g++\n", settings)
        self.assertIn("-lnetcdf", settings)

    def test_works_without_pkg_config(self):
        tools = self.folder / "tools"
        tools.mkdir()
        (tools / "pkg-config").write_text("#!/bin/sh\nexit 1\n")
        (tools / "pkg-config").chmod(0o755)
        done = self.configure(PATH=f"{tools}:{os.environ['PATH']}")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("-lnetcdf", (self.folder / "config.mk").read_text())

    def test_tells_a_missing_library_in_one_line(self):
        for header, words in (("netcdf.h", ("netCDF", "4.9", "libnetcdf-dev")),
                              ("boost/variant.hpp", ("Boost", "libboost-dev")),
                              ("octave/oct.h", ("Octave", "octave-dev"))):
            with self.subTest(header):
                self.hide(header)
                self.assert_misses(self.configure(f"CXX=g++ -I{self.headers}"), *words)
                (self.headers / header).unlink()

    def test_tells_a_missing_codec_in_one_line_and_goes_on(self):
        codecs = {"libdeflate.h": "libdeflate-dev", "zstd.h": "libzstd-dev", "blosc.h": "libblosc-dev",
                  "lz4.h": "liblz4-dev", "bzlib.h": "libbz2-dev", "szlib.h": "libaec-dev"}
        for header, package in codecs.items():
            with self.subTest(header):
                self.hide(header)
                done = self.configure(f"CXX=g++ -I{self.headers}")
                (self.headers / header).unlink()
                self.assertEqual((done.returncode, done.stderr, done.stdout.count("\n")), (0, "", 1))
                self.assertIn(package, done.stdout)
                self.assertEqual((self.folder / "config.mk").read_text().count("-DGRIDIO_HAS_"), len(codecs) - 1)

    def test_takes_no_library_that_is_too_old(self):
        self.hide("netcdf_meta.h", "#define NC_VERSION_MAJOR 4\n#define NC_VERSION_MINOR 8")
        self.assert_misses(self.configure(f"CXX=g++ -I{self.headers}"), "4.9 or newer")

    def test_tells_a_missing_compiler_in_one_line(self):
        self.assert_misses(self.configure("CXX=no-such-compiler"), "no-such-compiler", "g++")

    def test_tells_missing_headers_of_the_interpreter_in_one_line(self):
        self.assert_misses(self.configure(MKOCTFILE="no-such-mkoctfile"), "mkoctfile", "octave-dev")


class Installation(unittest.TestCase):
    """By an ordinary user, without network and rights, from installing to uninstalling."""

    def test_passes_the_check_of_the_front_door(self):
        done = subprocess.run([PACKAGE / "check.sh", assemble(own_folder(self))], capture_output=True, text=True,
                              env={**os.environ, **compile_once.environment()})
        self.assertEqual(done.returncode, 0, done)
        self.assertRegex(done.stdout, r"(?m)^[1-9]\d+ passed, 0 failed$")
        self.assertNotIn("to exit", done.stderr)  # what runs there belongs to the package, which is no longer installed


if __name__ == "__main__":
    unittest.main()
