# SPDX-License-Identifier: BSD-3-Clause
"""The first steps of the manual, typed as they are printed, by someone with an empty home folder."""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

import compile_once
import examples_test
import manual_source

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "examples"))
import picture

STEPS = list(manual_source.blocks(manual_source.CHAPTERS / "first_steps.texi"))


def commands():
    """The commands typed in the terminal; the last one starts the interpreter."""
    typed = [line for block in STEPS if block.kind == "terminal" for line in re.findall(r"^\$ (.+)$", block.text, re.M)]
    assert typed[-1] == "octave-cli" and typed.count("octave-cli") == 1, typed
    return typed


def session():
    """The code typed at the prompt, without its output."""
    typed = [block.text for block in STEPS if block.kind in ("session", "sample", "run on")]
    return "PS1 (''); PS2 ('');\n" + "".join(typed) + "printf ('%s\\n', 'the end'); exit (0);\n"


def in_order(printed, expected):
    at = 0
    for text in expected:
        found = printed.find(text, at)
        assert found >= 0, f"not printed (from here on):\n{text}\nprinted:\n{printed}"
        at = found + len(text)


def compiled_package():
    """Reads what Package.Installation compiled, if that was kept; else compiles without optimisation, which takes less time."""
    once = compile_once.environment()
    return {**once, "CCACHE_READONLY": "1"} if once else {"CXXFLAGS": "-O0"}


def main():
    with tempfile.TemporaryDirectory() as home:
        script = "\n".join(["set -e", *commands()[:-1], 'exec octave-cli --interactive --no-line-editing --quiet'])
        environment = {**{k: v for k, v in os.environ.items() if k not in ("DISPLAY", "OCTAVE_PATH")},
                       "HOME": home,
                       **compiled_package(),
                       "OCTAVE_HISTFILE": os.devnull, "XDG_DATA_HOME": f"{home}/.local/share"}
        done = subprocess.run(["bash", "-c", script], cwd=ROOT, env=environment, input=session(), timeout=900,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        # The manual's reader works in the folder /home/you/data.
        folder = os.path.join(os.path.realpath(home), "first-steps")
        printed = examples_test.tidy(done.stdout.replace(folder, "/home/you/data"))
        assert done.returncode == 0 and printed.endswith("the end\n"), done
        expected = [examples_test.tidy(block.text) for block in STEPS if block.kind == "prints"]
        assert len(expected) >= 3
        in_order(printed, expected)
        errors = re.findall(r"^error: .+", printed, re.M)
        assert len(errors) == sum(text.count("error: ") for text in expected), errors

        pixels = picture.read_png(pathlib.Path(home, "first-steps", "sea.png"))
        colours = {pixel for row in pixels for pixel in row}
        assert len(pixels) > 300 and len(pixels[0]) > 400 and len(colours) > 30, (len(pixels), len(colours))
    print(f"{len(commands())} commands, {len(session().splitlines())} lines, {len(expected)} outputs as printed")


if __name__ == "__main__":
    main()
