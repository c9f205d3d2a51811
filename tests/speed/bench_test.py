# SPDX-License-Identifier: BSD-3-Clause
"""The quick benchmark: does all of its work, verifies it, and says so in JSON. No time is held to anything."""
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "bench"))
import report  # noqa: E402
import workloads  # noqa: E402
from bench import Bench  # noqa: E402


class QuickBenchmark(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / "bench.json"
            done = subprocess.run(
                [sys.executable, "-B", ROOT / "bench" / "bench.py", "--quick", "--json", file, "--programs",
                 os.environ["GRIDIO_BENCH_PROGRAMS"], "--octave", os.environ["GRIDIO_OCT_DIR"]],
                capture_output=True, text=True)
            assert done.returncode == 0, done.stdout + done.stderr
            cls.printed = done.stdout
            cls.data = json.loads(file.read_text())

    def test_has_a_line_for_every_workload_and_format(self):
        expected = [(workload.name, form) for workload in workloads.WORKLOADS
                    for form in workload.formats or workloads.FORMATS]
        self.assertEqual([(line["workload"], line["format"]) for line in self.data["lines"]], expected)

    def test_every_contender_did_every_round(self):
        for line in self.data["lines"]:
            with self.subTest(line["workload"]):
                # Strings are read by gridio_any, which has no worker of the module's own.
                contenders = {"c", "gridio"} if line["workload"] == "read_strings" else {"c", "module", "gridio"}
                self.assertLessEqual(contenders, line["contenders"].keys())
                self.assertGreaterEqual(line["rounds"], 2)
                for entry in line["contenders"].values():
                    self.assertTrue(entry["verified"])
                    self.assertEqual(len(entry["seconds"]), line["rounds"])
                    self.assertGreater(min(entry["seconds"]), 0)
                    self.assertGreater(entry["ratio"], 0)

    def test_the_limit_is_huge_pages_for_large_reads_and_else_the_interpreters_process(self):
        for line in self.data["lines"]:
            if line["workload"] == "read_strings":
                continue
            self.assertEqual("huge" in line["contenders"], line["data_bytes"] > 0, line["workload"])
            for limit in "threads", "direct":
                self.assertEqual(limit in line["contenders"], line["data_bytes"] == 0, line["workload"])
            for entry in line["contenders"].values():
                self.assertEqual("peak_ratio" in entry, line["data_bytes"] > 0, line["workload"])

    def test_has_every_call_and_every_path_of_the_gateway(self):
        self.assertEqual([(call["call"], call["format"]) for call in self.data["calls"]],
                         [(call.name, form) for call in workloads.CALLS for form in call.formats])
        for call in self.data["calls"]:
            self.assertGreater(call["empty"], 0)
            self.assertGreater(call["direct"], 0)
            self.assertGreater(call["gridio"], 0)
        paths = {path["name"]: path for path in self.data["paths"]}
        self.assertLessEqual({"look-up, first row", "look-up, last row", "read a number", "build a number",
                              "check a status", "inqVarID", "getVar1Double"}, paths.keys())
        for path in paths.values():
            self.assertGreater(path["own"], 0, path["name"])
            self.assertGreater(path["nanoseconds"], 0, path["name"])

    def test_names_versions_and_machine(self):
        self.assertRegex(self.data["versions"]["gridio"], r"^gridio \d\S*, Octave \d\S*, libnetcdf \d")
        self.assertLessEqual({"system", "processor", "cores", "memory", "huge_pages", "load"},
                             self.data["machine"].keys())
        self.assertTrue(self.data["quick"])

    def test_prints_each_line(self):
        for line in self.data["lines"]:
            self.assertIn(f"{line['title']}, {line['format']}", self.printed)


class WrongWorker:
    """Answers everything with an invalid checksum."""
    name = "wrong"

    def ask(self, *words):
        return "-1"

    def run(self, *words):
        return 1.0, 0, -1.0


class Verification(unittest.TestCase):
    def test_work_that_was_not_done_ends_the_benchmark(self):
        with tempfile.TemporaryDirectory() as folder:
            bench = Bench({"c": WrongWorker(), "module": WrongWorker(), "gridio": WrongWorker()},
                          workloads.Sizes.quick(), pathlib.Path(folder))
            for workload in workloads.WORKLOADS:
                (pathlib.Path(folder) / "written_by_c.nc").touch()
                with self.assertRaisesRegex(SystemExit, f"{workload.name} .* the checksum is -1"):
                    bench.line(workload, "netcdf4")

    def test_ratios_are_of_medians(self):
        runs = {"c": [(2.0, 0), (4.0, 0), (90.0, 0)], "gridio": [(6.0, 16), (1.0, 24), (70.0, 8)]}
        entry = report.line(workloads.WORKLOADS[0], "classic", 1, runs, 16)["contenders"]["gridio"]
        self.assertEqual((entry["median"], entry["ratio"], entry["ratio_of_minima"], entry["peak_ratio"]),
                         (6.0, 1.5, 0.5, 1.5))


if __name__ == "__main__":
    unittest.main()
