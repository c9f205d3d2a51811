# SPDX-License-Identifier: BSD-3-Clause
"""Runs the checks of the contract in a host: contract_test.py COMMAND ARGUMENTS..., which prints a line for each."""
import os
import subprocess
import sys
import tempfile

def complaints(output, errors):
    lines = output.splitlines()
    for line in lines:
        if line.startswith("FAILED"):
            yield line
    if "ok CallsPassInterrupts" not in lines:
        yield "no interrupt was raised"
    if lines.count("the handler ran") != 1:
        yield "the handler of plugAtExit did not run once"
    if "an earlier handler ran" in lines:
        yield "a handler ran that was replaced"
    if sum("contract:warning" in line for line in errors.splitlines()) != 2:
        yield "not one warning from a call and one from the handler"


def main(command):
    with tempfile.TemporaryDirectory() as home:
        ran = subprocess.run(command, capture_output=True, text=True, timeout=300,
                             env={**os.environ, "HOME": home, "OCTAVE_HISTFILE": os.path.join(home, "history")})
    found = list(complaints(ran.stdout, ran.stderr))
    if found or ran.returncode < 0:
        print(ran.stdout, ran.stderr, f"status {ran.returncode}", *found, sep="\n")
        sys.exit(1)


if __name__ == "__main__":
    main(sys.argv[1:])
