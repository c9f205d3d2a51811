# SPDX-License-Identifier: BSD-3-Clause
"""The identifiers of all errors and warnings, as the programs that raise them print them."""
import os
import subprocess

import interpreter

PREFIX = "Ovard:gridio:"


def of_the_module():
    """{identifier without its prefix: number of arguments}"""
    return {identifier: int(count[0]) for identifier, *count in lines() if count}


def of_the_host():
    """Identifiers, without their prefix, that the interpreter's host raises."""
    return {identifier for identifier, *count in lines() if not count}


def of_the_package():
    """Identifiers, without their prefix, that the functions of the package raise; to be asked in the folder where they look."""
    code = "disp (strjoin (error_identifier (), \"\\n\"))"
    done = subprocess.run(interpreter.command(None, "--eval", code, folders=[interpreter.INST]),
                          cwd=interpreter.INST / "private", capture_output=True, text=True, check=True,
                          env=interpreter.environment())
    return set(done.stdout.split())


def lines():
    listing = subprocess.run([os.environ["LIST_ERRORS"]], capture_output=True, text=True, check=True).stdout
    return [line.removeprefix(PREFIX).split() for line in listing.splitlines()]
