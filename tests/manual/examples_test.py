#!/usr/bin/env python3
# SPDX-License-Identifier: BSD-3-Clause
"""Runs every example of the manual and compares its output.

examples_test.py [--accept] [CHAPTER.texi...]   --accept writes what the examples print into the manual
"""
import os
import pathlib
import re
import sys
import tempfile
import textwrap

import manual_source

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parent / "remote"), str(HERE.parent / "support")]
import dap2_server
import interpreter

# The manual's name of the server for its examples on remote data.
SERVER = "http://data.example.org"
WIDTH = manual_source.WIDTH
NUMBER = re.compile(r"[-+]?\d+(\.\d*)?([eE][-+]?\d+)?")


def steps_of(chain, server):
    """(file name, text, block, index in the block's lines of the output) of each step; output blocks are no steps."""
    steps = []
    for block in chain:
        text = block.text.replace(SERVER, server)
        if block.kind == "sample":
            steps.append((f"{len(steps):03}.sample", ""))
        if block.kind in ("run", "run on", "sample"):
            steps.append((f"{len(steps):03}.code", text))
        elif block.kind == "file":
            steps.append((f"{len(steps):03}.file.{block.name}", text))
        elif block.kind == "shell":
            for command in re.findall(r"^\$ (.+)$", text, re.M):
                steps.append((f"{len(steps):03}.shell", command))
    return steps


def printed_blocks(chain, outputs, server):
    """(block, its text as it should be) for each block that shows output; outputs: one text a step."""
    outputs = iter(text.replace(server, SERVER) for text in outputs)
    pending, shown, last = "", [], None
    for block in chain:
        if block.kind == "sample":
            next(outputs)
        if block.kind in ("run", "run on", "sample"):
            pending, last = pending + next(outputs), block
        elif block.kind == "file":
            next(outputs)
        elif block.kind == "prints":
            shown.append((block, pending))
            pending = ""
        elif block.kind == "shell":
            commands = re.findall(r"^\$ .+$", block.text, re.M)
            shown.append((block, "".join(f"{command}\n{next(outputs)}" for command in commands)))
    if pending:
        raise manual_source.Mistake(f"{last.where()}: prints what the manual does not show:\n{pending}")
    return shown


def tidy(text):
    """The output in the manual's form: long lines broken, no trailing blanks."""
    lines = []
    text = re.sub(r"^warning: called from\n(    .*\n)+", "", text, flags=re.M)  # where our own script called it
    for line in text.rstrip().splitlines():
        long = len(line) > WIDTH and not line.startswith("$ ")
        lines += textwrap.wrap(line, WIDTH, break_long_words=False, break_on_hyphens=False) if long else [line.rstrip()]
    return "".join(line + "\n" for line in lines)


def is_same(expected, printed):
    """The same text; from Octave 11 on the same words and numbers, since it gives columns with a NaN more digits."""
    if tidy(expected) == tidy(printed):
        return True
    return interpreter.release() >= 11 and words(expected) == words(printed)


def words(text):
    return [float(word) if NUMBER.fullmatch(word) else word for word in text.split()]


def run(chains, server):
    """The output of each chain, the identifiers that were raised, and the messages when gridio was unloaded after it."""
    with tempfile.TemporaryDirectory() as folder:
        samples, folders = pathlib.Path(folder, "samples"), [pathlib.Path(folder, "chains", f"{i:03}") for i in range(len(chains))]
        samples.mkdir()
        for steps, chain in zip(folders, chains):
            steps.mkdir(parents=True)
            for name, text in steps_of(chain, server):
                (steps / name).write_text(text, encoding="utf-8")
        done = interpreter.run(HERE / "run_chains.m", folders[0].parent, samples, folders=(interpreter.oct_folder(), interpreter.INST),
                               text=True, timeout=300)
        # The library itself reports on stderr that a server was not reached.
        if done.returncode != 0 or re.search("^error: ", done.stderr, re.M):
            sys.exit(f"the session failed: {done}")
        for steps, chain in zip(folders, chains):
            outputs = [(steps / f"{i:03}.out").read_text("utf-8") for i in range(len(steps_of(chain, server)))]
            raised = {word for path in steps.glob("*.raised") for word in path.read_text("utf-8").split()}
            yield chain, outputs, raised, (steps / "left.out").read_text("utf-8")


def entries_without_their_error(raised_at):
    """Entries for errors whose examples, which are (first block, identifiers raised), do not raise these."""
    if not any(block.path.name == "errors.texi" for block, _ in raised_at):
        return []
    return [f"errors.texi:{entry.first + 1}: no example raises {entry.identifier}" for entry in manual_source.error_entries()
            if entry.identifier not in manual_source.UNREACHABLE and not any(
                (entry.identifier in raised or "hidden" in raised) and block.path.name == "errors.texi" and entry.first <= block.first < entry.last
                for block, raised in raised_at)]


def accept(path, texts):
    lines = path.read_text("utf-8").splitlines()
    for block, text in sorted(texts, key=lambda pair: -pair[0].first):
        lines[block.first:block.last] = manual_source.escaped(text).splitlines()
    path.write_text("\n".join(lines) + "\n", encoding="utf-8")


def main(arguments):
    accepting = "--accept" in arguments
    names = [name for name in arguments if name != "--accept"]
    chapters = [path for path in manual_source.chapters() if not names or path.name in names]
    chains = [chain for path in chapters for chain in manual_source.chains(path)]
    server = f"http://127.0.0.1:{dap2_server.start().server_port}"
    failures, compared, rewritten, raised_at = [], 0, {}, []
    for chain, outputs, raised, left in run(chains, server):
        raised_at.append((chain[0], raised))
        if left:
            failures.append(f"{chain[0].where()}: leaves something behind: {left}")
        try:
            shown = printed_blocks(chain, outputs, server)
        except manual_source.Mistake as mistake:
            failures.append(str(mistake))
            continue
        for block, text in shown:
            compared += 1
            if not is_same(block.text, text):
                failures.append(f"{block.where()}: the manual says\n{block.text}and this is printed\n{text}")
                rewritten.setdefault(block.path, []).append((block, tidy(text)))
    failures += entries_without_their_error(raised_at)
    if accepting:
        for path, texts in rewritten.items():
            accept(path, texts)
        failures = [f for f in failures if "the manual says" not in f]
    print(*failures, sep="\n")
    print(f"{len(chapters)} chapters, {len(chains)} examples, {compared} outputs, {len(failures)} failures")
    return 1 if failures or not compared else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
