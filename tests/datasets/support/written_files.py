# SPDX-License-Identifier: BSD-3-Clause
"""Files that scripts write, and the rules that they must keep."""
import os
import re
import subprocess
import tempfile
import unittest

import interpreter
import netCDF4
import numpy


def octave(folder, script):
    """What the script prints, with warnings and errors among it."""
    done = interpreter.run_text(script, folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    return done.returncode, done.stdout


def cf_faults(path):
    """Breaches of rules of the CF conventions that every file of ours has to keep."""
    faults = []
    with netCDF4.Dataset(path) as file:
        file.set_auto_maskandscale(False)
        if not re.fullmatch(r"CF-1\.\d+", file.Conventions):
            faults.append("Conventions")
        for name, variable in file.variables.items():
            attributes = {a: variable.getncattr(a) for a in variable.ncattrs()}
            if not re.fullmatch(r"[A-Za-z]\w*", name):
                faults.append(f"{name}: name")
            if variable.dimensions == (name,) and variable.dtype is not str and variable.dtype.kind in "iuf":
                values = variable[:].astype(float)
                steps = numpy.sign(numpy.diff(values))
                if "_FillValue" in attributes or not numpy.isfinite(values).all() or not (steps == steps[:1]).all() or 0 in steps:
                    faults.append(f"{name}: coordinate variable")
            for limit in ("_FillValue", "missing_value", "valid_min", "valid_max", "valid_range", "flag_values", "flag_masks"):
                if limit in attributes and numpy.asarray(attributes[limit]).dtype != variable.dtype:
                    faults.append(f"{name}: type of {limit}")
            for factor in ("scale_factor", "add_offset"):
                if factor in attributes and numpy.asarray(attributes[factor]).dtype.kind != "f":
                    faults.append(f"{name}: type of {factor}")
            if " since " in attributes.get("units", "") and "calendar" not in attributes:
                faults.append(f"{name}: calendar")
            if variable.dtype is not str and variable.dtype.kind == "f" and variable.dimensions and not numpy.isfinite(variable[:]).all():
                faults.append(f"{name}: NaN beside the fill value")
    return faults


class Written(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = scratch.name

    def path(self, name):
        return os.path.join(self.folder, name)

    def run_script(self, script):
        status, said = octave(self.folder, script)
        self.assertEqual(status, 0, said)
        return said

    def ncdump(self, name, *options):
        return subprocess.run([os.environ["NCDUMP"], *options, self.path(name)], capture_output=True, text=True, check=True).stdout
