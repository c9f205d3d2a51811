# SPDX-License-Identifier: BSD-3-Clause
"""clang-tidy finds nothing in src. A file is looked at again only when it, a header that it includes or a check has changed.

tidy_test.py CLANG_TIDY BUILD_FOLDER"""
import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
SOURCES = ROOT / "src"
INCLUDED_FROM = (SOURCES, ROOT, ROOT / "include")
GCC_ONLY = ("-fno-gnu-unique", "-flto", "-flto=auto", "-fno-fat-lto-objects", "-ffat-lto-objects")


def compiled_files(build):
    """The options with which each file is compiled."""
    commands = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        path = pathlib.Path(entry["file"])
        if path.is_relative_to(SOURCES):
            words = shlex.split(entry["command"])
            start = next(i for i, word in enumerate(words) if word.startswith("-"))
            commands.setdefault(path, [word for word in words[start:] if word not in GCC_ONLY])
    return commands


@functools.lru_cache(maxsize=None)
def own_includes(path):
    """The files of this tree that this one includes, whose names stand in quotes."""
    found = set()
    for name in re.findall(rb'^\s*#\s*include\s*"([^"]+)"', path.read_bytes(), re.M):
        places = [folder / name.decode() for folder in (path.parent, *INCLUDED_FROM)]
        found.add(next(place for place in places if place.is_file()))
    return frozenset(found)


def text_with_headers(path):
    seen, open_ends = {path}, [path]
    while open_ends:
        new = own_includes(open_ends.pop()) - seen
        seen |= new
        open_ends += new
    return b"".join(each.read_bytes() for each in sorted(seen))


def look_at(clang_tidy, path, options, stamp):
    """What is found, as text."""
    if stamp.exists():
        return ""
    done = subprocess.run([clang_tidy, "--quiet", str(path), "--", *options], cwd=stamp.parent, capture_output=True, text=True)
    if done.returncode == 0:
        stamp.touch()
        return ""
    return done.stdout + done.stderr


def main(clang_tidy, build):
    stamps = build / "tests" / "style" / "tidy"
    stamps.mkdir(parents=True, exist_ok=True)
    common = hashlib.sha256((ROOT / ".clang-tidy").read_bytes())
    commands = compiled_files(build)
    assert len(commands) > 100, "the build's commands name fewer sources than there are"

    with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as threads:
        found = []
        for path, options in commands.items():
            state = common.copy()
            state.update(text_with_headers(path) + repr((str(path), options)).encode())
            found.append(threads.submit(look_at, clang_tidy, path, options, stamps / state.hexdigest()))
        texts = [text for text in (each.result() for each in found) if text]
    print("".join(texts))
    print(f"{len(commands)} files, {len(texts)} with findings")
    return 1 if texts else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], pathlib.Path(sys.argv[2])))
