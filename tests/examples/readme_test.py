# SPDX-License-Identifier: BSD-3-Clause
"""Runs the README: its scripts as printed, then each `$ ./gridio run` in a console block that shows
output, in order and in one folder. The output must be as printed there."""
import os
import re
import shlex
import tempfile

from interpreter import ROOT, output_of

readme = (ROOT / "README.md").read_text()
scripts = re.findall(r"Save this as `([^`]+)`:\n\n```octave\n(.*?)```", readme, re.S)
commands = re.findall(r"^\$ \./gridio run (\S+)(.*)\n((?:(?!\$|```).*\n)+)", readme, re.M)
assert len(scripts) == 2 and len(commands) >= 3, (scripts, commands)

with tempfile.TemporaryDirectory() as folder:
    for name, text in scripts:
        with open(os.path.join(folder, name), "w") as file:
            file.write(text)
    for script, arguments, expected in commands:
        script = str(ROOT / script) if (ROOT / script).exists() else script
        printed = "\n".join(output_of(script, *shlex.split(arguments), cwd=folder)).rstrip().split("\n")
        expected = expected.rstrip().split("\n")
        assert printed == expected, f"{script}{arguments}:\n{printed}\nREADME:\n{expected}"
        print(f"{os.path.basename(script)}{arguments}: as printed")
